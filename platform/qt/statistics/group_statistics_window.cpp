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
#include "app/tables/group_table.h"
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

QLabel* frmGroupStatistics::AddCell(QGridLayout& table, int row, int column, const QString& name,
                                    int span) {
  auto* label = new QLabel(this);
  label->setObjectName(name);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setMargin(4);
  label->setBackgroundRole(QPalette::Base);
  label->setForegroundRole(QPalette::Text);
  label->setAutoFillBackground(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  table.addWidget(label, row, column, 1, span);
  return label;
}

QLabel* frmGroupStatistics::AddValue(QGridLayout& table, int row, int column, int index,
                                     bool boot) {
  const QString name = QString(boot ? "lblBootStat(%1)" : "lblJelinek(%1)").arg(index);
  QLabel* label = AddCell(table, row, column, name);
  values_.push_back({label, index, boot});
  return label;
}

/// The count, the headings in rows 0 to 2, and a row each for Kmax, Kint and Kmin.
void frmGroupStatistics::AddDirections(QGridLayout& table) {
  const QString mean = "Principal values and directions of the mean tensor, in degrees";
  const QString errors = "Errors of the directions, in degrees; 5 records and more";
  const QString boot = "Half-axes of the bootstrap regions, in degrees; 5 to 100 records";
  const QString limits = "95 % limits of the principal values by the bootstrap";
  constexpr int Head = 2;
  AddHeading(table, 0, 4, "Confidence Ellipses", errors, 2);
  level_ = AddHeading(table, 1, 4, "", errors, 2);
  AddHeading(table, 1, 6, "Bootstrap", boot, 2);
  QLabel* count = AddValue(table, Head, 0, CountLabel, false);
  table.addWidget(count, 0, 0, Head + 1, 1, Qt::AlignBottom);  // so that the headings stand close
  count->setAlignment(Qt::AlignCenter);
  count->setToolTip("Records in the mean tensor");
  AddHeading(table, Head, 1, "Mean Tensor", mean);
  AddHeading(table, Head, 2, "Dec", mean);
  AddHeading(table, Head, 3, "Inc", mean);
  semiAxes_ = AddHeading(table, Head, 4, "", errors, 2);
  AddHeading(table, Head, 6, "Semi-Axes", boot, 2);
  AddHeading(table, 1, 8, "Bootstrap", limits);
  AddHeading(table, Head, 8, "95 % Limits", limits);
  for (int k = 1; k <= 3; ++k) {
    const int row = Head + k;
    AddName(table, row, RowNames[k]);
    for (int column = 1; column <= 5; ++column)
      Paint(*AddValue(table, row, column, DirectionLabel(k, column), false), RowColours[k]);
    for (int axis = 1; axis <= 2; ++axis)
      Paint(*AddValue(table, row, 5 + axis, 2 * (k - 1) + axis, true), RowColours[k]);
    limits_.push_back(AddCell(table, row, 8, QString("lblBootLimits(%1)").arg(k)));
    Paint(*limits_.back(), RowColours[k]);
  }
}

/// A row for Km and one for each factor.
void frmGroupStatistics::AddFactors(QGridLayout& table) {
  constexpr int Head = FactorHead, Rows = FactorSlots + 1;
  table.setRowMinimumHeight(Head - 1, 10);
  AddHeading(table, Head, 1, "Mean Tensor", "Factors of the mean tensor, whose mean is 1");
  AddHeading(table, Head, 2, "Average", "Means of the records' values");
  AddHeading(table, Head, 3, "Std. Err.", "Standard deviations of the records' values");
  AddHeading(table, Head, 4, "95 % Limits",
             "95 % limits of the mean tensor's factor by the bootstrap");
  for (int row = 0; row < Rows; ++row) {
    QLabel* name = AddName(table, Head + 1 + row, "Km");
    if (row > 0) factorNames_.push_back(name);
    for (int column = 1; column <= 3; ++column)
      AddValue(table, Head + 1 + row, column, FactorValueLabel(row, column), false);
    if (row > 0)
      limits_.push_back(
          AddCell(table, Head + 1 + row, 4, QString("lblBootLimits(%1)").arg(3 + row)));
  }
}

/// Hext's statistics beside the factors.
void frmGroupStatistics::AddHext(QGridLayout& table) {
  constexpr int Left = 6;
  constexpr const char* tips[HextRows] = {
      "Statistics of Hext (1963)",
      "Anisotropy; isotropic below the critical value",
      "K1 against K2; an oblate shape is not rejected below the critical value",
      "K2 against K3; a prolate shape is not rejected below the critical value",
      "95 % half-angle in the plane of K1 and K2, in degrees",
      "95 % half-angle in the plane of K2 and K3, in degrees",
      "95 % half-angle in the plane of K1 and K3, in degrees",
      "Of the three tests at the 95 % level, in their order"};
  const HextCells cells = HextTable(GroupStats());
  for (int column = 0; column < HextColumns; ++column)
    AddHeading(table, FactorHead, Left + column, ToQString(cells[0][column]), tips[0]);
  for (int row = 1; row < HextRows; ++row) {
    const bool verdict = row == HextRows - 1;
    const int values = row <= 3 ? 2 : 1;  // angles have no critical value
    AddHeading(table, FactorHead + row, Left, ToQString(cells[row][0]), tips[row])
        ->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (int column = 1; column <= values; ++column)
      hext_.push_back({AddCell(table, FactorHead + row, Left + column,
                               QString("lblHext(%1,%2)").arg(row).arg(column), verdict ? 2 : 1),
                       row, column});
  }
  hext_.back().Label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
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
  for (const Value& value : values_)
    value.Label->setText(ToQString(value.Boot ? BootStatText(value.Index, stats)
                                              : JelinekText(value.Index, stats, level)));
  int row = 0;
  for (QLabel* limits : limits_) {
    ++row;
    limits->setText(ToQString(row <= 3 ? PrincipalLimitsText(row, stats)
                                       : FactorLimitsText(row - 3, stats, session.Settings)));
  }
  const HextCells hext = HextTable(stats);
  for (const HextValue& value : hext_)
    value.Label->setText(ToQString(hext[value.Row][value.Column]));
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
