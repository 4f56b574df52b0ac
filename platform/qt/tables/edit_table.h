#pragma once

#include <QHeaderView>
#include <optional>

#include "platform/qt/tables/edit_model.h"
#include "platform/qt/tables/frozen_table.h"

namespace velorix {

/// A header with the caption of each group over its columns.
class GroupHeader : public QHeaderView {
 public:
  explicit GroupHeader(QWidget* parent);

 protected:
  QSize sizeHint() const override;
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;

 private:
  QString GroupOf(int section) const;
};

/// The grid `scgDataTable`: cells to type in, lists to choose parameters from, blocks of cells to
/// copy and paste, steps back and forth.
class EditTable : public FrozenTable {
 public:
  EditTable(OrientationEditor& editor, QWidget* parent);

  /// Takes over what is being typed in a cell.
  void EndTyping();
  void Refresh() { model_.Refresh(); }
  const QAbstractItemModel& Cells() const { return model_; }
  /// Width of all columns.
  int FullWidth() const;

 protected:
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

 private:
  void AddAction(const char* name, const char* text, const QList<QKeySequence>& keys,
                 void (EditTable::*act)());
  std::optional<CellBlock> Block() const;
  void Copy();
  void Cut();
  void Paste();
  void Clear();
  void Undo();
  void Redo();

  OrientationEditor& editor_;
  EditModel model_;
};

}  // namespace velorix
