// The dialogs of parameters and factors and the calculator for planes and lines, driven by the
// names of their controls.

#include <QLineEdit>
#include <QPushButton>

#include "tests/qt/test_window.h"

using namespace velorix;

class DialogsTest : public WindowTest {
  Q_OBJECT

  velorix::Settings& Settings() { return S().Settings; }
  QString Path() { return QString::fromStdString(S().SettingsFile); }

  /// Types four values over what the calculator's fields hold.
  void Type(const QStringList& values) {
    const char* const fields[] = {"txtDec1", "txtInc1", "txtDec2", "txtInc2"};
    for (int i = 0; i < 4; ++i) {
      The<QLineEdit>(fields[i]).clear();
      QTest::keyClicks(&The<QLineEdit>(fields[i]), values[i]);
    }
  }
  QString Result() { return Look("lblDec lblInc lblAngle lblNote"); }

 private slots:
  void init() {
    window_.emplace();
    S().SettingsFile = W().Path("settings.sav");
    W().Open(W().WriteFile("site", 5));
  }

  void parametersAndFactorsAreLockedUntilChangeIsPressed() {
    Settings().P = {12, 90, 3, 90};
    Settings().DemagFac = false;
    Settings().FacIndex[8] = 0;
    const struct {
      const char *command, *name, *controls, *open, *first;
    } rows[] = {
        {"mnuOPAR", "frmOPAR", "cboOP(1) cboOP(2) cboOP(3) cboOP(4) chkDemagFac cmdOK",
         "12|90|3|90|Use Demagnetizing Factor|OK", "cboOP(1)"},
        {"mnuAnisoFac", "frmAnisoFac",
         "txtFac(1) txtFac(2) txtFac(3) txtFac(4) txtFac(5) txtFac(6) txtFac(7) txtFac(8) "
         "cboFac(1) cboFac(2) cboFac(3) cboFac(4) cboFac(5) cboFac(6) cboFac(7) cboFac(8) cmdOK",
         "L|F|P|Pj|T|U|Q|E|k1/k2|k2/k3|k1/k3|exp{sqr[2((n1-n)^2+(n2-n)^2+(n3-n)^2)]}|"
         "(2n2-n1-n3)/(n1-n3)|(2k2-k1-k3)/(k1-k3)|(k1-k2)/[(k1+k2)/2-k3]||OK",
         "txtFac(1)"}};
    for (const auto& row : rows)
      ShowDialog(row.command, [&] {
        const QStringList open = QString(row.open).split('|');
        QCOMPARE(form_->objectName(), row.name);
        QCOMPARE(Look(row.controls), '(' + open.mid(0, open.size() - 1).join(")|(") + ")|CHANGE");
        Key(Qt::Key_Return);
        QVERIFY(form_->isVisible() && The<QWidget>(row.first).hasFocus());
        QCOMPARE(Look(row.controls), row.open);
        QVERIFY(The<QPushButton>("cmdOK").isDefault());
        QCOMPARE(The<QPushButton>("cmdOK").palette().color(QPalette::Button), QColor(0x80FF80));
      });
  }

  void theListsOfferTheirValues() {
    ShowDialog("mnuOPAR", [this] {
      QStringList offered;
      for (int i = 1; i <= 4; ++i) offered += Entries(The<QComboBox>(QString("cboOP(%1)").arg(i)));
      QCOMPARE(offered.join('|'), "3 6 9 12|0 90|3 6 9 12|0 90");
    });
    ShowDialog("mnuAnisoFac", [this] { QCOMPARE(The<QComboBox>("cboFac(8)").count(), 38); });
  }

  void cancelAndEscapeChangeNothing() {
    for (const char* command : {"mnuOPAR", "mnuAnisoFac"})
      for (const bool escape : {false, true})
        ShowDialog(command, [&] {
          Press("cmdOK");
          for (QComboBox* list : form_->findChildren<QComboBox*>()) list->setCurrentIndex(1);
          for (QLineEdit* name : form_->findChildren<QLineEdit*>()) name->setText("H");
          escape ? Key(Qt::Key_Escape) : Press("cmdCancel");
          QVERIFY(!form_->isVisible());
        });
    QVERIFY(Settings() == velorix::Settings());
    QVERIFY(!QFile::exists(Path()));
    QCOMPARE(W().Grid().model()->rowCount(), 5);
  }

  void otherParametersLeaveAnEmptySession() {
    Settings().P[1] = 5;  // which is not on offer, and stays
    ShowDialog("mnuOPAR", [this] {
      QCOMPARE(The<QComboBox>("cboOP(1)").currentIndex(), -1);
      Press("cmdOK");
      The<QComboBox>("cboOP(2)").setCurrentText("90");
      The<QAbstractButton>("chkDemagFac").setChecked(false);
      QTest::keyClick(form_, Qt::Key_Return);
      QVERIFY(!form_->isVisible());
    });
    QCOMPARE(W().Grid().model()->rowCount(), 0);
    QCOMPARE(W().Window.windowTitle(), "Velorix5");
    QVERIFY(Settings().P[1] == 5 && Settings().P[2] == 90 && !Settings().DemagFac);
  }

  void factorsGoIntoHeaderAndSettings() {
    ShowDialog("mnuAnisoFac", [this] {
      Press("cmdOK");
      for (const int i : {1, 4, 8}) {  // a text box with the focus has all of its text selected
        auto& name = The<QLineEdit>(QString("txtFac(%1)").arg(i));
        if (i > 1) QTest::mouseClick(&name, Qt::LeftButton);
        QTRY_COMPARE(name.selectedText(), name.text());
      }
      The<QLineEdit>("txtFac(1)").setText("H");
      The<QComboBox>("cboFac(1)").setCurrentIndex(7);
      Press("cmdOK");
      QVERIFY(!form_->isVisible());
    });
    QVERIFY(Settings().FacName[1] == "H" && Settings().FacIndex[1] == 8);
    const QStringList headers = HeaderTexts(W().Grid()).split('|');
    QVERIFY(headers.contains("H") && !headers.contains("L"));
  }

  void settingsThatCannotBeWrittenKeepItOpen() {
    S().SettingsFile = W().Path("no folder/settings.sav");
    ShowDialog("mnuOPAR", [this] {
      for (int press = 0; press < 2; ++press) Press("cmdOK");
      QVERIFY(Boxes().size() == 1 && Boxes()[0].starts_with("Velorix5|") && form_->isVisible());
    });
  }

  void theCalculatorsModesHaveTheirLabelsAndBeginEmpty() {
    OpenForm("mnuFoliLine", "frmFoliLine");
    QCOMPARE(form_->windowTitle(), "Plane from Lineations       ");
    QCOMPARE(Look("optLine lblOutput"), "2 Lineations+|Foliation");
    for (const auto& [option, look] :
         {std::pair{"optFoli", "2 Foliations+|Foliation 1|Foliation 2|Lineation|||||"},
          std::pair{"optLine", "2 Lineations+|Lineation 1|Lineation 2|Foliation|||||"}}) {
      Type({"0", "0", "90", "45"});
      Press("Command1");
      Press(option);
      QCOMPARE(Look(option + QString(" lblInput1 lblInput2 lblOutput txtDec1 txtInc1 txtDec2 "
                                     "txtInc2 lblDec")),
               look);
      QVERIFY(The<QLineEdit>("txtDec1").hasFocus());
    }
  }

  void theCalculatorShowsResultsAndDoubts() {
    OpenForm("mnuFoliLine", "frmFoliLine");
    Type({"0", "0", "90", "45"});
    Press("Command1");
    QCOMPARE(Result(), "90.0|45.0|90.0 (90.0)|");
    Type({"1E400", "0", "90", "45"});
    Press("Command1");
    QCOMPARE(Boxes().back(), "Velorix5|Overflow|&OK");
    QCOMPARE(Result(), "|||");
    Press("optFoli");
    Type({"90", "30", "270", "20"});
    Key(Qt::Key_Return);
    QCOMPARE(Result(), "0.0|0.0|50.0 (130.0)|");
    Type({"90", "30", "90", "30"});
    Press("Command1");
    QVERIFY(Result().endsWith("|The two planes are parallel."));
    Press("cmdClear");
    QCOMPARE(Result() + Look("txtDec1 txtInc2"), "||||");

    const QLineEdit& field = The<QLineEdit>("txtInc1");
    const auto colour = [&] { return field.palette().color(QPalette::Base); };
    const QColor plain = colour();
    for (const auto& [text, isNumber] : {std::pair{"12,5", false}, std::pair{"x", false},
                                         std::pair{"", true}, std::pair{"-3.5", true}}) {
      Type({"0", text, "0", "0"});
      QVERIFY2((colour() == plain) == isNumber, text);
    }
  }
};

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
