#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "app/commands/velorix.h"
#include "app/tables/group_table.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace velorix {

/// The window of the group statistics: directions of the mean tensor with their errors above a
/// table of factors, below a heading that says what they are of, and Hext's statistics. Its labels
/// are named `lblJelinek(i)`, `lblBootStat(i)` and `lblHext(row,column)`; `cboLevel` chooses which
/// errors the directions have, here and on the net; `cboBootstrap`, `spnReplicates` and `txtSeed`
/// how the bootstrap is made.
class frmGroupStatistics : public QWidget {
 public:
  /// A window owned by `owner`; `OnClose` is called when the user shuts it.
  frmGroupStatistics(Velorix& velorix, QWidget* owner);

  std::function<void()> OnClose;

  /// Writes the factors' names.
  void AnisoFacName_Show();
  /// Writes the heading and all value labels.
  void AnisoView_DisplayGroupStatistics();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  /// A cell and what it shows.
  struct Value {
    QLabel* Label;
    std::function<std::string(const GroupTableContent&)> Text;
  };

  QLabel* AddHeading(QGridLayout& table, int row, int column, const QString& text,
                     const QString& tip, int span = 1);
  QLabel* AddValue(QGridLayout& table, int row, int column, const QString& name,
                   const std::function<std::string(const GroupTableContent&)>& text, int span = 1);
  QLabel* AddName(QGridLayout& table, int row, const QString& text);
  void AddDirections(QGridLayout& table);
  void AddFactors(QGridLayout& table);
  void AddHext(QGridLayout& table);
  QLayout* MakeChoices();
  QLayout* MakeCommands();
  void TakeBootstrap();
  void ShowBootstrap(const BootChoice& choice);
  void Copy();

  Velorix& velorix_;
  QLabel *heading_ = nullptr, *levelOf_ = nullptr, *level_ = nullptr, *semiAxes_ = nullptr;
  QComboBox *levels_ = nullptr, *methods_ = nullptr;
  QSpinBox* replicates_ = nullptr;
  QLineEdit* seed_ = nullptr;
  bool filling_ = false;
  std::vector<Value> values_;
  std::vector<QLabel*> factorNames_;
};

}  // namespace velorix
