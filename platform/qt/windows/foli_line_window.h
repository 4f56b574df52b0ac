#pragma once

#include <QWidget>
#include <functional>

#include "app/commands/velorix.h"
#include "app/edit/plane_from_lineations.h"

class QLabel;
class QLineEdit;

namespace velorix {

/// The calculator: the plane through two lineations, or the line in which two foliations meet.
class frmFoliLine : public QWidget {
 public:
  frmFoliLine(Velorix& velorix, QWidget* owner);

  /// Called when the user has closed the window.
  std::function<void()> OnClose;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* MakeModes();
  QWidget* MakeInputs();
  QWidget* MakeOutputs();
  QLineEdit* MakeInput(const char* name);
  void ChooseMode(CalculatorMode mode);
  void Clear();
  void ClearResult();
  void Calculate();

  Velorix& velorix_;
  CalculatorMode mode_ = CalculatorMode::Lineations;
  QLabel *input1_ = nullptr, *input2_ = nullptr, *output_ = nullptr;
  QLabel *headDec_ = nullptr, *headInc_ = nullptr;
  QLineEdit *dec1_ = nullptr, *inc1_ = nullptr, *dec2_ = nullptr, *inc2_ = nullptr;
  QLabel *dec_ = nullptr, *inc_ = nullptr, *angle_ = nullptr, *note_ = nullptr;
};

}  // namespace velorix
