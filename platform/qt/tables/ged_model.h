#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "app/edit/ged_editor.h"

namespace velorix {

/// The rows of a sheet, and below them an empty one that takes the next sample.
class GedModel : public QAbstractTableModel {
 public:
  explicit GedModel(GedSheet& sheet) : sheet_(sheet), codes_(CodesOf(sheet)) {}

  /// Called when a number was outside the limits; the cell keeps what it had.
  std::function<void()> OnRefused;

  /// Marks the doubtful cells again, after rows were taken out or brought back.
  void RefreshDoubts();
  /// The codes in the sheet, which decide on doubts.
  const SheetCodes& Codes() const { return codes_; }
  /// Takes the whole sheet again.
  void Refresh();
  /// Whether the row is the one for the next sample.
  bool IsNew(int row) const { return row == static_cast<int>(sheet_.Rows.size()); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::string Doubt(const QModelIndex& index) const;

  GedSheet& sheet_;
  SheetCodes codes_;
};

}  // namespace velorix
