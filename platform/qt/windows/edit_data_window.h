#pragma once

#include <QDialog>
#include <functional>

#include "app/commands/velorix.h"
#include "app/edit/orientation_editor.h"

class QHBoxLayout;
class QLabel;

namespace velorix {

class EditTable;

/// The orientation editor, a modal window over the store's orientation data.
class frmEditData : public QDialog {
 public:
  frmEditData(Velorix& velorix, QWidget* owner);

  const OrientationEditor& Editor() const { return editor_; }

 protected:
  /// Esc asks before it closes the window over what was typed.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddButton(QHBoxLayout& row, const char* name, const char* caption, const char* tip,
                 const QKeySequence& key, const std::function<void()>& work);
  QHBoxLayout* MakeButtons();
  void Save();
  void ShowLines();

  Velorix& velorix_;
  OrientationEditor editor_;
  EditTable* table_ = nullptr;
  QLabel *line_ = nullptr, *doubts_ = nullptr;
};

}  // namespace velorix
