// The calculator for planes and lines, driven by the names of its controls.

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "platform/qt/windows/foli_line_window.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class FoliLineWindowTest : public QObject {
  Q_OBJECT

  std::optional<TestWindow> window_;

  frmFoliLine* Calculator() { return window_->Shown<frmFoliLine>("frmFoliLine"); }
  template <class Control>
  Control& The(const char* name) {
    return In<Control>(*Calculator(), name);
  }
  QString Label(const char* name) { return The<QLabel>(name).text(); }
  void Press(const char* name) { QTest::mouseClick(&The<QAbstractButton>(name), Qt::LeftButton); }
  static constexpr const char* FieldNames[] = {"txtDec1", "txtInc1", "txtDec2", "txtInc2"};
  /// Types four values over what the fields hold.
  void Type(const QStringList& values) {
    for (int i = 0; i < 4; ++i) {
      The<QLineEdit>(FieldNames[i]).clear();
      QTest::keyClicks(&The<QLineEdit>(FieldNames[i]), values[i]);
    }
  }
  /// True where fields and results are empty and the first field has the focus.
  bool IsCleared() {
    QString text = Result() + Label("lblNote");
    for (const char* name : FieldNames) text += The<QLineEdit>(name).text();
    return text == "||" && The<QLineEdit>("txtDec1").hasFocus();
  }
  QString Result() { return Label("lblDec") + "|" + Label("lblInc") + "|" + Label("lblAngle"); }

 private slots:
  void init() {
    window_.emplace();
    window_->The<QAction>("mnuFoliLine").trigger();
    QVERIFY(Calculator());
    QTRY_COMPARE(QApplication::activeWindow(), Calculator());
  }

  void eachModeHasItsLabelsAndStartsEmpty() {
    QCOMPARE(Calculator()->windowTitle(), "Plane from Lineations       ");
    QVERIFY(!Calculator()->isModal() && The<QRadioButton>("optLine").isChecked());
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
      QVERIFY2(IsCleared(), mode.option);
    }
  }

  void calculatesByButtonAndByEnterAndClears() {
    Type({"0", "0", "90", "45"});
    Press("Command1");
    QCOMPARE(Result(), "90.0|45.0|90.0 (90.0)");
    Press("optFoli");
    Type({"90", "30", "270", "20"});
    QTest::keyClick(&The<QLineEdit>("txtInc2"), Qt::Key_Return);
    QCOMPARE(Result(), "0.0|0.0|50.0 (130.0)");
    Type({"90", "30", "90", "30"});
    Press("Command1");
    QCOMPARE(Label("lblNote"), "The two planes are parallel.");
    Press("cmdClear");
    QVERIFY(IsCleared());
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
    for (const auto& [text, isNumber] :
         {std::pair{"12,5", false}, std::pair{"x", false}, std::pair{"1 2", false},
          std::pair{"", true}, std::pair{"12.5", true}, std::pair{"-3", true}}) {
      Type({"0", text, "0", "0"});
      QVERIFY2((colour() == plain) == isNumber, text);
    }
  }
};

QTEST_MAIN(FoliLineWindowTest)
#include "foli_line_window_test.moc"
