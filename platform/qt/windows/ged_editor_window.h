#pragma once

#include <QMainWindow>

#include "app/state/velorix.h"
#include "platform/qt/tables/ged_model.h"

class QComboBox;
class QLineEdit;

namespace velorix {

class FrozenTable;

/// The window in which a geological file is typed, corrected and saved. It goes away when it is
/// closed, and what was not saved with it.
class frmGEDEditor : public QMainWindow {
 public:
  frmGEDEditor(Velorix& velorix, QWidget* owner);

 protected:
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
  void Open();
  void Save();
  void Delete();
  void Restore();
  void ShowAllRows();

  Velorix& velorix_;
  GedSheet sheet_;
  GedModel model_;
  FrozenTable* grid_ = nullptr;
  bool refused_ = false;  // a cell, and the user has yet to see it
  struct Field {
    QLineEdit* Box;
    std::string GedSite::*Text;
  };
  std::vector<Field> fields_;
  Array1<QComboBox*, 4> parameters_;
};

}  // namespace velorix
