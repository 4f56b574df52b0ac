// What the windows of the orientations promise in every font and theme.

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>

#include "platform/qt/parts/marks.h"
#include "platform/qt/windows/edit_data_window.h"
#include "platform/qt/windows/factor_window.h"
#include "platform/qt/windows/foli_line_window.h"
#include "platform/qt/windows/ged_editor_window.h"
#include "platform/qt/windows/opar_window.h"
#include "tests/qt/test_window.h"

namespace velorix {
namespace {

/// Contrast of two colours, 1 to 21; 4.5 and more is read with ease.
double Contrast(const QColor& a, const QColor& b) {
  const auto light = [](const QColor& c) {
    const auto part = [](float v) {
      return v <= 0.04045f ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.05 + 0.2126 * part(c.redF()) + 0.7152 * part(c.greenF()) + 0.0722 * part(c.blueF());
  };
  return std::max(light(a), light(b)) / std::min(light(a), light(b));
}

class DialogsLookTest : public QObject {
  Q_OBJECT

  static void CheckControl(const QWidget& control) {
    const QByteArray name = (control.window()->objectName() + " " + control.objectName()).toUtf8();
    if (qobject_cast<const QLabel*>(&control) || qobject_cast<const QAbstractButton*>(&control))
      QVERIFY2(control.width() >= control.minimumSizeHint().width(), name);
    if (control.focusPolicy() == Qt::NoFocus || qobject_cast<const QLabel*>(&control)) return;
    const auto* said = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&control));
    QVERIFY2(!said->text(QAccessible::Name).isEmpty(), name);
    QVERIFY2(!control.toolTip().isEmpty(), name);
    const QPalette& colours = control.palette();
    for (const auto& [text, ground] : {std::pair{QPalette::Text, QPalette::Base},
                                       std::pair{QPalette::ButtonText, QPalette::Button},
                                       std::pair{QPalette::WindowText, QPalette::Window}})
      QVERIFY2(Contrast(colours.color(text), colours.color(ground)) > 3, name);
  }

 private slots:
  void allTextsAreWholeNamedAndReadable_data() {
    QTest::addColumn<int>("points");
    QTest::addColumn<bool>("dark");
    for (const int points : {9, 14})
      for (const bool dark : {false, true})
        QTest::addRow("%d points, %s", points, dark ? "dark" : "light") << points << dark;
  }
  void allTextsAreWholeNamedAndReadable() {
    QFETCH(const int, points);
    QFETCH(const bool, dark);
    QFont font = QApplication::font();
    font.setPointSize(points);
    QApplication::setFont(font);
    QApplication::setPalette(dark ? QPalette(QColor(0x35, 0x35, 0x35)) : QPalette());
    const QPalette colours = QApplication::palette();
    for (const Mark mark : {Mark::Doubt, Mark::Matched, Mark::Fixed, Mark::Group})
      QVERIFY(Contrast(colours.color(QPalette::Text), MarkColour(mark)) > 4.5);

    TestWindow w;
    w.Open(w.WriteFile("site", 3));
    frmOPAR parameters(w.Program, &w.Window);
    frmAnisoFac factors(w.Program, &w.Window);
    frmEditData records(w.Program, &w.Window);
    frmFoliLine calculator(w.Program, &w.Window);
    auto* samples = new frmGEDEditor(w.Program, &w.Window);
    for (QWidget* window : QList<QWidget*>{&parameters, &factors, &records, &calculator, samples}) {
      window->show();
      QCoreApplication::processEvents();
      for (const QWidget* control : window->findChildren<QWidget*>(
               QRegularExpression("^(cmd|cbo|txt|opt|chk|lbl|scg|Command)")))
        if (control->isVisible()) CheckControl(*control);
    }
  }
  void cleanupTestCase() { QApplication::setPalette(QPalette()); }
};

}  // namespace
}  // namespace velorix

using velorix::DialogsLookTest;
QTEST_MAIN(DialogsLookTest)
#include "dialogs_look_test.moc"
