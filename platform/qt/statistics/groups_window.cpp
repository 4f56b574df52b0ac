#include "platform/qt/statistics/groups_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <cstring>
#include <set>

#include "app/commands/picture_commands.h"
#include "app/commands/view_choices.h"
#include "app/display/group_marks.h"
#include "app/display/study_heading.h"
#include "app/display/view_values.h"
#include "app/files/export_groups.h"
#include "app/tables/comparison_table.h"
#include "app/tables/study_table.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/command_row.h"
#include "platform/qt/parts/widgets.h"
#include "platform/qt/statistics/comparison_window.h"
#include "platform/qt/statistics/group_controls.h"
#include "platform/qt/statistics/untilting_window.h"

namespace velorix {
namespace {

/// A way of parting the records: its word, which `detail` follows where it asks for one; by hand
/// has none.
struct Way {
  const char *Caption, *Word, *Detail;
};
constexpr Way Ways[] = {{"File", "file", ""},
                        {"Site", "site", ""},
                        {"Rock", "rock", ""},
                        {"Stratigraphy", "strat", ""},
                        {"Lithology", "litho", ""},
                        {"Region", "regio", ""},
                        {"Name, first characters", "name:", "3"},
                        {"Name up to a character", "name-until:", "-"},
                        {"By hand", "", ""}};
constexpr int RowRole = Qt::UserRole, ValueRole = Qt::UserRole + 1, AllRole = Qt::UserRole + 2;

/// A cell that is sorted by its number where it has one. Upward and downward an empty one stands
/// below all others, and the row of all below them.
class Cell : public QTableWidgetItem {
 public:
  Cell(const StudyCell& cell, int row, bool ofAll) : QTableWidgetItem(ToQString(cell.Text)) {
    setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    setData(RowRole, row);
    setData(AllRole, ofAll);
    if (!cell.Value) return;
    setData(ValueRole, *cell.Value);
    setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }

  bool operator<(const QTableWidgetItem& other) const override {
    const bool up = tableWidget()->horizontalHeader()->sortIndicatorOrder() == Qt::AscendingOrder;
    if (data(AllRole) != other.data(AllRole)) return data(AllRole).toBool() != up;
    const QVariant own = data(ValueRole), its = other.data(ValueRole);
    if (own.isValid() && its.isValid()) return own.toDouble() < its.toDouble();
    if (own.isValid() || its.isValid()) return own.isValid() == up;
    return text() < other.text();
  }
};

/// Shows a window over `owner`, or again.
template <class Window>
void Raise(QPointer<Window>& window, Velorix& velorix, QWidget& owner,
           typename Window::GroupsInView groups) {
  if (!window) {
    window = new Window(velorix, &owner, std::move(groups));
    window->setWindowFlags(owner.windowFlags());
  }
  window->show();
  window->raise();
  window->activateWindow();
}

}  // namespace

frmGroups::frmGroups(Velorix& velorix, QWidget* owner)
    : QWidget(owner, Qt::Window), velorix_(velorix) {
  setObjectName("frmGroups");
  setWindowTitle("Groups");
  setAttribute(Qt::WA_QuitOnClose, false);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  column->addLayout(MakeChoices());
  heading_ = new QLabel(this);
  heading_->setObjectName("lblGroupsOf");
  heading_->setTextFormat(Qt::PlainText);
  heading_->setWordWrap(true);
  column->addWidget(heading_);
  controls_ = new GroupControls(velorix, this);
  controls_->ChosenRows = [this] { return static_cast<int>(SelectedRows().size()); };
  controls_->ChosenNames = [this] {
    std::vector<std::string> names;
    for (const std::size_t row : SelectedRows())
      if (row < names_.size()) names.push_back(names_[row]);
    return names;
  };
  column->addWidget(controls_);
  table_ = new QTableWidget(this);
  table_->setObjectName("grdGroups");
  table_->setAccessibleName("Groups");
  table_->setToolTip(
      "A row a group. A click on a row selects its records, one on a header sorts by its column");
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setAlternatingRowColors(true);
  table_->setWordWrap(false);
  table_->setTabKeyNavigation(false);
  table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  connect(table_->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
          [this] { FitSortedHeader(*table_); });
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  connect(table_, &QTableWidget::itemSelectionChanged, this, [this] { SelectRecordsOfRows(); });
  column->addWidget(table_, 1);
  column->addLayout(MakeCommands());
  // Over the lower part of the main window, so that the net's data stay in sight.
  const QWidget* main = owner->window();
  resize(main->width() - 40, main->height() * 2 / 5);
  move(main->x() + 20, main->y() + main->height() * 3 / 5);
  if (!Chosen()) {  // the window was closed over an incomplete choice
    GroupChoices choices = velorix_.Plots.Groups;
    choices.Parting = GroupChoices().Parting;
    Work(velorix_, [&] { ChooseGroups(velorix_, choices); });
  }
  Refresh();
}

frmGroups::~frmGroups() = default;

QLayout* frmGroups::MakeChoices() {
  auto* row = new QHBoxLayout;
  auto* caption = new QLabel("&Group by:", this);
  ways_ = new QComboBox(this);
  ways_->setObjectName("cboGroupBy");
  ways_->setToolTip("What parts the records in view into groups");
  for (const Way& way : Ways) ways_->addItem(way.Caption);
  caption->setBuddy(ways_);
  connect(ways_, &QComboBox::activated, this, [this] { ChooseWay(); });
  detail_ = new QLineEdit(this);
  detail_->setObjectName("txtGroupBy");
  detail_->setAccessibleName("Characters of the name");
  detail_->setToolTip("How many characters of the name, or the character that ends it");
  detail_->setMaximumWidth(fontMetrics().horizontalAdvance("000000"));
  detail_->hide();
  connect(detail_, &QLineEdit::editingFinished, this, [this] { ChooseParting(); });
  progress_ = new QLabel(this);
  progress_->setObjectName("lblProgress");
  progress_->setTextFormat(Qt::PlainText);
  progress_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  progress_->setWordWrap(true);
  cancel_ = MakeButton<QPushButton>("cmdCancel", "Ca&ncel", "Stop computing", this);
  connect(cancel_, &QPushButton::clicked, this, [this] {
    if (run_) run_->Stop();
  });
  row->addWidget(caption);
  row->addWidget(ways_);
  row->addWidget(detail_);
  row->addWidget(progress_, 1);
  row->addWidget(cancel_);
  return row;
}

QLayout* frmGroups::MakeCommands() {
  const auto work = [this](void (frmGroups::*does)()) {
    return [this, does] { Work(velorix_, [this, does] { (this->*does)(); }); };
  };
  return MakeCommandRow(
      *this, "Close the groups [Esc]",
      {{"cmdCompare", "C&ompare...", "Compare each pair of the groups selected",
        work(&frmGroups::Compare)},
       {"cmdUntilt", "&Untilt...", "Untilt the groups step by step", work(&frmGroups::Untilt)}},
      {{"cmdCopy", "&Copy", "Copy the table as tab-separated text [Ctrl+C]", [this] { Copy(); },
        "Ctrl+C"},
       {"cmdExport", "&Export...", "Write the table into a file of comma-separated text",
        work(&frmGroups::Export)},
       {"cmdPanels", "&Panels...", "Write a small net a group, all on one page",
        work(&frmGroups::WritePanels)}});
}

const std::optional<GroupBy>& frmGroups::Chosen() const { return velorix_.Plots.Groups.Parting; }

std::vector<RecordGroup> frmGroups::Groups() const {
  const std::optional<GroupBy>& by = Chosen();
  return by ? PartRecords(velorix_.Session, *by) : std::vector<RecordGroup>();
}

void frmGroups::ChooseWay() {
  detail_->setText(Ways[ways_->currentIndex()].Detail);
  ChooseParting();
}

void frmGroups::ChooseParting() {
  const Way& way = Ways[ways_->currentIndex()];
  GroupChoices choices = velorix_.Plots.Groups;
  if (*way.Word)
    choices.Parting = ParseGroupBy(way.Word + (*way.Detail ? detail_->text().toStdString() : ""));
  else
    choices.Parting = ByHand();
  Work(velorix_, [&] { ChooseGroups(velorix_, choices); });
  Refresh();
}

/// The controls follow what the program parts the records by. While that is not complete they stay.
void frmGroups::ShowParting() {
  if (const auto& by = Chosen()) {
    int index = static_cast<int>(std::size(Ways)) - 1;
    const QString word = ToQString(by->Word);
    while (index > 0 && by->How != GroupBy::Way::Hand &&
           (!*Ways[index].Word || !word.startsWith(Ways[index].Word)))
      --index;
    const Way& way = Ways[index];
    ways_->setCurrentIndex(index);
    detail_->setText(*way.Detail ? word.sliced(static_cast<int>(std::strlen(way.Word))) : "");
  }
  detail_->setVisible(*Ways[ways_->currentIndex()].Detail);
  controls_->Show();
}

void frmGroups::Refresh() {
  const QSignalBlocker quiet(table_);  // rows that go leave the records selected
  ShowParting();
  run_.reset();
  rows_.clear();
  records_.clear();
  names_.clear();
  stopped_ = false;
  const Session& session = velorix_.Session;
  const ErrorLevel level = velorix_.Plots.Stereo.level;
  table_->setSortingEnabled(false);
  table_->clear();
  const std::vector<std::string> header = StudyHeader(session.Settings, level);
  table_->setColumnCount(static_cast<int>(header.size()));
  for (int column = 0; column < table_->columnCount(); ++column)
    table_->setHorizontalHeaderItem(
        column, new QTableWidgetItem(ToQString(header[static_cast<std::size_t>(column)])));
  std::vector<RecordGroup> groups = Groups();
  for (const RecordGroup& group : groups) {
    names_.push_back(group.Name);
    std::vector<int>& ids = records_.emplace_back();
    for (const int record : group.Records) ids.push_back(session.Records[record].RecordNo);
  }
  heading_->setText(ToQString(GroupsHeading(session, groups, level, velorix_.Bootstrap)));
  origin_ = OriginOfGroups(session, groups, level, velorix_.Bootstrap);
  expected_ = groups.empty() ? 0 : groups.size() + 1;
  table_->setRowCount(static_cast<int>(expected_));
  if (!groups.empty())
    run_ = std::make_unique<StudyRun>(
        session, std::move(groups), velorix_.Bootstrap, velorix_.GaussTable, *this,
        StudyRun::Hearer{[this](std::vector<GroupRow> rows) { Take(std::move(rows)); },
                         [this](bool stopped) { Finish(stopped); }});
  Say();
  if (comparison_) comparison_->Refresh();
  if (untilting_) untilting_->Refresh();
}

void frmGroups::Take(std::vector<GroupRow> rows) {
  for (GroupRow& row : rows) {
    FillRow(static_cast<int>(rows_.size()), row);
    rows_.push_back(std::move(row));
  }
  Say();
}

void frmGroups::FillRow(int row, const GroupRow& group) {
  int column = 0;
  for (const StudyCell& cell : StudyCells(group, velorix_.Plots.Stereo.level)) {
    auto* item = new Cell(cell, row, static_cast<std::size_t>(row) == names_.size());
    if (group.Failure) item->setToolTip(ToQString(IncompleteText(*group.Failure)));
    table_->setItem(row, column++, item);
  }
}

void frmGroups::Finish(bool stopped) {
  const QSignalBlocker quiet(table_);
  stopped_ = stopped;
  run_.reset();
  table_->setRowCount(static_cast<int>(rows_.size()));
  table_->resizeColumnsToContents();
  table_->setSortingEnabled(true);  // as before
  FitSortedHeader(*table_);
  Say();
}

/// How far the work is, and the failures.
void frmGroups::Say() {
  cancel_->setVisible(run_ != nullptr);
  if (run_)
    progress_->setText(QString("%1 of %2 groups").arg(rows_.size()).arg(expected_ - 1));
  else if (stopped_)
    progress_->setText(QString("Cancelled: %1 of %2 groups").arg(rows_.size()).arg(expected_ - 1));
  else if (!Chosen())
    progress_->setText("A number of at least 1, or one character, is needed.");
  else
    progress_->setText(ToQString(FailuresText(rows_)));
}

/// The rows that are selected, from the top, by their places in the order of the groups.
std::vector<std::size_t> frmGroups::SelectedRows() const {
  std::vector<int> selected;
  for (const QModelIndex& index : table_->selectionModel()->selectedRows())
    selected.push_back(index.row());
  std::ranges::sort(selected);
  std::vector<std::size_t> rows;
  for (const int row : selected)
    if (const QTableWidgetItem* item = table_->item(row, 0))
      rows.push_back(static_cast<std::size_t>(item->data(RowRole).toInt()));
  return rows;
}

void frmGroups::SelectRecordsOfRows() {
  std::vector<int> ids;
  for (const std::size_t row : SelectedRows())
    for (std::size_t i = 0; i < records_.size(); ++i)
      if (i == row || row == records_.size())
        ids.insert(ids.end(), records_[i].begin(), records_[i].end());
  Work(velorix_, [&] { SelectRecords(velorix_, ids); });
}

/// The rows in the order of the table.
std::vector<const GroupRow*> frmGroups::ShownRows() const {
  std::vector<const GroupRow*> rows;
  for (int row = 0; row < table_->rowCount(); ++row)
    if (const QTableWidgetItem* item = table_->item(row, 0))
      rows.push_back(&rows_[static_cast<std::size_t>(item->data(RowRole).toInt())]);
  return rows;
}

void frmGroups::Copy() {
  QApplication::clipboard()->setText(
      ToQString(StudyText(ShownRows(), velorix_.Session.Settings, velorix_.Plots.Stereo.level,
                          heading_->text().toStdString())));
}

void frmGroups::Export() {
  if (run_) return velorix_.Views.ShowStatus("The groups are still being computed.");
  ExportGroups(velorix_.Session, velorix_.Dialogs, velorix_.Views, velorix_.Log, ShownRows(),
               origin_);
}

/// In the order of the table, without the row of all.
void frmGroups::WritePanels() {
  if (run_) return velorix_.Views.ShowStatus("The groups are still being computed.");
  if (rows_.size() != expected_ || rows_.empty())
    return velorix_.Views.ShowStatus("Not all groups are computed.");
  const std::vector<RecordGroup> groups = Groups();
  std::vector<Panel> panels;
  for (const GroupRow* row : ShownRows()) {
    const auto place = static_cast<std::size_t>(row - rows_.data());
    if (place < groups.size()) panels.push_back({row->Name, groups[place].Records, &row->Stats});
  }
  SavePanels(velorix_, panels);
}

/// The groups of the rows selected, in the order of the groups.
void frmGroups::Compare() {
  const std::vector<RecordGroup> groups = Groups();
  std::set<std::size_t> places;
  for (const QModelIndex& index : table_->selectionModel()->selectedRows())
    if (const QTableWidgetItem* item = table_->item(index.row(), 0))
      places.insert(static_cast<std::size_t>(item->data(RowRole).toInt()));
  std::vector<std::string> names;
  for (const std::size_t place : places)
    if (place < groups.size()) names.push_back(groups[place].Name);
  if (names.size() < 2) return velorix_.Views.ShowStatus("Select two or more groups.");
  if (const std::string complaint = TooManyCompared(names.size()); !complaint.empty())
    return velorix_.Views.ShowStatus(complaint);
  Raise(comparison_, velorix_, *this, [this] { return Groups(); });
  comparison_->Compare(std::move(names));
}

void frmGroups::Untilt() {
  Raise(untilting_, velorix_, *this, [this] { return Groups(); });
}

void frmGroups::closeEvent(QCloseEvent* event) {
  // At once: what they compute beside the windows ends with them, before the program's data do.
  delete comparison_;
  delete untilting_;
  run_.reset();
  QWidget::closeEvent(event);
  if (OnClose) OnClose();
}

}  // namespace velorix
