// The dialog of the factors in use, driven by the names of its controls.

#include <QLineEdit>
#include <QPushButton>

#include "app/settings_file.h"
#include "tests/qt/on_modal.h"

namespace velorix {
namespace {

class FactorWindowTest : public QObject {
  Q_OBJECT

  std::unique_ptr<TestWindow> window_;
  TestWindow& W() { return *window_; }
  velorix::Settings& Settings() { return W().Program.Session.Settings; }

  void Show(const std::function<void(QDialog&)>& act) { ShowDialog(W(), "mnuAnisoFac", act); }
  static QPushButton& Ok(QDialog& d) { return *d.findChild<QPushButton*>("cmdOK"); }
  static QComboBox& Formula(QDialog& d, int i) {
    return *d.findChild<QComboBox*>(QString("cboFac(%1)").arg(i));
  }
  static QLineEdit& Name(QDialog& d, int i) {
    return *d.findChild<QLineEdit*>(QString("txtFac(%1)").arg(i));
  }
  QString Header(const QString& name) {
    const auto* model = W().Grid().model();
    for (int column = 0; column < model->columnCount(); ++column)
      if (model->headerData(column, Qt::Horizontal).toString() == name) return name;
    return {};
  }

 private slots:
  void init() {
    window_ = std::make_unique<TestWindow>();
    W().Program.Session.SettingsFile = W().Path("settings.sav");
  }
  void cleanup() { window_.reset(); }

  void isLockedUntilChangeIsClicked() {
    Settings().FacIndex[8] = 0;
    Show([](QDialog& d) {
      QCOMPARE(d.objectName(), "frmAnisoFac");
      const char* formulas[] = {"k1/k2",
                                "k2/k3",
                                "k1/k3",
                                "exp{sqr[2((n1-n)^2+(n2-n)^2+(n3-n)^2)]}",
                                "(2n2-n1-n3)/(n1-n3)",
                                "(2k2-k1-k3)/(k1-k3)",
                                "(k1-k2)/[(k1+k2)/2-k3]",
                                ""};
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
    const auto values = W().Program.Session.Records[1].Fac;
    Show([](QDialog& d) {
      Ok(d).click();
      Name(d, 1).setText("H");
      Formula(d, 1).setCurrentIndex(7);
      Ok(d).click();
      QVERIFY(!d.isVisible());
    });
    QCOMPARE(Settings().FacName[1], "H");
    QCOMPARE(Settings().FacIndex[1], 8);
    QCOMPARE(Header("H"), "H");
    QCOMPARE(Header("L"), "");
    QVERIFY(W().Program.Session.Records[1].Fac == values);  // wanted: until the next display
    velorix::Settings written;
    QVERIFY(SettingsRead(written, W().Program.Session.SettingsFile));
    QVERIFY(written == Settings());
    QVERIFY(W().Asked.Boxes.empty());
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

}  // namespace
}  // namespace velorix

using velorix::FactorWindowTest;
QTEST_MAIN(FactorWindowTest)
#include "factor_window_test.moc"
