#include "platform/qt/statistics/group_statistics_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QShortcut>
#include <QSpinBox>
#include <QVBoxLayout>

#include "app/commands/view_choices.h"
#include "app/display/shown_group.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/change_buttons.h"
#include "platform/qt/parts/marks.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

constexpr Array1<Colour, 3> RowColours = {0xC0C0FF, 0xC0FFC0, 0xFFC0C0};  // Kmax, Kint, Kmin
constexpr Array1<const char*, 3> RowNames = {"K1", "K2", "K3"};
constexpr int FactorHead = 7;  // row of the headings of the factors
constexpr char Note[] =
    "Angles in degrees. Confidence ellipses from 5 records on: the standard errors describe one "
    "specimen, the 95\u00A0% angles the mean. Bootstrap: half-axes of the 95\u00A0% regions, from "
    "5 to "
    "100 records. Std. Err. of factors: standard deviation of the records' values.";

/// The labels' names. Directions: k 1 to 3, factors: row 0 is Km; columns from 1.
QString DirectionName(int k, int column) {
  if (column <= 5) return QString("lblJelinek(%1)").arg(6 * k - 5 + column);
  if (column <= 7) return QString("lblBootStat(%1)").arg(2 * k - 7 + column);
  return QString("lblBootLimits(%1)").arg(k);
}
QString FactorName(int row, int column) {
  return column <= 3 ? QString("lblJelinek(%1)").arg(24 + (FactorSlots + 1) * column + row)
                     : QString("lblBootLimits(%1)").arg(3 + row);
}

QString CountName() { return QString("lblJelinek(%1)").arg(24 + (FactorSlots + 1) * 4); }

/// The colours are the same on dark desktops: black on them is read everywhere.
void Paint(QLabel& label, Colour colour) {
  QPalette palette = label.palette();
  palette.setColor(QPalette::Base, ToQColor(colour));
  palette.setColor(QPalette::Text, Qt::black);
  label.setPalette(palette);
}

}  // namespace

frmGroupStatistics::frmGroupStatistics(Velorix& velorix, QWidget* owner)
    : QWidget(owner, Qt::Window), velorix_(velorix) {
  setObjectName("frmGroupStatistics");
  setWindowTitle("Group Statistics");
  setAttribute(Qt::WA_QuitOnClose, false);
  heading_ = new QLabel(this);
  heading_->setObjectName("lblGroupOf");
  heading_->setToolTip(
      "File, tensor, coordinate system and number of records of the numbers below");
  heading_->setTextFormat(Qt::PlainText);
  heading_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  heading_->setMargin(3);
  levelOf_ = new QLabel(this);
  levelOf_->setObjectName("lblLevel");
  levelOf_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  levelOf_->setContentsMargins(3, 0, 3, 0);
  auto* frame = new QGroupBox("Jelinek", this);
  frame->setObjectName("fraJelinek");
  auto* table = new QGridLayout(frame);
  table->setSpacing(3);
  for (int column = 1; column <= 8; ++column)
    table->setColumnMinimumWidth(column, fontMetrics().horizontalAdvance("-0.000E-00") + 8);
  AddDirections(*table);
  AddFactors(*table);
  AddHext(*table);
  auto* note = new QLabel(Note, this);
  note->setObjectName("lblNote");
  note->setWordWrap(true);
  note->setContentsMargins(3, 0, 3, 0);
  auto* column = new QVBoxLayout(this);
  auto* headings = new QVBoxLayout;
  headings->setSpacing(0);
  headings->addWidget(heading_);
  headings->addWidget(levelOf_);
  column->addLayout(headings);
  column->addWidget(frame);
  column->addWidget(note);
  column->addLayout(MakeChoices());
  column->addLayout(MakeCommands());
  column->setSizeConstraint(QLayout::SetFixedSize);

  AnisoFacName_Show();
  AnisoView_DisplayGroupStatistics();
}

QLabel* frmGroupStatistics::AddHeading(QGridLayout& table, int row, int column, const QString& text,
                                       const QString& tip, int span) {
  auto* heading = new QLabel(text, this);
  heading->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
  heading->setToolTip(tip);
  table.addWidget(heading, row, column, 1, span);
  return heading;
}

QLabel* frmGroupStatistics::AddName(QGridLayout& table, int row, const QString& text) {
  auto* name = new QLabel(text, this);
  name->setMinimumWidth(fontMetrics().horizontalAdvance("N = 00000") + 8);
  name->setContentsMargins(3, 0, 12, 0);
  table.addWidget(name, row, 0);
  return name;
}

QLabel* frmGroupStatistics::AddValue(
    QGridLayout& table, int row, int column, const QString& name,
    const std::function<std::string(const GroupTableContent&)>& text, int span) {
  auto* label = new QLabel(this);
  label->setObjectName(name);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setMargin(4);
  label->setBackgroundRole(QPalette::Base);
  label->setForegroundRole(QPalette::Text);
  label->setAutoFillBackground(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  table.addWidget(label, row, column, 1, span);
  values_.push_back({label, text});
  return label;
}

/// The count, the headings in rows 0 to 2, and a row each for Kmax, Kint and Kmin.
void frmGroupStatistics::AddDirections(QGridLayout& table) {
  constexpr int Head = 2, Errors = 4, Semiaxes = 6;
  const std::span<const GroupColumn> columns = DirectionColumns();
  const auto tip = [&](int column) { return columns[static_cast<std::size_t>(column) - 1].Tip; };
  AddHeading(table, 0, Errors, "Confidence Ellipses", tip(Errors), 2);
  level_ = AddHeading(table, 1, Errors, "", tip(Errors), 2);
  semiAxes_ = AddHeading(table, Head, Errors, "", tip(Errors), 2);
  AddHeading(table, 1, Semiaxes, "Bootstrap", tip(Semiaxes), 2);
  AddHeading(table, Head, Semiaxes, "Semi-Axes", tip(Semiaxes), 2);
  AddHeading(table, 1, 8, "Bootstrap", tip(8));
  QLabel* count = AddValue(table, Head, 0, CountName(), [](const GroupTableContent& content) {
    return CountText(content.Stats);
  });
  table.addWidget(count, 0, 0, Head + 1, 1, Qt::AlignBottom);  // so that the headings stand close
  count->setAlignment(Qt::AlignCenter);
  count->setToolTip("Records in the mean tensor");
  for (int k = 1; k <= 3; ++k) AddName(table, Head + k, RowNames[k]);
  for (int column = 1; const GroupColumn& shown : columns) {
    if (column < Errors || column >= Semiaxes + 2)
      AddHeading(table, Head, column, shown.Heading, shown.Tip);
    for (int k = 1; k <= 3; ++k)
      Paint(*AddValue(
                table, Head + k, column, DirectionName(k, column),
                [&shown, k](const GroupTableContent& content) { return shown.Text(content, k); }),
            RowColours[k]);
    ++column;
  }
}

/// A row for Km and one for each factor.
void frmGroupStatistics::AddFactors(QGridLayout& table) {
  constexpr int Head = FactorHead, First = Head + 1;
  table.setRowMinimumHeight(Head - 1, 10);
  for (int row = 0; row <= FactorSlots; ++row) {
    QLabel* name = AddName(table, First + row, "Km");
    if (row > 0) factorNames_.push_back(name);
  }
  for (int column = 1; const GroupColumn& shown : FactorColumns()) {
    AddHeading(table, Head, column, shown.Heading, shown.Tip);
    for (int row = shown.IsOfKm ? 0 : 1; row <= FactorSlots; ++row)
      AddValue(
          table, First + row, column, FactorName(row, column),
          [&shown, row](const GroupTableContent& content) { return shown.Text(content, row); });
    ++column;
  }
}

/// Hext's statistics beside the factors.
void frmGroupStatistics::AddHext(QGridLayout& table) {
  constexpr int Left = 6;
  constexpr const char* headings[] = {"Hext", "Value", "Critical"};
  for (int column = Left; const char* heading : headings)
    AddHeading(table, FactorHead, column++, heading, "Statistics of Hext (1963)");
  for (int row = 1; const HextRow& shown : HextRows()) {
    AddHeading(table, FactorHead + row, Left, shown.Name, shown.Tip)
        ->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (int column = 1; const auto text : {shown.Value, shown.Critical}) {
      if (!text) continue;
      QLabel* value = AddValue(
          table, FactorHead + row, Left + column, QString("lblHext(%1,%2)").arg(row).arg(column),
          [text](const GroupTableContent& content) { return HextText(text, content.Stats); },
          shown.IsWords ? 2 : 1);
      if (shown.IsWords) value->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
      ++column;
    }
    ++row;
  }
}

/// What the ellipses show, and how the bootstrap is made.
QLayout* frmGroupStatistics::MakeChoices() {
  auto* row = new QHBoxLayout;
  const auto add = [&](const char* caption, QWidget* control, const char* name, const char* tip) {
    auto* label = new QLabel(caption, this);
    label->setBuddy(control);
    control->setObjectName(name);
    control->setToolTip(tip);
    row->addWidget(label);
    row->addWidget(control);
  };
  const auto capital = [](const QString& text) { return text.left(1).toUpper() + text.mid(1); };
  levels_ = new QComboBox(this);
  for (const ErrorLevelNames& level : ErrorLevels) levels_->addItem(capital(level.Text));
  connect(levels_, &QComboBox::activated, this, [this](int index) {
    Work(velorix_, [&] { ChooseLevel(velorix_, static_cast<ErrorLevel>(index)); });
  });
  add("&Ellipses:", levels_, "cboLevel", "What the confidence ellipses show, here and on the net");
  methods_ = new QComboBox(this);
  for (const BootMethodName& method : BootMethods) methods_->addItem(capital(method.Word));
  connect(methods_, &QComboBox::activated, this, [this] { TakeBootstrap(); });
  add("&Bootstrap:", methods_, "cboBootstrap",
      "Parametric: replicates from normal distributions. Simple: from the specimens themselves");
  replicates_ = new QSpinBox(this);
  replicates_->setRange(LeastReplicates, MostReplicates);
  replicates_->setSingleStep(100);
  replicates_->setKeyboardTracking(false);
  connect(replicates_, &QSpinBox::valueChanged, this, [this] { TakeBootstrap(); });
  add("&Replicates:", replicates_, "spnReplicates", "How many replicates the bootstrap makes");
  seed_ = new QLineEdit(this);
  seed_->setPlaceholderText("table");
  seed_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,10}"), seed_));
  seed_->setMaximumWidth(fontMetrics().horizontalAdvance("0000000000") + 16);
  connect(seed_, &QLineEdit::editingFinished, this, [this] { TakeBootstrap(); });
  add("&Seed:", seed_, "txtSeed",
      "Another seed, 0 to 4294967295, takes other random numbers; empty: the program's table");
  row->addStretch(1);
  return row;
}

/// The bootstrap as the controls have it; a seed beyond 32 bits becomes the largest one.
void frmGroupStatistics::TakeBootstrap() {
  if (filling_) return;
  BootChoice choice = {static_cast<BootMethod>(methods_->currentIndex()), replicates_->value(), {}};
  if (!seed_->text().isEmpty())
    choice.Seed =
        static_cast<std::uint32_t>(std::min<qulonglong>(seed_->text().toULongLong(), 0xFFFFFFFF));
  Work(velorix_, [&] { ChooseBootstrap(velorix_, choice); });
}

void frmGroupStatistics::ShowBootstrap(const BootChoice& choice) {
  filling_ = true;
  methods_->setCurrentIndex(static_cast<int>(choice.Method));
  replicates_->setValue(choice.Replicates);
  replicates_->setEnabled(choice.Method != BootMethod::None);
  seed_->setText(choice.Seed ? QString::number(*choice.Seed) : "");
  seed_->setEnabled(choice.Method != BootMethod::None);
  filling_ = false;
}

QLayout* frmGroupStatistics::MakeCommands() {
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  const auto button = [&](const char* name, const char* caption, const char* tip) {
    QPushButton* made = MakeDialogButton(name, caption, tip, this);
    row->addWidget(made);
    return made;
  };
  connect(button("cmdCopy", "&Copy", "Copy the numbers as tab-separated text [Ctrl+C]"),
          &QPushButton::clicked, this, [this] { Copy(); });
  connect(button("cmdCLOSE", "Close", "Close the group statistics [Esc]"), &QPushButton::clicked,
          this, &QWidget::close);
  connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, this, [this] { Copy(); });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
  return row;
}

void frmGroupStatistics::AnisoFacName_Show() {
  int slot = 0;
  for (QLabel* name : factorNames_)
    name->setText(ToQString(FactorLabel(++slot, velorix_.Session.Settings)));
}

void frmGroupStatistics::AnisoView_DisplayGroupStatistics() {
  const Session& session = velorix_.Session;
  const GroupSubject& group = velorix_.GroupOf;
  const bool ofOtherView = IsGroupOfOtherView(session, group);
  MarkLabel(*heading_, ofOtherView);
  QString heading = ToQString(GroupHeading(session, group, velorix_.GroupStats.GroupN));
  if (ofOtherView)
    heading += "\nAnother view is shown; Clear Selection (Shift+Ctrl+F12) computes its numbers.";
  heading_->setText(heading);
  const GroupStats& stats = velorix_.GroupStats;
  const ErrorLevel level = velorix_.Plots.Stereo.level;
  const bool standard = level == ErrorLevel::StandardError;
  levelOf_->setText("Ellipses: " + ToQString(LevelText(level)) +
                    ". Bootstrap: " + ToQString(BootstrapText(velorix_.Bootstrap, stats.GroupN)));
  ShowBootstrap(velorix_.Bootstrap);
  levels_->setCurrentIndex(static_cast<int>(level));
  level_->setText(standard ? "Std. Err. [deg]" : "95 % [deg]");
  semiAxes_->setText(standard ? "Normed Semi-Axes" : "Semi-Axes");
  const GroupTableContent content = {stats, session.Settings, level};
  for (const Value& value : values_) value.Label->setText(ToQString(value.Text(content)));
}

void frmGroupStatistics::Copy() {
  QApplication::clipboard()->setText(
      ToQString(GroupTableText(velorix_.GroupStats, velorix_.Session.Settings,
                               velorix_.Plots.Stereo.level, velorix_.Plots.Stereo.meanOf)));
  const std::string notice =
      MeanNotice(velorix_.Session, velorix_.GroupOf, velorix_.GroupStats.GroupN);
  if (!notice.empty()) velorix_.Views.ShowStatus(notice);
}

void frmGroupStatistics::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (OnClose) OnClose();
}

}  // namespace velorix
