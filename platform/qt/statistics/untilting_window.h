#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "app/commands/velorix.h"
#include "platform/qt/statistics/background_run.h"
#include "stats/study/untilting.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace velorix {

class PictureWidget;

/// The window "Stepwise untilting": the groups untilted by a foliation, as a figure and in words.
/// Computed beside the window, again when the view, the foliation or the seed changes.
class frmUntilting : public QWidget {
 public:
  /// Gives the groups of the view shown.
  using GroupsInView = std::function<std::vector<RecordGroup>()>;

  frmUntilting(Velorix& velorix, QWidget* owner, GroupsInView groups);
  ~frmUntilting() override;

  /// Untilts the groups of the view shown.
  void Refresh();

 private:
  QLayout* MakeChoices();
  QLayout* MakeTable();
  QLayout* MakeCommands();
  void FillFoliations();
  void Start();
  void Finish(const RunEnd& end);
  void Show();
  void ShowReason(const QString& reason);
  std::string Heading() const;
  void Copy();
  void Save();

  Velorix& velorix_;
  GroupsInView groups_;
  QComboBox* foliations_ = nullptr;
  QLineEdit* seed_ = nullptr;
  QLabel *heading_ = nullptr, *progress_ = nullptr, *reason_ = nullptr, *words_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QStackedWidget* stack_ = nullptr;  // the figure, or why there is none
  PictureWidget* picture_ = nullptr;
  QWidget* table_ = nullptr;
  std::vector<QLabel*> cells_;  // of Kmax, then of Kmin
  std::optional<Untilting> result_;
  std::unique_ptr<BackgroundRun> run_;
};

}  // namespace velorix
