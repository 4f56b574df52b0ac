#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/commands/velorix.h"
#include "app/tables/study_origin.h"
#include "platform/qt/statistics/background_run.h"
#include "stats/study/grouping.h"

class QLabel;
class QPushButton;
class QTableView;

namespace velorix {

class ComparisonModel;

/// The window "Comparison of groups": every pair of some groups, a row each. They are compared
/// beside the window, again when the view changes.
class frmComparison : public QWidget {
 public:
  /// Gives the groups of the view shown.
  using GroupsInView = std::function<std::vector<RecordGroup>()>;

  frmComparison(Velorix& velorix, QWidget* owner, GroupsInView groups);
  ~frmComparison() override;

  /// Compares the groups of these names, two or more.
  void Compare(std::vector<std::string> names);
  /// Compares those of them that the view shown still has.
  void Refresh();

 private:
  QLayout* MakeCommands();
  void Start(std::vector<RecordGroup> groups);
  void Finish(const RunEnd& end);
  void Say(const QString& words);
  void SizeColumns();
  QString Progress() const;
  std::string Heading() const;
  void Copy();
  void Export();

  Velorix& velorix_;
  GroupsInView groups_;
  std::vector<std::string> chosen_;
  QLabel *heading_ = nullptr, *progress_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QTableView* table_ = nullptr;
  ComparisonModel* model_ = nullptr;
  StudyOrigin origin_;        // of the pairs, for their file
  QString leftOut_;           // groups that can't be compared, and why
  std::size_t expected_ = 0;  // pairs
  std::unique_ptr<BackgroundRun> run_;
};

}  // namespace velorix
