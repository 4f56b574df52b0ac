#pragma once

#include <QDialog>

#include "app/commands/velorix.h"
#include "app/edit/factor_choice.h"

class QComboBox;
class QGridLayout;
class QLineEdit;

namespace velorix {

/// The dialog of the eight factors in use: a name `txtFac(i)` and a formula `cboFac(i)` for each.
class frmAnisoFac : public QDialog {
 public:
  frmAnisoFac(Velorix& velorix, QWidget* owner);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void AddRow(QGridLayout& rows, int slot, const FactorRow& row);
  void Lock(bool locked);
  FactorRows Chosen() const;

  Array1<QLineEdit*, FactorSlots> names_;
  Array1<QComboBox*, FactorSlots> formulas_;
};

}  // namespace velorix
