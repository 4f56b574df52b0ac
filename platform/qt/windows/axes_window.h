#pragma once

#include <QDialog>
#include <vector>

#include "app/commands/velorix.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace velorix {

/// The dialog "Axes": a row for each column that the XY plots and the histogram show now, with the
/// ends and the step of its axis. Empty fields are automatic. Other columns keep what they have.
class frmAxes : public QDialog {
 public:
  frmAxes(Velorix& velorix, QWidget* owner);

 private:
  struct Row {
    std::string Name;  // of the column
    QLineEdit *Lower, *Upper, *Step;
    QCheckBox *Log, *Reversed;
  };
  void AddRow(QGridLayout& rows, const std::string& name, const QString& plots);
  QLineEdit* AddField(QGridLayout& rows, const QString& name, int column,
                      const std::optional<double>& value);
  QCheckBox* AddSwitch(QGridLayout& rows, const QString& name, int column, bool on);
  QString FaultIn(const Row& row, HandAxis& axis) const;
  void ShowFault();
  void ShowAutomatic();
  HandAxes Chosen() const;

  Velorix& velorix_;
  std::vector<Row> rows_;
  QLabel* fault_ = nullptr;
  QPushButton* ok_ = nullptr;
};

}  // namespace velorix
