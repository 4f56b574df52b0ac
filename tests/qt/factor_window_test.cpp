// The dialog of the factors in use, driven by the names of its controls.

#include <QLineEdit>
#include <QPushButton>

#include "tests/qt/on_modal.h"

using namespace velorix;

class FactorWindowTest : public QObject {
  Q_OBJECT

  std::optional<TestWindow> window_;
  TestWindow& W() { return *window_; }
  velorix::Settings& Settings() { return W().Program.Session.Settings; }

  void Show(const std::function<void(QDialog&)>& act) { ShowDialog(W(), "mnuAnisoFac", act); }
  static QPushButton& Ok(QDialog& d) { return In<QPushButton>(d, "cmdOK"); }
  static QComboBox& Formula(QDialog& d, int i) {
    return In<QComboBox>(d, QString("cboFac(%1)").arg(i));
  }
  static QLineEdit& Name(QDialog& d, int i) {
    return In<QLineEdit>(d, QString("txtFac(%1)").arg(i));
  }
 private slots:
  void init() {
    window_.emplace();
    W().Program.Session.SettingsFile = W().Path("settings.sav");
  }

  void isLockedUntilChangeIsClicked() {
    Settings().FacIndex[8] = 0;
    Show([](QDialog& d) {
      QCOMPARE(d.objectName(), "frmAnisoFac");
      // clang-format off
      const char* formulas[] = {"k1/k2", "k2/k3", "k1/k3", "exp{sqr[2((n1-n)^2+(n2-n)^2+(n3-n)^2)]}",
                                "(2n2-n1-n3)/(n1-n3)", "(2k2-k1-k3)/(k1-k3)",
                                "(k1-k2)/[(k1+k2)/2-k3]", ""};
      // clang-format on
      const char* names[] = {"L", "F", "P", "Pj", "T", "U", "Q", "E"};
      for (int i = 1; i <= 8; ++i) {
        QCOMPARE(Formula(d, i).currentText(), formulas[i - 1]);
        QCOMPARE(Formula(d, i).count(), 38);
        QCOMPARE(Name(d, i).text(), names[i - 1]);
        QVERIFY(!Formula(d, i).isEnabled() && !Name(d, i).isEnabled());
      }
      QCOMPARE(Ok(d).text(), "CHANGE");
      QTest::mouseClick(&Ok(d), Qt::LeftButton);
      QCOMPARE(Ok(d).text(), "OK");
      QVERIFY(Ok(d).isDefault());
      QCOMPARE(Ok(d).palette().color(QPalette::Button), QColor(0x80, 0xFF, 0x80));
      QVERIFY(Name(d, 1).hasFocus() && Formula(d, 8).isEnabled());
    });
  }

  void aTextBoxWithTheFocusHasAllItsTextSelected() {
    Show([](QDialog& d) {
      Ok(d).click();
      for (const int i : {1, 4, 8}) {
        if (i > 1) QTest::mouseClick(&Name(d, i), Qt::LeftButton);
        QCoreApplication::processEvents();
        QVERIFY(Name(d, i).hasFocus());
        QCOMPARE(Name(d, i).selectedText(), Name(d, i).text());
      }
      QTest::keyClicks(&Name(d, 8), "new");
      QCOMPARE(Name(d, 8).text(), "new");
    });
  }

  void okTakesNamesAndFormulasIntoHeaderAndSettings() {
    W().Open(W().WriteFile("site", 3));
    Show([](QDialog& d) {
      Ok(d).click();
      Name(d, 1).setText("H");
      Formula(d, 1).setCurrentIndex(7);
      Ok(d).click();
      QVERIFY(!d.isVisible());
    });
    QCOMPARE(Settings().FacName[1], "H");
    QCOMPARE(Settings().FacIndex[1], 8);
    const QStringList headers = HeaderTexts(W().Grid()).split('|');
    QVERIFY(headers.contains("H") && !headers.contains("L"));
  }

  void cancelChangesNothing() {
    Show([](QDialog& d) {
      Ok(d).click();
      Name(d, 1).setText("H");
      Formula(d, 1).setCurrentIndex(7);
      QTest::keyClick(&d, Qt::Key_Escape);
    });
    QVERIFY(Settings() == velorix::Settings());
    QVERIFY(!QFile::exists(QString::fromStdString(W().Program.Session.SettingsFile)));
  }
};

QTEST_MAIN(FactorWindowTest)
#include "factor_window_test.moc"
