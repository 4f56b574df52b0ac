#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QMouseEvent>
#include <QPointer>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "app/commands/display.h"
#include "platform/host/host.h"
#include "platform/qt/main_window/velorix_window.h"
#include "tests/app/script.h"

namespace velorix {

/// A form's control by its system name.
template <class Control>
Control& In(const QObject& form, const QString& name) {
  auto* control = form.findChild<Control*>(name);
  if (!control) qFatal("no control %s", qPrintable(name));
  return *control;
}

/// The entries of a list, with blanks between.
inline QString Entries(const QComboBox& list) {
  QStringList entries;
  for (int i = 0; i < list.count(); ++i) entries += list.itemText(i);
  return entries.join(' ');
}

/// What controls show, in one text: "12|(90)|Lines+|OK" for a list at "12", a locked one at "90", a
/// box "Lines" with its mark and a button "OK".
inline QString Look(const QObject& form, const QString& names) {
  QStringList looks;
  for (const QString& name : names.split(' ')) {
    const auto& control = In<QObject>(form, name);
    const bool isList = qobject_cast<const QComboBox*>(&control);
    QString look = control.property(isList ? "currentText" : "text").toString();
    if (control.property("checked").toBool()) look += '+';
    looks += control.property("enabled").toBool() ? look : '(' + look + ')';
  }
  return looks.join('|');
}

/// Clicks a button near its left end, where a check box has its mark.
inline void Press(QObject& form, const QString& button) {
  auto& control = In<QAbstractButton>(form, button);
  QTest::mouseClick(&control, Qt::LeftButton, {}, {10, control.height() / 2});
  QCoreApplication::processEvents();  // for the layout
}

inline bool Activate(QWidget& window) {
  window.activateWindow();
  return QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; });
}

/// Does `act` to the next modal window of a kind, once it is up.
template <class Modal>
void OnModal(std::function<void(Modal&)> act) {
  QTimer::singleShot(0, [act] {
    auto* window = qobject_cast<Modal*>(QApplication::activeModalWidget());
    if (!window) return OnModal<Modal>(act);
    act(*window);
  });
}

/// The text in a table's cell, both counted from 0.
inline QString CellAt(const QTableView& table, int row, int column) {
  return table.model()->index(row, column).data().toString();
}

/// The texts of a column's cells in view, with blanks between.
inline QString ColumnText(const QTableView& table, int column) {
  QStringList texts;
  for (int row = 0; row < table.model()->rowCount(); ++row)
    if (!table.isRowHidden(row)) texts += CellAt(table, row, column);
  return texts.join(' ').trimmed();
}

/// All headers of a table's columns.
inline QString HeaderTexts(const QTableView& table, int role = Qt::DisplayRole) {
  QStringList texts;
  for (int column = 0; column < table.model()->columnCount(); ++column)
    texts += table.model()->headerData(column, Qt::Horizontal, role).toString();
  return texts.join('|');
}

/// Where a place of a picture's plane lies in its widget: the plane fills the widget but for a
/// margin of 4, undistorted and centred.
inline QPoint PlaceIn(const QWidget& picture, QSizeF plane, QPointF place) {
  const QSizeF room = picture.size() - QSize(8, 8), whole = plane.scaled(room, Qt::KeepAspectRatio);
  const QSizeF beside = (room - whole) / 2;
  return (QPointF(4 + beside.width(), 4 + beside.height()) + whole.width() / plane.width() * place)
      .toPoint();
}

/// Moves the mouse within a widget, with buttons and keys held.
inline void MoveMouse(QWidget& widget, QPoint place, Qt::MouseButtons buttons = {},
                      Qt::KeyboardModifiers keys = {}) {
  QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, buttons,
                   keys);
  QCoreApplication::sendEvent(&widget, &move);
}

/// Turns the wheel over a place of a widget, by so many notches; upward enlarges a plot.
inline void TurnWheel(QWidget& widget, QPoint place, int notches, Qt::KeyboardModifiers keys = {}) {
  QWheelEvent turn(place, widget.mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton, keys,
                   Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&widget, &turn);
}

/// The real main window over scripted dialogs, with folders of its own. Controls are found by their
/// system names.
struct TestWindow {
  TestWindow() {
    Program.Host.AppFolder = Program.Host.DataRoot = Folder.path().toStdString();
    Program.Host.ListFolder = ListFolder;
    Program.GaussTable = GaussNumbers();
    Window.Load(Program);
    Window.show();
    Window.activateWindow();
    if (!QTest::qWaitForWindowActive(&Window)) qWarning("the window does not get active");
  }
  /// What computes beside the windows ends before the program's data do.
  ~TestWindow() {
    Program.Windows = {};
    static_cast<WindowOpener&>(Window).ShowWindows();
  }

  template <class Control>
  Control& The(const QString& name) {
    return In<Control>(Window, name);
  }
  /// Chooses an item of a menu.
  void Run(const QString& command) { The<QAction>(command).trigger(); }
  /// A window beside the main one, where it is shown.
  template <class Form>
  Form* Shown(const QString& name) {
    for (Form* form : Window.findChildren<Form*>(name))  // a closed one may still be there
      if (form->isVisible()) return form;
    return nullptr;
  }
  QTableView& Grid() { return The<QTableView>("scgAnisoView"); }
  QString Cell(int row, int column) { return CellAt(Grid(), row, column - 1); }
  QString Specimens() { return ColumnText(Grid(), 1); }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&Window, static_cast<Qt::Key>(key), modifiers);
  }
  void Press(const QString& button) { velorix::Press(Window, button); }
  void ClickRow(int row, Qt::KeyboardModifiers modifiers = {}) {
    const QPoint centre = Grid().visualRect(Grid().model()->index(row, 0)).center();
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, modifiers, centre);
  }
  /// Numbers of the selected records, as the store has them.
  QList<int> Selected() const {
    QList<int> ids;
    for (const SpecimenRecord& record : Program.Session.Records)
      if (record.Selected) ids += record.RecordNo;
    return ids;
  }
  /// Rows that the grid shows as selected, from 1.
  QList<int> SelectedRows() {
    QList<int> rows;
    for (const QModelIndex& index : Grid().selectionModel()->selectedRows())
      rows += index.row() + 1;
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  std::string Path(const char* name) const { return Folder.filePath(name).toStdString(); }
  /// An AMS file with records "<name>1" and so on; every second one has an out-of-phase tensor, and
  /// all have a foliation, of code "A" or "B", and a lineation.
  std::string WriteFile(const std::string& name, int count) const {
    RecordArray records;
    records.Grow(count);
    for (int i = 1; i <= count; ++i) {
      SpecimenRecord& r = records[i];
      r.Name = name + std::to_string(i);
      r.Active = true;
      for (int system = 1; system <= 4; ++system) r.HasCoor[system] = true;
      r.OP = {6, 0, 6, 0};
      r.Km = 1e-4;
      r.OrientAz = static_cast<float>(i % 360);
      r.OrientInc = 20;
      r.Tensor = {Number(1.05f), Number(1.0f),  Number(0.95f),
                  Number(0.01f), Number(0.02f), Number(-0.01f)};
      if (i % 2 == 0) r.TensorIm = r.Tensor;
      r.FoliName[1] = i % 3 ? "A" : "B";
      r.FoliAz[1] = 120;
      r.FoliDip[1] = 40;
      r.LineName[1] = "L";
      r.LineTrend[1] = 150;
      r.LinePlunge[1] = 30;
    }
    std::string path = Path((name + ".ams").c_str());
    if (!WriteAmsFile(path, records, false, true)) qFatal("no test file");
    return path;
  }
  void Open(const std::string& path, int filter = 1) {
    Asked.Files.push_back(FileAnswer{path, filter});
    Key(Qt::Key_O, Qt::ControlModifier);
  }

  QTemporaryDir Folder;
  ScriptedDialogs Asked;
  frmVelorix Window;
  Velorix Program{Asked, Window, Window, {}};
};

/// Tests that have a new main window each, and most of them another one that is tested.
class WindowTest : public QObject {
 protected:
  TestWindow& W() { return *window_; }
  Session& S() { return W().Program.Session; }
  std::vector<std::string>& Boxes() { return W().Asked.Boxes; }

  /// Opens a window beside the main one by its command, or shows it again.
  void OpenForm(const char* command, const char* name) {
    W().Run(command);
    form_ = W().Shown<QWidget>(name);
    QVERIFY(form_ && Activate(*form_));
  }
  /// Opens a dialog by its command, lets `act` use it, and returns when it is closed.
  void ShowDialog(const char* command, const std::function<void()>& act) {
    bool seen = false;
    OnModal<QDialog>([&](QDialog& dialog) {
      form_ = &dialog;
      QVERIFY(Activate(dialog));
      act();
      seen = true;
      if (dialog.isVisible()) dialog.reject();
    });
    W().Run(command);
    QVERIFY(seen);
  }
  template <class Control>
  Control& The(const QString& name) {
    return In<Control>(*form_, name);
  }
  void Press(const QString& button) { velorix::Press(*form_, button); }
  QString Look(const QString& names) { return velorix::Look(*form_, names); }
  /// Presses a key where the focus is.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* focus = form_->focusWidget();
    QTest::keyClick(focus ? focus : form_.data(), key, modifiers);
    QCoreApplication::processEvents();
  }

  std::optional<TestWindow> window_;
  QPointer<QWidget> form_;
};

}  // namespace velorix
