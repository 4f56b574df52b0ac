#include "platform/qt/statistics/comparison_window.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <unordered_set>

#include "app/display/study_heading.h"
#include "app/files/export_groups.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/command_row.h"
#include "platform/qt/parts/widgets.h"
#include "platform/qt/statistics/comparison_model.h"

namespace velorix {

frmComparison::frmComparison(Velorix& velorix, QWidget* owner, GroupsInView groups)
    : QWidget(owner, Qt::Window), velorix_(velorix), groups_(std::move(groups)) {
  setObjectName("frmComparison");
  setWindowTitle("Comparison of groups");
  setAttribute(Qt::WA_QuitOnClose, false);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  auto* head = new QHBoxLayout;
  heading_ = new QLabel(this);
  heading_->setObjectName("lblComparisonOf");
  progress_ = new QLabel(this);
  progress_->setObjectName("lblProgress");
  progress_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  for (QLabel* label : {heading_, progress_}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  cancel_ = MakeButton<QPushButton>("cmdCancel", "Ca&ncel", "Stop comparing", this);
  connect(cancel_, &QPushButton::clicked, this, [this] {
    if (run_) run_->Stop();
  });
  head->addWidget(heading_, 2);
  head->addWidget(progress_, 1);
  head->addWidget(cancel_);
  column->addLayout(head);
  table_ = new QTableView(this);
  table_->setObjectName("grdComparison");
  table_->setAccessibleName("Comparison of groups");
  table_->setToolTip(
      "A row a pair of groups. A click on a header sorts by its column; differences are bold");
  model_ = new ComparisonModel(table_);
  table_->setModel(model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setWordWrap(false);
  table_->setTabKeyNavigation(false);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  connect(table_->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
          [this] { FitSortedHeader(*table_); });
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  table_->setSortingEnabled(true);
  column->addWidget(table_, 1);
  auto* note = new QLabel(ComparisonNote, this);
  note->setObjectName("lblNote");
  note->setTextFormat(Qt::PlainText);
  note->setWordWrap(true);
  column->addWidget(note);
  column->addLayout(MakeCommands());
  table_->setFocus();
  // Above the groups, so that both stay in sight.
  const QRect below = owner->geometry();
  resize(below.width(), std::max(below.height(), 400));
  move(below.x(), std::max(0, below.y() - height() - 2 * fontMetrics().height()));
}

frmComparison::~frmComparison() = default;

QLayout* frmComparison::MakeCommands() {
  return MakeCommandRow(
      *this, "Close the comparison [Esc]", {},
      {{"cmdCopy", "&Copy", "Copy the table as tab-separated text [Ctrl+C]", [this] { Copy(); },
        "Ctrl+C"},
       {"cmdExport", "&Export...", "Write the table into a file of comma-separated text",
        [this] { Work(velorix_, [this] { Export(); }); }}});
}

void frmComparison::Compare(std::vector<std::string> names) {
  chosen_ = std::move(names);
  Refresh();
}

void frmComparison::Refresh() {
  run_.reset();
  const std::unordered_set<std::string> chosen(chosen_.begin(), chosen_.end());
  std::vector<RecordGroup> groups = groups_();
  std::erase_if(groups, [&](const RecordGroup& group) { return !chosen.contains(group.Name); });
  const Session& session = velorix_.Session;
  std::vector<std::string> names;
  std::vector<GroupReason> reasons;
  for (const RecordGroup& group : groups) {
    names.push_back(group.Name);
    if (const std::string reason = NotComparedReason(session, group); !reason.empty())
      reasons.push_back({group.Name, reason});
  }
  constexpr std::size_t MostNamed = 3;
  leftOut_ = ToQString(GroupsLeftOut(reasons, MostNamed));
  const std::size_t count = groups.size();
  expected_ = count < 2 ? 0 : count * (count - 1) / 2;
  model_->Begin(std::move(names));
  heading_->setText(count == 0 ? QString()
                               : ToQString(ComparisonHeading(session, groups, velorix_.Bootstrap)));
  origin_ = OriginOfComparisons(session, groups, velorix_.Bootstrap);
  if (count >= 2) return Start(std::move(groups));
  Say("Fewer than two of the groups chosen are in view.");
}

void frmComparison::Start(std::vector<RecordGroup> groups) {
  const auto take = [this](const std::vector<ComparedPair>& pairs) {
    const bool first = model_->rowCount() == 0;
    model_->Add(pairs);
    if (first) SizeColumns();
    Say(Progress());
  };
  run_ = std::make_unique<BackgroundRun>(
      velorix_.Session, *this,
      [groups = std::move(groups), boot = velorix_.Bootstrap,
       table = std::span<const float>(velorix_.GaussTable),
       take](const Session& session, const BackgroundRun::Line& line) {
        RowSender<ComparedPair> rows(line, take);
        const bool whole = CompareGroups(
            session, groups, boot, table,
            [&](std::size_t a, std::size_t b, const GroupComparison& comparison) {
              rows.Add({a, b, comparison});
            },
            [&](std::size_t) { return line.GoesOn(); });
        rows.Flush();
        return whole;
      },
      [this](const RunEnd& end) { Finish(end); });
  Say(Progress());
}

void frmComparison::Finish(const RunEnd& end) {
  run_.reset();
  const QHeaderView* header = table_->horizontalHeader();
  if (header->sortIndicatorSection() >= 0)
    model_->sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
  SizeColumns();
  if (end.Whole)
    return Say(QString::number(expected_) + (expected_ == 1 ? " pair" : " pairs") +
               (leftOut_.isEmpty() ? "" : ". " + leftOut_));
  Say(end.Failure.empty() ? "Cancelled: " + Progress()
                          : QString("Not compared: %1").arg(ToQString(end.Failure)));
}

/// The names take their room from all rows, the numbers from some.
void frmComparison::SizeColumns() {
  constexpr int Most = 24;  // letters
  table_->resizeColumnsToContents();
  int widest = 0;
  for (const std::string& name : model_->Names())
    widest = std::max(widest, fontMetrics().horizontalAdvance(ToQString(name)));
  widest = std::min(widest, Most * fontMetrics().averageCharWidth());
  for (const int column : {0, 1})
    table_->setColumnWidth(column, std::max(table_->columnWidth(column), widest + 12));
  FitSortedHeader(*table_);
}

QString frmComparison::Progress() const {
  return QString("%1 of %2 pairs").arg(model_->rowCount()).arg(expected_);
}

void frmComparison::Say(const QString& words) {
  progress_->setText(words);
  cancel_->setVisible(run_ != nullptr);
}

std::string frmComparison::Heading() const { return heading_->text().toStdString(); }

void frmComparison::Copy() {
  QApplication::clipboard()->setText(
      ToQString(ComparisonText(model_->Pairs(), model_->Names(), Heading())));
}

void frmComparison::Export() {
  if (run_) return velorix_.Views.ShowStatus("The groups are still being compared.");
  ExportComparisons(velorix_.Session, velorix_.Dialogs, velorix_.Views, velorix_.Log,
                    model_->Pairs(), model_->Names(), origin_);
}

}  // namespace velorix
