#pragma once

#include <QDialog>

#include "app/commands/velorix.h"
#include "app/edit/orientation_parameters.h"

class QCheckBox;
class QComboBox;
class QGridLayout;

namespace velorix {

/// The dialog of the orientation parameters: `cboOP(1)` to `cboOP(4)` and `chkDemagFac`.
class frmOPAR : public QDialog {
 public:
  frmOPAR(Velorix& velorix, QWidget* owner);

 private:
  void AddRow(QGridLayout& rows, int parameter);
  void Lock(bool locked);
  OrientationChoice Chosen() const;

  Velorix& velorix_;
  Array1<QComboBox*, 4> lists_;
  QCheckBox* demag_ = nullptr;
};

}  // namespace velorix
