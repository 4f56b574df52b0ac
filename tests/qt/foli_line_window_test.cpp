// The calculator for planes and lines, driven by the names of its controls.

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "platform/qt/foli_line_window.h"
#include "tests/qt/test_window.h"

namespace velorix {
namespace {

class FoliLineWindowTest : public QObject {
  Q_OBJECT

  std::unique_ptr<TestWindow> window_;

  frmFoliLine* Calculator() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->objectName() == "frmFoliLine" && widget->isVisible())
        return static_cast<frmFoliLine*>(widget);
    return nullptr;
  }
  template <class Control>
  Control& The(const char* name) {
    return *Calculator()->findChild<Control*>(name);
  }
  QString Label(const char* name) { return The<QLabel>(name).text(); }
  void Press(const char* name) { QTest::mouseClick(&The<QAbstractButton>(name), Qt::LeftButton); }
  /// Types four values over what the fields hold.
  void Type(const QStringList& values) {
    const char* fields[] = {"txtDec1", "txtInc1", "txtDec2", "txtInc2"};
    for (int i = 0; i < 4; ++i) {
      The<QLineEdit>(fields[i]).clear();
      QTest::keyClicks(&The<QLineEdit>(fields[i]), values[i]);
    }
  }
  QString Fields() {
    QString text;
    for (const char* name : {"txtDec1", "txtInc1", "txtDec2", "txtInc2"})
      text += The<QLineEdit>(name).text();
    return text;
  }
  QString Result() { return Label("lblDec") + "|" + Label("lblInc") + "|" + Label("lblAngle"); }

 private slots:
  void init() {
    window_ = std::make_unique<TestWindow>();
    window_->The<QAction>("mnuFoliLine").trigger();
    QVERIFY(Calculator());
    QTRY_COMPARE(QApplication::activeWindow(), Calculator());
  }
  void cleanup() { window_.reset(); }

  void theMenuItemAndItsOwnCloseToggleIt() {
    QVERIFY(!Calculator()->isModal());
    QCOMPARE(Calculator()->windowTitle(), "Plane from Lineations       ");
    QAction& item = window_->The<QAction>("mnuFoliLine");
    QCOMPARE(item.text(), "Plane from Lineations");
    QVERIFY(item.isChecked());
    Calculator()->close();
    QVERIFY(!Calculator() && !item.isChecked());
    item.trigger();
    QVERIFY(Calculator());
    item.trigger();
    QVERIFY(!Calculator());
  }

  void eachModeHasItsLabelsAndStartsEmpty() {
    QVERIFY(The<QRadioButton>("optLine").isChecked());
    const struct {
      const char *option, *caption, *input1, *input2, *output;
    } modes[] = {{"optFoli", "2 Foliations", "Foliation 1", "Foliation 2", "Lineation"},
                 {"optLine", "2 Lineations", "Lineation 1", "Lineation 2", "Foliation"}};
    QCOMPARE(Label("lblOutput"), "Foliation");
    for (const auto& mode : modes) {
      Type({"0", "0", "90", "45"});
      Press("Command1");
      QVERIFY(!Label("lblDec").isEmpty());
      Press(mode.option);
      QCOMPARE(The<QRadioButton>(mode.option).text(), mode.caption);
      QCOMPARE(Label("lblInput1"), mode.input1);
      QCOMPARE(Label("lblInput2"), mode.input2);
      QCOMPARE(Label("lblOutput"), mode.output);
      QCOMPARE(Fields(), "");
      QCOMPARE(Result(), "||");
      QVERIFY(The<QLineEdit>("txtDec1").hasFocus());
    }
  }

  void calculatesByButtonAndByEnter() {
    Type({"0", "0", "90", "45"});
    Press("Command1");
    QCOMPARE(Result(), "90.0|45.0|90.0 (90.0)");
    Press("optFoli");
    Type({"90", "30", "270", "20"});
    QTest::keyClick(&The<QLineEdit>("txtInc2"), Qt::Key_Return);
    QCOMPARE(Result(), "360.0|0.0|50.0 (130.0)");
  }

  void clearEmptiesAllAndGoesToTheFirstField() {
    Type({"0", "0", "90", "45"});
    Press("Command1");
    Press("cmdClear");
    QCOMPARE(Fields(), "");
    QCOMPARE(Result(), "||");
    QVERIFY(The<QLineEdit>("txtDec1").hasFocus());
  }

  void aFailureIsToldAndLeavesNoOldResult() {
    Type({"0", "0", "90", "45"});
    Press("Command1");
    Type({"1E400", "0", "90", "45"});
    Press("Command1");
    QCOMPARE(window_->Asked.Boxes.back(), "Velorix5|Overflow|&OK");
    QCOMPARE(Result(), "||");
  }

  void aTextThatIsNoNumberAsAWholeStandsOut() {
    const QLineEdit& field = The<QLineEdit>("txtInc1");
    const auto colour = [&] { return field.palette().color(QPalette::Base); };
    const QColor plain = colour();
    for (const char* text : {"12,5", "x", "1 2"}) {
      Type({"0", text, "0", "0"});
      QVERIFY2(colour() != plain, text);
    }
    for (const char* text : {"", "12.5", "-3"}) {
      Type({"0", text, "0", "0"});
      QVERIFY2(colour() == plain, text);
    }
  }
};

}  // namespace
}  // namespace velorix

using velorix::FoliLineWindowTest;
QTEST_MAIN(FoliLineWindowTest)
#include "foli_line_window_test.moc"
