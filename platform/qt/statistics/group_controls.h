#pragma once

#include <QWidget>
#include <functional>

#include "app/commands/velorix.h"

class QCheckBox;
class QComboBox;
class QLabel;

namespace velorix {

/// The rows of controls below the choice of a parting: how the plots show the groups, and the
/// buttons that make groups by hand.
class GroupControls : public QWidget {
 public:
  GroupControls(Velorix& velorix, QWidget* parent);

  /// Asks for the names of the groups whose rows are selected, from the top; "All" is none.
  std::function<std::vector<std::string>()> ChosenNames;
  /// How many rows are selected.
  std::function<int()> ChosenRows;

  /// The controls follow the program's choices.
  void Show();

 private:
  void Choose();
  void Rename();
  void Merge();

  Velorix& velorix_;
  QComboBox* marks_;
  QCheckBox *means_, *legend_;
  QLabel* notice_;
};

}  // namespace velorix
