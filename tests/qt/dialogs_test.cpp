// The dialogs of parameters and factors, the calculator for planes and lines and the group
// statistics, driven by the names of their controls.

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

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

  bool Shows(const char* name, int index) {
    return !Look(QString("%1(%2)").arg(name).arg(index)).isEmpty();
  }

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
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"mnuOPAR", "cboOP(1) cboOP(2) cboOP(3) cboOP(4) chkDemagFac cmdOK",
         "12|90|3|90|Use Demagnetizing Factor|OK"},
        {"mnuAnisoFac", "txtFac(1) txtFac(2) txtFac(8) cboFac(1) cboFac(7) cboFac(8) cmdOK",
         "L|F|E|k1/k2|(k1-k2)/[(k1+k2)/2-k3]||OK"}};
    for (const auto& [command, names, look] : rows)
      ShowDialog(command, [&, names = QString(names), look = QString(look)] {
        QCOMPARE(Look(names), '(' + look.chopped(3).replace("|", ")|(") + ")|CHANGE");
        Key(Qt::Key_Return);
        QVERIFY(form_->isVisible() && The<QWidget>(names.section(' ', 0, 0)).hasFocus());
        QCOMPARE(Look(names), look);
        QVERIFY(The<QPushButton>("cmdOK").isDefault());
        QCOMPARE(The<QPushButton>("cmdOK").palette().color(QPalette::Button), QColor(0x80FF80));
      });
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
    QVERIFY(Settings() == velorix::Settings() && !QFile::exists(Path()));
  }
  void otherParametersLeaveAnEmptySession() {
    Settings().P[1] = 5;  // which is not on offer, and stays
    ShowDialog("mnuOPAR", [this] {
      QCOMPARE(The<QComboBox>("cboOP(1)").currentIndex(), -1);
      QCOMPARE(Entries(The<QComboBox>("cboOP(1)")) + Entries(The<QComboBox>("cboOP(2)")),
               "3 6 9 120 90");
      Press("cmdOK");
      The<QComboBox>("cboOP(2)").setCurrentText("90");
      The<QAbstractButton>("chkDemagFac").setChecked(false);
      QTest::keyClick(form_, Qt::Key_Return);
      QVERIFY(!form_->isVisible());
    });
    QCOMPARE(W().Grid().model()->rowCount(), 0);
    QVERIFY(Settings().P[1] == 5 && Settings().P[2] == 90 && !Settings().DemagFac);
  }

  void factorsGoIntoHeaderAndSettings() {
    ShowDialog("mnuAnisoFac", [this] {
      Press("cmdOK");
      auto& name = The<QLineEdit>("txtFac(8)");
      QTest::mouseClick(&name, Qt::LeftButton);
      QTRY_COMPARE(name.selectedText(), "E");  // typing replaces it
      QTest::keyClicks(&name, "H");
      auto& factor = The<QComboBox>("cboFac(8)");
      factor.setCurrentIndex(factor.count() - 1);
      Press("cmdOK");
      QVERIFY(!form_->isVisible());
    });
    QVERIFY(Settings().FacName[8] == "H" && Settings().FacIndex[8] == 38);
    const QStringList headers = HeaderTexts(W().Grid()).split('|');
    QVERIFY(headers.contains("H") && !headers.contains("E"));
  }

  void theCalculatorsModesHaveTheirLabelsAndBeginEmpty() {
    OpenForm("mnuFoliLine", "frmFoliLine");
    QVERIFY(form_->windowTitle() == "Plane from Lineations       " &&
            Look("optLine").endsWith('+'));
    for (const auto& [option, labels] :
         {std::pair{"optFoli", "2 Foliations+|Foliation 1|Foliation 2|Lineation"},
          std::pair{"optLine", "2 Lineations+|Lineation 1|Lineation 2|Foliation"}}) {
      Type({"0", "0", "90", "45"});
      Press("Command1");
      Press(option);
      QCOMPARE(Look(option + QString(" lblInput1 lblInput2 lblOutput")), labels);
      QCOMPARE(Look("txtDec1 txtInc1 txtDec2 txtInc2 lblDec"), "||||");
      QVERIFY(The<QLineEdit>("txtDec1").hasFocus());
    }
  }

  void theCalculatorShowsResultsAndDoubts() {
    OpenForm("mnuFoliLine", "frmFoliLine");
    const std::tuple<const char*, QStringList, const char*> steps[] = {
        {"optLine", {"0", "0", "90", "45"}, "90.0|45.0|90.0 (90.0)|"},
        {"optLine", {"1E400", "0", "90", "45"}, "|||"},
        {"optFoli", {"90", "30", "270", "20"}, "0.0|0.0|50.0 (130.0)|"},
        {"optFoli", {"90", "30", "90", "30"}, "|The two planes are parallel."}};
    for (const auto& [option, values, result] : steps) {
      Press(option);
      Type(values);
      Key(Qt::Key_Return);
      QVERIFY2(Result().endsWith(result), qPrintable(Result()));
    }
    QCOMPARE(Boxes(), std::vector<std::string>{"Velorix5|Overflow|&OK"});
    Press("cmdClear");
    QCOMPARE(Result() + Look("txtDec1 txtInc2"), "||||");

    const QLineEdit& field = The<QLineEdit>("txtInc1");
    const auto colour = [&] { return field.palette().color(QPalette::Base); };
    const QColor plain = colour();
    for (const auto& [text, isNumber] :
         {std::pair{"12,5", false}, {"", true}, {"x", false}, {"-3.5", true}}) {
      Type({"0", text, "0", "0"});
      QVERIFY2((colour() == plain) == isNumber, text);
    }
  }

  void theStatisticsShowWhatTheGroupIsLargeEnoughForAndFollowTheDisplay() {
    OpenForm("mnuAnalysis(1)", "frmGroupStatistics");
    QVERIFY(Activate(W().Window));  // which takes the keys
    for (const int count : {1, 4, 5, 100, 101}) {
      W().Open(W().WriteFile("n" + std::to_string(count), count));
      QCOMPARE(Look("lblJelinek(60)"), QString("N = %1").arg(count));
      for (int index : {2, 3, 16, 34, 41, 42, 50}) QVERIFY(Shows("lblJelinek", index));
      for (int index : {51, 52, 59}) QCOMPARE(Shows("lblJelinek", index), count > 1);
      for (int index : {5, 6, 11, 18}) QCOMPARE(Shows("lblJelinek", index), count > 4);
      for (int index : {1, 6}) QCOMPARE(Shows("lblBootStat", index), count > 4 && count < 101);
    }
    QCOMPARE(Look("lblJelinek(33)"), "N/A");
    W().Run("mnuClose");
    QCOMPARE(Look("lblJelinek(2) lblJelinek(33) lblJelinek(42) lblJelinek(60)"), "|||");
  }

  void aListAboveTheGridLeavesTheNumbersWithTheirViewInSight() {
    W().Open(W().WriteFile("hill", 5));
    OpenForm("mnuAnalysis(1)", "frmGroupStatistics");
    const auto shows = [this](const QString& names) { return velorix::Look(W().Window, names); };
    QCOMPARE(Look("lblGroupOf"), "hill.ams, in-phase, geographic, N = 5");
    QCOMPARE(shows("lblMean lblDisregarded"), "|");
    ChooseCoorSys(W().Program, Specimen);
    QCOMPARE(shows("lblMean"), "Mean: geographic, N = 5");
    QVERIFY(W().The<QWidget>("lblMean").isVisible());
    QVERIFY(Look("lblGroupOf").startsWith("hill.ams, in-phase, geographic, N = 5\nAnother view"));
    SelectRecords(W().Program, {1, 2});
    W().Run("mnuSelection(2)");
    QCOMPARE(Look("lblGroupOf"), "hill.ams, in-phase, specimen, N = 3");
    QCOMPARE(shows("lblMean lblDisregarded"), "|2 of 5 disregarded, 3 shown");
    QVERIFY(!W().The<QWidget>("lblMean").isVisible());
  }

  /// Standard errors of 10 and 95 % angles of five records: the tangents are those of the former
  /// times the root of 2 * 9.5521 * 4 / (5 * 3), with the F value of two and three degrees of
  /// freedom.
  void theLevelChangesWindowNetAndCopy() {
    W().Open(W().WriteFile("hill", 5));
    OpenForm("mnuAnalysis(1)", "frmGroupStatistics");
    QCOMPARE(Look("lblLevel"),
             "Ellipses: standard errors of one specimen (Jelinek 1978). Bootstrap: parametric, "
             "500 replicates");
    const double standard = std::tan(qDegreesToRadians(W().Program.GroupStats.MeanE1[1]));
    auto* levels = form_->findChild<QComboBox*>("cboLevel");
    levels->setCurrentIndex(1);
    emit levels->activated(1);
    const double at95 = std::atan(standard * std::sqrt(2 * 9.5521 * 4 / 15.0));
    QCOMPARE(Look("lblJelinek(5)").toDouble(), std::round(qRadiansToDegrees(at95) * 10) / 10);
    QVERIFY(!GroupLines(W().Program.Plots.Stereo).empty());
    form_->findChild<QComboBox*>("cboBootstrap")->setCurrentIndex(1);
    form_->findChild<QLineEdit*>("txtSeed")->setText("7");
    form_->findChild<QSpinBox*>("spnReplicates")->setValue(200);  // the one that says so
    QVERIFY((W().Program.GroupStats.BootBy == BootChoice{BootMethod::Simple, 200, 7}));
    QVERIFY(Look("lblLevel").endsWith("Bootstrap: simple, 200 replicates, seed 7"));
    form_->findChild<QComboBox*>("cboBootstrap")->setCurrentIndex(0);
    form_->findChild<QLineEdit*>("txtSeed")->setText("");
    form_->findChild<QSpinBox*>("spnReplicates")->setValue(500);
    Press("cmdCopy");
    QCOMPARE(
        QApplication::clipboard()->text().split('\n')[0],
        "95 % confidence angles of the mean (Jelinek 1978), hill.ams, in-phase, geographic, N = 5");
  }

  void theStatisticsAreCopiedAsTextAndNameTheErrorsUnderTheirHeading() {
    OpenForm("mnuAnalysis(1)", "frmGroupStatistics");
    Press("cmdCopy");
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    // Two headings, three directions, Km, eight factors, Hext's eight, the end.
    QCOMPARE(lines.size(), 23);
    QVERIFY(lines[0].startsWith("N = 5\tMean Tensor") && lines[6].startsWith("L\t"));
    const auto place = [this](const QString& text) {
      for (const QLabel* label : form_->findChildren<QLabel*>())
        if (label->text() == text) return label->geometry();
      return QRect();
    };
    const QRect heading = place("Confidence Ellipses"), unit = place("Std. Err. [deg]");
    QVERIFY(unit.top() > heading.bottom() && unit.left() == heading.left());
  }
};

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
