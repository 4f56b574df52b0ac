// The dialog of the orientation parameters, driven by the names of its controls.

#include <QCheckBox>
#include <QPushButton>

#include "tests/qt/on_modal.h"

using namespace velorix;

class OparWindowTest : public QObject {
  Q_OBJECT

  std::optional<TestWindow> window_;
  TestWindow& W() { return *window_; }
  velorix::Settings& Settings() { return W().Program.Session.Settings; }

  void Show(const std::function<void(QDialog&)>& act) { ShowDialog(W(), "mnuOPAR", act); }
  static QPushButton& Ok(QDialog& d) { return In<QPushButton>(d, "cmdOK"); }
  static QPushButton& Cancel(QDialog& d) { return In<QPushButton>(d, "cmdCancel"); }
  static QComboBox& List(QDialog& d, int i) {
    return In<QComboBox>(d, QString("cboOP(%1)").arg(i));
  }
  static QCheckBox& Demag(QDialog& d) { return In<QCheckBox>(d, "chkDemagFac"); }
 private slots:
  void init() {
    window_.emplace();
    W().Program.Session.SettingsFile = W().Path("settings.sav");
  }

  void isLockedUntilChangeIsClicked() {
    Settings().P = {12, 90, 3, 90};
    Settings().DemagFac = false;
    Show([this](QDialog& d) {
      QCOMPARE(d.objectName(), "frmOPAR");
      QCOMPARE(d.windowTitle(), "Orientation Parameters");
      const char* values[] = {"3 6 9 12", "0 90", "3 6 9 12", "0 90"};
      for (int i = 1; i <= 4; ++i) {
        QCOMPARE(Entries(List(d, i)), values[i - 1]);
        QCOMPARE(List(d, i).currentText(), QString::number(Settings().P[i]));
        QVERIFY(!List(d, i).isEnabled());
        QVERIFY(!List(d, i).toolTip().isEmpty());
      }
      QVERIFY(!Demag(d).isEnabled() && !Demag(d).isChecked());
      QCOMPARE(Demag(d).text(), "Use Demagnetizing Factor");
      QVERIFY(Demag(d).toolTip().contains("nothing uses it yet"));
      QCOMPARE(Ok(d).text() + Ok(d).toolTip(), "CHANGE(Enter)");
      QCOMPARE(Cancel(d).text() + Cancel(d).toolTip(), "CANCELClose without saving (Esc)");

      QTest::keyClick(&d, Qt::Key_Return);
      QVERIFY(d.isVisible());
      QCOMPARE(Ok(d).text(), "OK");
      QVERIFY(Ok(d).isDefault());
      QCOMPARE(Ok(d).palette().color(QPalette::Button), QColor(0x80, 0xFF, 0x80));
      QVERIFY(Demag(d).isEnabled() && List(d, 4).isEnabled());
      QVERIFY(List(d, 1).hasFocus());
    });
  }

  void aChangeLeavesAnEmptySession() {
    W().Open(W().WriteFile("site", 5));
    Show([this](QDialog& d) {
      QTest::mouseClick(&Ok(d), Qt::LeftButton);
      List(d, 2).setCurrentText("90");
      Demag(d).setChecked(false);
      QTest::keyClick(&d, Qt::Key_Return);
      QVERIFY(!d.isVisible());
    });
    QCOMPARE(W().Grid().model()->rowCount(), 0);
    QCOMPARE(W().Window.windowTitle(), "Velorix5");
    QCOMPARE(Settings().P[2], 90);
    QVERIFY(!Settings().DemagFac);
  }

  void cancelAndEscapeChangeNothing() {
    W().Open(W().WriteFile("site", 5));
    for (const bool escape : {false, true}) {
      Show([&](QDialog& d) {
        QTest::mouseClick(&Ok(d), Qt::LeftButton);
        List(d, 1).setCurrentText("12");
        escape ? QTest::keyClick(&d, Qt::Key_Escape) : Cancel(d).click();
        QVERIFY(!d.isVisible());
      });
      QVERIFY(Settings() == velorix::Settings());
      QCOMPARE(W().Grid().model()->rowCount(), 5);
      QVERIFY(!QFile::exists(QString::fromStdString(W().Program.Session.SettingsFile)));
    }
  }

  void aValueThatIsNotOnOfferStaysAsItIs() {
    Settings().P = {5, 0, 6, 0};
    Show([](QDialog& d) {
      QCOMPARE(List(d, 1).currentIndex(), -1);
      Ok(d).click();
      Ok(d).click();
    });
    QCOMPARE(Settings().P[1], 5);
  }

  void settingsThatCannotBeWrittenKeepItOpen() {
    W().Program.Session.SettingsFile = W().Path("no folder/settings.sav");
    Show([this](QDialog& d) {
      for (int press = 0; press < 2; ++press) Ok(d).click();
      QCOMPARE(W().Asked.Boxes.size(), 1u);
      QVERIFY(W().Asked.Boxes[0].starts_with("Velorix5|") && d.isVisible());
    });
  }
};

QTEST_MAIN(OparWindowTest)
#include "opar_window_test.moc"
