#pragma once

#include <QAbstractTableModel>

#include "app/edit/orientation_editor.h"

namespace velorix {

/// The rows that the orientation editor shows, as a table's cells.
class EditModel : public QAbstractTableModel {
 public:
  /// Role of a column's group caption in its header.
  static constexpr int GroupRole = Qt::UserRole;

  explicit EditModel(OrientationEditor& editor) : editor_(editor) {}

  /// The editor has changed.
  void Refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// Takes what was typed.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  QVariant Tip(int row, int column) const;
  QVariant Back(int row, int column) const;
  QString HeaderTip(int column) const;

  OrientationEditor& editor_;
  int rows_ = 0;  // as the views know it
  bool showsSamples_ = false;
};

}  // namespace velorix
