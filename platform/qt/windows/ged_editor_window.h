#pragma once

#include <QMainWindow>

#include "app/commands/velorix.h"
#include "platform/qt/tables/ged_model.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace velorix {

class FrozenTable;

/// The window in which a geological file is typed, corrected and saved. It goes away when it is
/// closed, and what was not saved with it.
class frmGEDEditor : public QMainWindow {
 public:
  frmGEDEditor(Velorix& velorix, QWidget* owner);

 protected:
  /// Esc closes the window, and asks before when something typed would be lost.
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeMenu();
  QLayout* MakeSite();
  QWidget* MakeGrid();
  QLayout* MakeButtons();
  void ShowCaption();
  void ShowSite();
  void TakeSite();
  bool EndTyping();
  void ShowDoubts();
  bool HasUnsaved();
  void Open();
  void Save();
  void Delete();
  void Restore();
  void ShowAllRows();

  Velorix& velorix_;
  GedSheet sheet_, read_;  // as it stands, and as it was opened
  GedModel model_;
  FrozenTable* grid_ = nullptr;
  QLabel* doubts_ = nullptr;
  bool refused_ = false;  // a cell, and the user has yet to see it
  struct Field {
    QLineEdit* Box;
    std::string GedSite::*Text;
  };
  std::vector<Field> fields_;
  Array1<QComboBox*, 4> parameters_;
};

}  // namespace velorix
