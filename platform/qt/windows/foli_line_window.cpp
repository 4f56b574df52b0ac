#include "platform/qt/windows/foli_line_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/change_buttons.h"
#include "platform/qt/parts/marks.h"
#include "platform/qt/parts/widgets.h"
#include "text/numbers.h"

namespace velorix {
namespace {

/// Widths of the fields and of the names before them, in the two frames alike.
int FieldWidth(const QWidget& widget) {
  return widget.fontMetrics().horizontalAdvance("Dip direction") + 16;
}
int NameWidth(const QWidget& widget) {
  return widget.fontMetrics().horizontalAdvance("Lineation 2") + 12;
}

QLabel* MakeLabel(const char* name, const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(name);
  return label;
}

QLabel* MakeValue(const char* name, const char* tip, QWidget* parent) {
  QLabel* value = MakeLabel(name, "", parent);
  value->setToolTip(tip);
  value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  value->setMinimumWidth(FieldWidth(*parent));
  value->setMinimumHeight(QLineEdit(parent).sizeHint().height());
  value->setMargin(3);
  value->setAccessibleDescription(tip);
  value->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  value->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return value;
}

/// A text that is no number as a whole stands out: only its beginning counts.
void MarkDoubt(QLineEdit& field) {
  QPalette palette;
  if (!IsNumberText(field.text().toStdString())) {
    palette.setColor(QPalette::Base, MarkColour(Mark::Doubt));
  }
  field.setPalette(palette);
}

}  // namespace

frmFoliLine::frmFoliLine(Velorix& velorix, QWidget* owner)
    : QWidget(owner, Qt::Window), velorix_(velorix) {
  setObjectName("frmFoliLine");
  setWindowTitle("Plane from Lineations       ");  // with the blanks
  setAttribute(Qt::WA_QuitOnClose, false);
  auto* column = new QVBoxLayout(this);
  column->addWidget(MakeModes());
  column->addWidget(MakeInputs());
  QPushButton* calculate =
      MakeDialogButton("Command1", "Calculate", "Calculate the result (Enter)", this);
  connect(calculate, &QPushButton::clicked, this, [this] { Calculate(); });
  QPushButton* clear =
      MakeDialogButton("cmdClear", "Clear", "Empty the fields and the result", this);
  connect(clear, &QPushButton::clicked, this, [this] { Clear(); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(calculate);
  buttons->addWidget(clear);
  column->addLayout(buttons);
  column->addWidget(MakeOutputs());
  column->setSizeConstraint(QLayout::SetFixedSize);
  for (const int key : {Qt::Key_Return, Qt::Key_Enter})
    connect(new QShortcut(key, this), &QShortcut::activated, this, [this] { Calculate(); });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { close(); });
  ChooseMode(CalculatorMode::Lineations);
}

QWidget* frmFoliLine::MakeModes() {
  auto* modes = new QWidget(this);
  auto* row = new QHBoxLayout(modes);
  row->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](const char* name, const char* caption, const char* tip,
                       CalculatorMode mode) {
    auto* option = new QRadioButton(caption, modes);
    option->setObjectName(name);
    option->setToolTip(tip);
    option->setChecked(mode == mode_);
    connect(option, &QRadioButton::toggled, this, [this, mode](bool on) {
      if (on) ChooseMode(mode);
    });
    row->addWidget(option);
  };
  add("optLine", "2 Lineations", "The plane through two lines", CalculatorMode::Lineations);
  add("optFoli", "2 Foliations", "The line in which two planes meet", CalculatorMode::Foliations);
  row->addStretch(1);
  return modes;
}

QLineEdit* frmFoliLine::MakeInput(const char* name) {
  auto* field = new QLineEdit(this);
  field->setObjectName(name);
  field->setFixedWidth(FieldWidth(*this));
  field->setAlignment(Qt::AlignRight);
  connect(field, &QLineEdit::textChanged, this, [field] { MarkDoubt(*field); });
  return field;
}

QWidget* frmFoliLine::MakeInputs() {
  auto* frame = new QGroupBox("Input", this);
  auto* table = new QGridLayout(frame);
  headDec_ = MakeLabel("lblHeadDec", "", this);
  headInc_ = MakeLabel("lblHeadInc", "", this);
  input1_ = MakeLabel("lblInput1", "", this);
  input2_ = MakeLabel("lblInput2", "", this);
  table->addWidget(headDec_, 0, 1, Qt::AlignHCenter);
  table->addWidget(headInc_, 0, 2, Qt::AlignHCenter);
  table->addWidget(input1_, 1, 0);
  table->addWidget(dec1_ = MakeInput("txtDec1"), 1, 1);
  table->addWidget(inc1_ = MakeInput("txtInc1"), 1, 2);
  table->addWidget(input2_, 2, 0);
  table->addWidget(dec2_ = MakeInput("txtDec2"), 2, 1);
  table->addWidget(inc2_ = MakeInput("txtInc2"), 2, 2);
  table->setColumnMinimumWidth(0, NameWidth(*this));
  return frame;
}

QWidget* frmFoliLine::MakeOutputs() {
  auto* frame = new QGroupBox("Result", this);
  auto* table = new QGridLayout(frame);
  output_ = MakeLabel("lblOutput", "", this);
  dec_ = MakeValue("lblDec", "Dip direction of the plane, or trend of the line", this);
  inc_ = MakeValue("lblInc", "Dip of the plane, or plunge of the line", this);
  angle_ = MakeValue("lblAngle", "Smaller and larger angle between the two directions", this);
  table->addWidget(output_, 0, 0);
  table->addWidget(dec_, 0, 1);
  table->addWidget(inc_, 0, 2);
  table->addWidget(MakeLabel("lblAngleName", "Angle", this), 1, 0);
  table->addWidget(angle_, 1, 1, 1, 2);
  note_ = MakeLabel("lblNote", "", this);
  table->addWidget(note_, 2, 0, 1, 3);
  table->setColumnMinimumWidth(0, NameWidth(*this));
  return frame;
}

void frmFoliLine::ChooseMode(CalculatorMode mode) {
  mode_ = mode;
  const CalculatorLabels labels = LabelsOf(mode);
  input1_->setText(labels.Input1);
  input2_->setText(labels.Input2);
  output_->setText(labels.Output);
  const bool lines = mode == CalculatorMode::Lineations;
  headDec_->setText(lines ? "Trend" : "Dip direction");
  headInc_->setText(lines ? "Plunge" : "Dip");
  dec1_->setAccessibleName(input1_->text() + ", " + headDec_->text());
  inc1_->setAccessibleName(input1_->text() + ", " + headInc_->text());
  dec2_->setAccessibleName(input2_->text() + ", " + headDec_->text());
  inc2_->setAccessibleName(input2_->text() + ", " + headInc_->text());
  for (QLineEdit* dec : {dec1_, dec2_})
    dec->setToolTip(lines ? "Trend, degrees from north" : "Dip direction, degrees from north");
  for (QLineEdit* inc : {inc1_, inc2_})
    inc->setToolTip(lines ? "Plunge, degrees, positive downward" : "Dip, degrees");
  Clear();
}

void frmFoliLine::ClearResult() {
  for (QLabel* value : {dec_, inc_, angle_, note_}) value->clear();
}

void frmFoliLine::Clear() {
  for (QLineEdit* field : {dec1_, inc1_, dec2_, inc2_}) field->clear();
  ClearResult();
  dec1_->setFocus();
}

void frmFoliLine::Calculate() {
  ClearResult();  // a failure leaves no old one
  const auto text = [](const QLineEdit* field) { return field->text().toStdString(); };
  Work(velorix_, [&] {
    const CalculatorResult result =
        PlaneFromLineations(mode_, {text(dec1_), text(inc1_), text(dec2_), text(inc2_)});
    dec_->setText(ToQString(result.Dec));
    inc_->setText(ToQString(result.Inc));
    angle_->setText(ToQString(result.Angle));
    note_->setText(ToQString(result.Note));
  });
}

void frmFoliLine::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (OnClose) OnClose();
}

}  // namespace velorix
