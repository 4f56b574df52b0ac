#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QMouseEvent>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include "app/display/display.h"
#include "platform/qt/windows/velorix_window.h"
#include "stats/gauss_random.h"
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

/// The real main window over scripted dialogs, with folders of its own. Controls are found by their
/// system names.
struct TestWindow {
  TestWindow() {
    Program.Host.AppFolder = Program.Host.DataRoot = Folder.path().toStdString();
    Program.Host.ListFolder = [](const std::string& folder, const std::string& extension) {
      std::vector<std::string> names;
      const QString pattern = "*." + QString::fromStdString(extension);
      const QDir dir(QString::fromStdString(folder));
      for (const QString& name : dir.entryList({pattern}, QDir::Files, QDir::Name))
        names.push_back(name.toStdString());
      return names;
    };
    Program.GaussTable = Gauss();
    Window.Load(Program);
    Window.show();
    Window.activateWindow();
    if (!QTest::qWaitForWindowActive(&Window)) qWarning("the window does not get active");
  }

  /// The table of the start-up, made once for all windows.
  static const std::vector<float>& Gauss() {
    static const std::vector<float> table = [] {
      std::vector<float> made;
      FillGaussTable(made, [] {});
      return made;
    }();
    return table;
  }

  template <class Control>
  Control& The(const QString& name) {
    return In<Control>(Window, name);
  }
  /// A window beside the main one, where it is shown.
  template <class Form>
  Form* Shown(const QString& name) {
    for (Form* form : Window.findChildren<Form*>(name))  // a closed one may still be there
      if (form->isVisible()) return form;
    return nullptr;
  }
  QTableView& Grid() { return The<QTableView>("scgAnisoView"); }
  QString Cell(int row, int column) {
    return Grid().model()->index(row, column - 1).data().toString();
  }
  QString Specimens() {
    QStringList names;
    for (int row = 0; row < Grid().model()->rowCount(); ++row) names += Cell(row, 2);
    return names.join(' ');
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&Window, static_cast<Qt::Key>(key), modifiers);
  }
  void Press(const QString& button) {
    QTest::mouseClick(&The<QAbstractButton>(button), Qt::LeftButton);
    QCoreApplication::processEvents();  // for the layout
  }
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
    const std::string path = Path((name + ".ams").c_str());
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

}  // namespace velorix
