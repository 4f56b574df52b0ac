#include "platform/qt/windows/contour_controls.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>

#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

struct CheckRow {
  const char *Name, *Caption, *Tip;
  bool ContourOptions::*Option;
};

// clang-format off
constexpr CheckRow Checks[] = {
    {"chkShowContours",   "&Contours",    "Black lines where the level changes",  &ContourOptions::showContours},
    {"chkCurves",         "C&urves",      "Levels as smooth curves instead of node by node", &ContourOptions::curves},
    {"chkShowGridPoints", "&Grid points", "Mark the nodes that are computed",     &ContourOptions::showGridPoints},
    {"chkDataPoint",      "&Data points", "Draw the data over their density",     &ContourOptions::showData},
};
// clang-format on

QString TipOf(const ContourDisplayInfo& info) {
  switch (info.Key) {
    case ContourDisplay::FoliationPole:
      return "Count the poles of the foliation chosen in the main window";
    case ContourDisplay::Lineation:
      return "Count the lineation chosen in the main window";
    default:
      return QString("Count the directions of %1").arg(info.Name);
  }
}

}  // namespace

ContourControls::ContourControls(ContourSession& contour, QWidget* parent)
    : QScrollArea(parent), options_(contour.Options) {
  inside_ = new QWidget(this);
  column_ = new QVBoxLayout(inside_);
  column_->setContentsMargins(0, 0, 0, 0);
  AddDisplays();
  AddSmooth();
  AddColours();
  AddChecks();
  column_->addStretch(1);
  setFrameStyle(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setWidget(inside_);
  setMinimumWidth(inside_->sizeHint().width() + verticalScrollBar()->sizeHint().width());
}

int ContourControls::HiddenHeight() const {
  return std::max(0, inside_->sizeHint().height() - sizeHint().height());
}

/// A titled frame, and the column within it.
QVBoxLayout* ContourControls::AddFrame(const char* name, const char* title) {
  auto* frame = new QGroupBox(title, inside_);
  frame->setObjectName(name);
  auto* inside = new QVBoxLayout(frame);
  inside->setContentsMargins(8, 4, 8, 6);
  inside->setSpacing(3);
  column_->addWidget(frame);
  return inside;
}

void ContourControls::AddDisplays() {
  QVBoxLayout* inside = AddFrame("fraDisplay", "Da&ta");
  for (const ContourDisplayInfo& info : ContourDisplays) {
    const QString name = QString("optDisplay(%1)").arg(static_cast<int>(info.Key));
    auto* option = MakeButton<QRadioButton>(name, info.Name, TipOf(info), inside_);
    option->setChecked(options_.display == info.Key);
    connect(option, &QRadioButton::clicked, this, [this, &info] { OnDisplay(info.Key); });
    inside->addWidget(option);
  }
}

void ContourControls::AddSmooth() {
  auto* spinner = new QSpinBox(inside_);
  spinner->setObjectName("udSmooth");
  spinner->setRange(0, 100);
  spinner->setValue(options_.smoothing);
  spinner->setToolTip("Smoothing of the next count: greater is sharper");
  spinner->setAccessibleName("Smooth");
  if (auto* text = spinner->findChild<QLineEdit*>()) text->setObjectName("txtSmooth");
  connect(spinner, &QSpinBox::valueChanged, this,
          [this](int value) { options_.smoothing = static_cast<std::int16_t>(value); });
  AddFrame("fraSmooth", "&Smooth")->addWidget(spinner);
}

void ContourControls::AddColours() {
  QVBoxLayout* inside = AddFrame("fraColours", "Colours");
  auto* discrete = MakeButton<QRadioButton>("optDiscrete", "D&iscrete",
                                            "A colour for each contour level", inside_);
  auto* continuous = MakeButton<QRadioButton>("optContinuous", "C&ontinuous",
                                              "A colour for each density", inside_);
  (options_.discrete ? discrete : continuous)->setChecked(true);
  connect(discrete, &QRadioButton::toggled, this,
          [this](bool on) { Change(&ContourOptions::discrete, on); });
  inside->addWidget(discrete);
  inside->addWidget(continuous);
}

void ContourControls::AddChecks() {
  QVBoxLayout* inside = AddFrame("fraShow", "Show");
  for (const CheckRow& row : Checks) {
    auto* check = MakeButton<QCheckBox>(row.Name, row.Caption, row.Tip, inside_);
    check->setChecked(options_.*row.Option);
    connect(check, &QCheckBox::toggled, this, [this, &row](bool on) { Change(row.Option, on); });
    inside->addWidget(check);
  }
}

void ContourControls::Change(bool ContourOptions::*option, bool on) {
  options_.*option = on;
  OnChange();
}

}  // namespace velorix
