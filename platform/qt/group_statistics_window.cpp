#include "platform/qt/group_statistics_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "app/group_table.h"
#include "platform/qt/widgets.h"

namespace velorix {
namespace {

constexpr Array1<Colour, 3> RowColours = {0xC0C0FF, 0xC0FFC0, 0xFFC0C0};  // Kmax, Kint, Kmin
constexpr Array1<const char*, 3> RowNames = {"K1", "K2", "K3"};
constexpr int ValueWidth = 64;

void SetBackground(QLabel& label, Colour colour) {
  QPalette palette = label.palette();
  palette.setColor(QPalette::Window, ToQColor(colour));
  palette.setColor(QPalette::WindowText, Qt::black);
  label.setPalette(palette);
  label.setAutoFillBackground(true);
}

}  // namespace

frmGroupStatistics::frmGroupStatistics(const Velorix& velorix, QWidget* owner)
    : QWidget(owner, Qt::Window), velorix_(velorix) {
  setObjectName("frmGroupStatistics");
  setWindowTitle("Group Statistics");
  setAttribute(Qt::WA_QuitOnClose, false);
  auto* frame = new QGroupBox("Jelinek", this);
  frame->setObjectName("fraJelinek");
  auto* inside = new QVBoxLayout(frame);
  inside->addLayout(MakeDirections());
  inside->addSpacing(10);
  inside->addLayout(MakeFactors());
  auto* copy = new QPushButton("Copy", this);
  copy->setObjectName("cmdCopy");
  copy->setToolTip("Copy the numbers as tab-separated text [Ctrl+C]");
  connect(copy, &QPushButton::clicked, this, [this] { Copy(); });
  connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, this, [this] { Copy(); });
  auto* column = new QVBoxLayout(this);
  column->addWidget(frame);
  column->addWidget(copy, 0, Qt::AlignRight);
  column->setSizeConstraint(QLayout::SetFixedSize);

  AnisoFacName_Show();
  AnisoView_DisplayGroupStatistics();
}

void frmGroupStatistics::AddHeading(QGridLayout& table, int row, int column, const QString& text,
                                    int span) {
  auto* heading = new QLabel(text, this);
  heading->setAlignment(Qt::AlignCenter);
  table.addWidget(heading, row, column, 1, span);
}

void frmGroupStatistics::AddValue(QGridLayout& table, int row, int column, int index, bool boot) {
  auto* label = new QLabel(this);
  label->setObjectName(QString(boot ? "lblBootStat(%1)" : "lblJelinek(%1)").arg(index));
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setMinimumWidth(ValueWidth);
  label->setMargin(3);
  label->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  table.addWidget(label, row, column);
  values_.push_back({label, index, boot});
}

/// The count, and a row each for Kmax, Kint and Kmin.
QLayout* frmGroupStatistics::MakeDirections() {
  auto* table = new QGridLayout;
  table->setSpacing(3);
  AddHeading(*table, 0, 4, "Confidence Ellipses", 2);
  AddHeading(*table, 0, 6, "Bootstrap", 2);
  AddValue(*table, 1, 0, CountLabel, false);
  AddHeading(*table, 1, 1, "Mean Tensor");
  AddHeading(*table, 1, 2, "Dec");
  AddHeading(*table, 1, 3, "Inc");
  AddHeading(*table, 1, 4, "Normed Semi-Axes", 2);
  AddHeading(*table, 1, 6, "Semi-Axes", 2);
  for (int k = 1; k <= 3; ++k) {
    AddHeading(*table, k + 1, 0, RowNames[k]);
    for (int column = 1; column <= 5; ++column)
      AddValue(*table, k + 1, column, DirectionLabel(k, column), false);
    for (int axis = 1; axis <= 2; ++axis)
      AddValue(*table, k + 1, 5 + axis, 2 * (k - 1) + axis, true);
    for (int column = 1; column <= 7; ++column)
      SetBackground(*static_cast<QLabel*>(table->itemAtPosition(k + 1, column)->widget()),
                    RowColours[k]);
  }
  return table;
}

/// A row for Km and one for each factor.
QLayout* frmGroupStatistics::MakeFactors() {
  auto* table = new QGridLayout;
  table->setSpacing(3);
  AddHeading(*table, 0, 1, "Mean Tensor");
  AddHeading(*table, 0, 2, "Average");
  AddHeading(*table, 0, 3, "Std. Err.");
  for (int row = 0; row <= 8; ++row) {
    auto* name = new QLabel("Km", this);
    name->setMinimumWidth(ValueWidth);
    table->addWidget(name, row + 1, 0);
    if (row > 0) factorNames_.push_back(name);
    for (int column = 1; column <= 3; ++column)
      AddValue(*table, row + 1, column, FactorValueLabel(row, column), false);
  }
  table->setColumnStretch(4, 1);
  return table;
}

void frmGroupStatistics::AnisoFacName_Show() {
  int slot = 0;
  for (QLabel* name : factorNames_)
    name->setText(ToQString(FactorLabel(++slot, velorix_.Session.Settings)));
}

void frmGroupStatistics::AnisoView_DisplayGroupStatistics() {
  const GroupStats& stats = velorix_.GroupStats;
  for (const Value& value : values_)
    value.Label->setText(
        ToQString(value.Boot ? BootStatText(value.Index, stats) : JelinekText(value.Index, stats)));
}

void frmGroupStatistics::Copy() {
  QApplication::clipboard()->setText(
      ToQString(GroupTableText(velorix_.GroupStats, velorix_.Session.Settings)));
}

void frmGroupStatistics::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (OnClose) OnClose();
}

}  // namespace velorix
