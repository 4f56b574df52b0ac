#include "platform/qt/statistics/untilting_window.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "app/commands/picture_commands.h"
#include "app/display/study_heading.h"
#include "app/tables/study_table.h"
#include "app/tables/untilting_table.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/command_row.h"
#include "platform/qt/parts/widgets.h"
#include "platform/qt/plots/picture_widget.h"
#include "plot/plots/untilting.h"

namespace velorix {
namespace {

constexpr std::size_t MostNamed = 6;  // groups left out; a copy names all

/// A line of text that can be copied.
QLabel* MakeText(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  return label;
}

}  // namespace

frmUntilting::frmUntilting(Velorix& velorix, QWidget* owner, GroupsInView groups)
    : QWidget(owner, Qt::Window), velorix_(velorix), groups_(std::move(groups)) {
  setObjectName("frmUntilting");
  setWindowTitle("Stepwise untilting");
  setAttribute(Qt::WA_QuitOnClose, false);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  column->addLayout(MakeChoices());
  heading_ = MakeText("lblUntiltingOf", this);
  column->addWidget(heading_);
  stack_ = new QStackedWidget(this);
  picture_ = new PictureWidget(this);
  picture_->setObjectName("picUntilting");
  picture_->setAccessibleName("Untilting");
  picture_->SetPicture(UntiltingPlane, [this](Target& target) {
    if (result_) DrawUntilting(target, UntiltingPlot, *result_, Heading());
  });
  picture_->OnFault = [this](const Fault& fault) {
    velorix_.Log.DebugPrint(std::string("Error: untilting: ") + fault.what());
    velorix_.Views.ShowStatus(std::string("Untilting: ") + fault.what());
  };
  reason_ = MakeText("lblReason", this);
  reason_->setAlignment(Qt::AlignCenter);
  stack_->addWidget(picture_);
  stack_->addWidget(reason_);
  column->addWidget(stack_, 1);
  column->addLayout(MakeTable());
  words_ = MakeText("lblUntilted", this);
  column->addWidget(words_);
  column->addLayout(MakeCommands());
  const QSize most = screen()->availableGeometry().size() - QSize(40, 40);
  resize(std::min(std::max(700, 110 * fontMetrics().averageCharWidth()), most.width()),
         std::min(760, most.height()));
  Refresh();
}

frmUntilting::~frmUntilting() = default;

QLayout* frmUntilting::MakeChoices() {
  auto* row = new QHBoxLayout;
  const auto add = [&](const char* caption, QWidget* control) {
    auto* label = new QLabel(caption, this);
    label->setBuddy(control);
    row->addWidget(label);
    row->addWidget(control);
  };
  foliations_ = new QComboBox(this);
  foliations_->setObjectName("cboFoliation");
  foliations_->setToolTip("The foliation that the groups are untilted by, such as the bedding");
  foliations_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  connect(foliations_, &QComboBox::activated, this, [this] { Start(); });
  add("&Foliation:", foliations_);
  seed_ = new QLineEdit(this);
  seed_->setObjectName("txtSeed");
  seed_->setToolTip(
      "Seed of the resamplings of groups, 0 to 4294967295; empty: that of the bootstrap, or the "
      "program's own");
  seed_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,10}"), seed_));
  seed_->setMaximumWidth(fontMetrics().horizontalAdvance("0000000000") + 16);
  connect(seed_, &QLineEdit::editingFinished, this, [this] {
    if (seed_->isModified()) Start();
    seed_->setModified(false);
  });
  add("&Seed:", seed_);
  progress_ = new QLabel(this);
  progress_->setObjectName("lblProgress");
  progress_->setTextFormat(Qt::PlainText);
  progress_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  cancel_ = MakeButton<QPushButton>("cmdCancel", "Ca&ncel", "Stop untilting", this);
  connect(cancel_, &QPushButton::clicked, this, [this] {
    if (run_) run_->Stop();
  });
  row->addWidget(progress_, 1);
  row->addWidget(cancel_);
  return row;
}

QLayout* frmUntilting::MakeTable() {
  table_ = new QWidget(this);
  auto* grid = new QGridLayout(table_);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(2);
  const UntiltingCells headers = UntiltingTable({});
  for (int row = 0; row < UntiltingRows; ++row)
    for (int column = 0; column < UntiltingColumns; ++column) {
      const auto at = static_cast<std::size_t>(column);
      auto* cell = new QLabel(table_);
      cell->setTextFormat(Qt::PlainText);
      grid->addWidget(cell, row, column);
      if (row == 0) {  // in two lines, for large fonts
        static const QRegularExpression lastBlank(" (?=[^ ]*$)");
        cell->setText(ToQString(headers[0][at]).replace(lastBlank, "\n"));
        continue;
      }
      cell->setObjectName(QString("lblUntilting(%1,%2)").arg(row).arg(column));
      cell->setTextInteractionFlags(Qt::TextSelectableByMouse);
      cells_.push_back(cell);
    }
  grid->setColumnStretch(UntiltingColumns - 1, 1);
  auto* box = new QVBoxLayout;
  box->addWidget(table_);
  return box;
}

QLayout* frmUntilting::MakeCommands() {
  return MakeCommandRow(
      *this, "Close the untilting [Esc]", {},
      {{"cmdCopy", "&Copy", "Copy the words and the steps as tab-separated text [Ctrl+C]",
        [this] { Copy(); }, "Ctrl+C"},
       {"cmdSave", "Save fi&gure...", "Write the figure into a file",
        [this] { Work(velorix_, [this] { Save(); }); }}});
}

void frmUntilting::Refresh() {
  FillFoliations();
  seed_->setPlaceholderText(QString::number(velorix_.Bootstrap.Seed.value_or(GaussSeed)));
  Start();
}

/// The codes in use; the one chosen stays, at first that of the view.
void frmUntilting::FillFoliations() {
  const QString former = foliations_->currentText();
  foliations_->clear();
  for (const CodeEntry& entry : velorix_.Lists.foliationsInUse.Entries)
    foliations_->addItem(ToQString(entry.Text));
  int at = foliations_->findText(former, Qt::MatchFixedString | Qt::MatchCaseSensitive);
  if (former.isEmpty() || at < 0)
    at = foliations_->findText(ToQString(velorix_.Session.FoliCode),
                               Qt::MatchFixedString | Qt::MatchCaseSensitive);
  foliations_->setCurrentIndex(std::max(at, foliations_->count() > 0 ? 0 : -1));
  foliations_->setEnabled(foliations_->count() > 0);
}

void frmUntilting::Start() {
  run_.reset();
  result_.reset();
  for (QLabel* cell : cells_) cell->clear();
  std::vector<RecordGroup> groups = groups_();
  heading_->setText(ToQString(UntiltingHeading(velorix_.Session, groups)));
  heading_->setVisible(!groups.empty());
  if (groups.empty()) return ShowReason("There are no groups to untilt.");
  if (foliations_->count() == 0) return ShowReason("No record has a foliation to untilt it by.");
  Session session = velorix_.Session;
  session.FoliCode = foliations_->currentText().toStdString();
  std::optional<std::uint32_t> seed = velorix_.Bootstrap.Seed;
  if (!seed_->text().isEmpty())
    seed =
        static_cast<std::uint32_t>(std::min<qulonglong>(seed_->text().toULongLong(), 0xFFFFFFFF));
  run_ = std::make_unique<BackgroundRun>(
      std::move(session), *this,
      [this, groups = std::move(groups), seed](const Session& copy,
                                               const BackgroundRun::Line& line) {
        std::optional<Untilting> untilting = UntiltGroups(copy, groups, seed, [&](int done) {
          line.Send([this, done] {
            progress_->setText(QString("%1 of %2 steps").arg(done).arg(UntiltSteps));
          });
          return line.GoesOn();
        });
        const bool whole = untilting.has_value();
        if (whole) line.Send([this, untilting = std::move(untilting)] { result_ = untilting; });
        return whole;
      },
      [this](const RunEnd& end) { Finish(end); });
  progress_->setText(QString("0 of %1 steps").arg(UntiltSteps));
  cancel_->show();
}

void frmUntilting::Finish(const RunEnd& end) {
  run_.reset();
  if (!end.Whole)
    return ShowReason(end.Failure.empty()
                          ? QString("Cancelled.")
                          : QString("Not untilted: %1").arg(ToQString(end.Failure)));
  QString nothing = ToQString(NothingUntilted(*result_));
  if (nothing.isEmpty()) return Show();
  nothing[0] = nothing[0].toUpper();
  const QString left = ToQString(UntiltingLeftOut(*result_, MostNamed));
  result_.reset();
  ShowReason(nothing + "\n\n" + left);
}

void frmUntilting::Show() {
  progress_->clear();
  cancel_->hide();
  stack_->setCurrentWidget(picture_);
  picture_->Redraw();
  const UntiltingCells cells = UntiltingTable(*result_);
  auto label = cells_.begin();
  for (int row = 1; row < UntiltingRows; ++row)
    for (const std::string& cell : cells[static_cast<std::size_t>(row)])
      (*label++)->setText(ToQString(cell).replace(": ", ":\n").replace(", ", ",\n"));
  table_->show();
  const QString left = ToQString(UntiltingLeftOut(*result_, MostNamed));
  words_->setText(ToQString(UntiltingCounts(*result_)) + (left.isEmpty() ? "" : "\n" + left));
  words_->show();
  for (QLayout* rooms : {table_->layout(), layout()}) rooms->activate();  // for the texts' sizes
}

/// In place of the figure.
void frmUntilting::ShowReason(const QString& reason) {
  progress_->clear();
  cancel_->hide();
  reason_->setText(reason);
  stack_->setCurrentWidget(reason_);
  table_->hide();
  words_->hide();
}

std::string frmUntilting::Heading() const { return heading_->text().toStdString(); }

void frmUntilting::Copy() {
  const QString text = result_ ? ToQString(UntiltingText(*result_, Heading())) : reason_->text();
  if (run_) return velorix_.Views.ShowStatus("The groups are still being untilted.");
  QApplication::clipboard()->setText(text);
}

void frmUntilting::Save() {
  if (run_) return velorix_.Views.ShowStatus("The groups are still being untilted.");
  if (!result_) return velorix_.Views.ShowStatus("There is no untilting to be saved.");
  SaveUntilting(velorix_, *result_, Heading());
}

}  // namespace velorix
