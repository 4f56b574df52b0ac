#include "platform/qt/windows/group_statistics_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "app/display/shown_group.h"
#include "app/tables/group_table.h"
#include "platform/qt/parts/change_buttons.h"
#include "platform/qt/parts/marks.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

constexpr Array1<Colour, 3> RowColours = {0xC0C0FF, 0xC0FFC0, 0xFFC0C0};  // Kmax, Kint, Kmin
constexpr Array1<const char*, 3> RowNames = {"K1", "K2", "K3"};
constexpr char Note[] =
    "Angles in degrees.\n\n"
    "Confidence Ellipses: standard errors of the directions, from 5 records on.\n\n"
    "Bootstrap: half-axes of the 95 % regions, from 5 to 100 records.\n\n"
    "Std. Err.: standard deviation of the records' values.";

/// The colours are the same on dark desktops: black on them is read everywhere.
void Paint(QLabel& label, Colour colour) {
  QPalette palette = label.palette();
  palette.setColor(QPalette::Base, ToQColor(colour));
  palette.setColor(QPalette::Text, Qt::black);
  label.setPalette(palette);
}

}  // namespace

frmGroupStatistics::frmGroupStatistics(const Velorix& velorix, QWidget* owner)
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
  auto* frame = new QGroupBox("Jelinek", this);
  frame->setObjectName("fraJelinek");
  auto* table = new QGridLayout(frame);
  table->setSpacing(3);
  for (int column = 1; column <= 7; ++column)
    table->setColumnMinimumWidth(column, fontMetrics().horizontalAdvance("-0.000E-00") + 8);
  AddDirections(*table);
  AddFactors(*table);
  auto* column = new QVBoxLayout(this);
  column->addWidget(heading_);
  column->addWidget(frame);
  column->addLayout(MakeCommands());
  column->setSizeConstraint(QLayout::SetFixedSize);

  AnisoFacName_Show();
  AnisoView_DisplayGroupStatistics();
}

void frmGroupStatistics::AddHeading(QGridLayout& table, int row, int column, const QString& text,
                                    const QString& tip, int span) {
  auto* heading = new QLabel(text, this);
  heading->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
  heading->setToolTip(tip);
  table.addWidget(heading, row, column, 1, span);
}

QLabel* frmGroupStatistics::AddName(QGridLayout& table, int row, const QString& text) {
  auto* name = new QLabel(text, this);
  name->setMinimumWidth(fontMetrics().horizontalAdvance("N = 00000") + 8);
  name->setContentsMargins(3, 0, 12, 0);
  table.addWidget(name, row, 0);
  return name;
}

QLabel* frmGroupStatistics::AddValue(QGridLayout& table, int row, int column, int index,
                                     bool boot) {
  auto* label = new QLabel(this);
  label->setObjectName(QString(boot ? "lblBootStat(%1)" : "lblJelinek(%1)").arg(index));
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setMargin(4);
  label->setBackgroundRole(QPalette::Base);
  label->setForegroundRole(QPalette::Text);
  label->setAutoFillBackground(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  table.addWidget(label, row, column);
  values_.push_back({label, index, boot});
  return label;
}

/// The count, the headings in rows 0 to 2, and a row each for Kmax, Kint and Kmin.
void frmGroupStatistics::AddDirections(QGridLayout& table) {
  const QString mean = "Principal values and directions of the mean tensor, in degrees";
  const QString errors = "Standard errors of the directions, in degrees; 5 records and more";
  const QString boot = "Half-axes of the bootstrap regions, in degrees; 5 to 100 records";
  constexpr int Head = 2;
  AddHeading(table, 0, 4, "Confidence Ellipses", errors, 2);
  AddHeading(table, 1, 4, "Std. Err. [deg]", errors, 2);
  AddHeading(table, 1, 6, "Bootstrap", boot, 2);
  QLabel* count = AddValue(table, Head, 0, CountLabel, false);
  table.addWidget(count, 0, 0, Head + 1, 1, Qt::AlignBottom);  // so that the headings stand close
  count->setAlignment(Qt::AlignCenter);
  count->setToolTip("Records in the mean tensor");
  AddHeading(table, Head, 1, "Mean Tensor", mean);
  AddHeading(table, Head, 2, "Dec", mean);
  AddHeading(table, Head, 3, "Inc", mean);
  AddHeading(table, Head, 4, "Normed Semi-Axes", errors, 2);
  AddHeading(table, Head, 6, "Semi-Axes", boot, 2);
  for (int k = 1; k <= 3; ++k) {
    const int row = Head + k;
    AddName(table, row, RowNames[k]);
    for (int column = 1; column <= 5; ++column)
      Paint(*AddValue(table, row, column, DirectionLabel(k, column), false), RowColours[k]);
    for (int axis = 1; axis <= 2; ++axis)
      Paint(*AddValue(table, row, 5 + axis, 2 * (k - 1) + axis, true), RowColours[k]);
  }
}

/// A row for Km and one for each factor; the note takes the room beside them.
void frmGroupStatistics::AddFactors(QGridLayout& table) {
  constexpr int Head = 7, Rows = 9;
  table.setRowMinimumHeight(Head - 1, 10);
  AddHeading(table, Head, 1, "Mean Tensor", "Factors of the mean tensor, whose mean is 1");
  AddHeading(table, Head, 2, "Average", "Means of the records' values");
  AddHeading(table, Head, 3, "Std. Err.", "Standard deviations of the records' values");
  for (int row = 0; row < Rows; ++row) {
    QLabel* name = AddName(table, Head + 1 + row, "Km");
    if (row > 0) factorNames_.push_back(name);
    for (int column = 1; column <= 3; ++column)
      AddValue(table, Head + 1 + row, column, FactorValueLabel(row, column), false);
  }
  auto* note = new QLabel(Note, this);
  note->setObjectName("lblNote");
  note->setWordWrap(true);
  note->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  note->setContentsMargins(18, 3, 3, 3);
  table.addWidget(note, Head + 1, 4, Rows, 4);
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
  for (const Value& value : values_)
    value.Label->setText(
        ToQString(value.Boot ? BootStatText(value.Index, stats) : JelinekText(value.Index, stats)));
}

void frmGroupStatistics::Copy() {
  QApplication::clipboard()->setText(
      ToQString(GroupTableText(velorix_.GroupStats, velorix_.Session.Settings)));
  const std::string notice =
      MeanNotice(velorix_.Session, velorix_.GroupOf, velorix_.GroupStats.GroupN);
  if (!notice.empty()) velorix_.Views.ShowStatus(notice);
}

void frmGroupStatistics::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (OnClose) OnClose();
}

}  // namespace velorix
