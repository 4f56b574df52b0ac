#pragma once

#include <QWidget>
#include <functional>

#include "platform/qt/tables/record_table.h"

namespace velorix {

/// The data table: every value of the records in view, formatted. It can be sorted by any column,
/// and its selected rows are the selected records.
class frmDataTable : public QWidget {
 public:
  frmDataTable(Velorix& velorix, QWidget* owner);

  RecordTable* Table;
  /// Called when the user has closed the window.
  std::function<void()> OnClose;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Copy();
  void SortByCurrent();

  Velorix& velorix_;
};

}  // namespace velorix
