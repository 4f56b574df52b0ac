#include "platform/qt/windows/axes_window.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/commands/picture_commands.h"
#include "app/pictures/page_plots.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/widgets.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr const char* Headers[] = {"Column", "Plots", "Lower end", "Upper end",
                                   "Step",   "Log",   "Reversed"};
enum { NameAt, PlotsAt, LowerAt, UpperAt, StepAt, LogAt, ReversedAt };

/// The columns along the axes of the plots, each once, and where they stand.
std::vector<std::pair<std::string, QString>> ColumnsInUse(const Velorix& velorix) {
  std::vector<std::pair<std::string, QString>> columns;
  for (const PlotKind plot : AllPlots)
    for (const auto& [column, where] : AxisColumnsOf(velorix.Plots, plot)) {
      const std::string name = ColumnName(column, velorix.Session.Settings);
      const auto known = std::find_if(columns.begin(), columns.end(),
                                      [&](const auto& entry) { return entry.first == name; });
      if (known == columns.end())
        columns.emplace_back(name, where);
      else
        known->second += QString(", ") + where;
    }
  return columns;
}

}  // namespace

frmAxes::frmAxes(Velorix& velorix, QWidget* owner) : QDialog(owner), velorix_(velorix) {
  setObjectName("frmAxes");
  setWindowTitle("Axes");
  auto* rows = new QGridLayout;
  rows->setHorizontalSpacing(12);
  for (int column = 0; column < static_cast<int>(std::size(Headers)); ++column)
    rows->addWidget(new QLabel(QString("<b>%1</b>").arg(Headers[column]), this), 0, column);
  for (const auto& [name, plots] : ColumnsInUse(velorix)) AddRow(*rows, name, plots);

  auto* hint = new QLabel(
      "An empty field is automatic. The step is the distance of the numbers and the width of the\n"
      "histogram's classes, on a logarithmic axis in decades.",
      this);
  fault_ = new QLabel(this);
  fault_->setObjectName("lblFault");
  QPalette red = fault_->palette();
  red.setColor(QPalette::WindowText, QColor(0xC0, 0, 0));
  fault_->setPalette(red);

  auto* buttons = new QDialogButtonBox(this);
  ok_ = buttons->addButton("&OK", QDialogButtonBox::AcceptRole);
  ok_->setObjectName("cmdOK");
  ok_->setDefault(true);
  ok_->setToolTip("Draw the plots with these axes [Enter]");
  auto* automatic = buttons->addButton("&Automatic", QDialogButtonBox::ResetRole);
  automatic->setObjectName("cmdAutomatic");
  automatic->setToolTip("Every axis here as the program chooses it");
  QPushButton* cancel = buttons->addButton("&Cancel", QDialogButtonBox::RejectRole);
  cancel->setToolTip("Leave the axes as they were [Esc]");
  connect(automatic, &QPushButton::clicked, this, [this] { ShowAutomatic(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    Work(velorix_, [this] { SetAxes(velorix_, Chosen()); });
    accept();
  });

  auto* column = new QVBoxLayout(this);
  column->setSpacing(12);
  column->addLayout(rows);
  column->addWidget(hint);
  column->addWidget(fault_);
  column->addWidget(buttons);
}

void frmAxes::AddRow(QGridLayout& rows, const std::string& name, const QString& plots) {
  HandAxis axis;
  if (const auto found = velorix_.Plots.Axes.find(name); found != velorix_.Plots.Axes.end())
    axis = found->second;
  const int at = static_cast<int>(rows_.size()) + 1;
  auto* label = new QLabel(ToQString(name), this);
  label->setTextFormat(Qt::PlainText);
  rows.addWidget(label, at, NameAt);
  rows.addWidget(new QLabel(plots, this), at, PlotsAt);
  const auto control = [at](const char* field) { return QString("%1(%2)").arg(field).arg(at); };
  rows_.push_back({name, AddField(rows, control("txtLower"), LowerAt, axis.Lower),
                   AddField(rows, control("txtUpper"), UpperAt, axis.Upper),
                   AddField(rows, control("txtStep"), StepAt, axis.Step),
                   AddSwitch(rows, control("chkLog"), LogAt, axis.Log),
                   AddSwitch(rows, control("chkReversed"), ReversedAt, axis.Reversed)});
}

QLineEdit* frmAxes::AddField(QGridLayout& rows, const QString& name, int column,
                             const std::optional<double>& value) {
  auto* field = new QLineEdit(this);
  field->setObjectName(name);
  field->setPlaceholderText("automatic");
  field->setMinimumWidth(field->fontMetrics().horizontalAdvance("automatic") + 20);
  field->setToolTip("A number, such as 0.5 or 1e-4");
  if (value) field->setText(ToQString(PlainText(*value)));
  const int row = static_cast<int>(rows_.size()) + 1;
  field->setAccessibleName(QString("%1 of row %2").arg(Headers[column]).arg(row));
  rows.addWidget(field, row, column);
  connect(field, &QLineEdit::textChanged, this, [this] { ShowFault(); });
  return field;
}

QCheckBox* frmAxes::AddSwitch(QGridLayout& rows, const QString& name, int column, bool on) {
  auto* box = new QCheckBox(this);
  box->setObjectName(name);
  box->setChecked(on);
  box->setToolTip(column == LogAt ? "A logarithmic axis" : "The lower end at the right or the top");
  const int row = static_cast<int>(rows_.size()) + 1;
  box->setAccessibleName(QString("%1, row %2").arg(Headers[column]).arg(row));
  rows.addWidget(box, row, column, Qt::AlignHCenter);
  connect(box, &QCheckBox::toggled, this, [this] { ShowFault(); });
  return box;
}

/// Reads a row; what is wrong with it, or nothing.
QString frmAxes::FaultIn(const Row& row, HandAxis& axis) const {
  for (const auto& [field, value] :
       {std::pair{row.Lower, &axis.Lower}, {row.Upper, &axis.Upper}, {row.Step, &axis.Step}}) {
    const QString text = field->text().trimmed().replace(',', '.');
    if (!TakeHandNumber(text.toStdString(), *value))
      return ToQString(row.Name) + ": \"" + field->text() + "\" is no number.";
  }
  axis.Log = row.Log->isChecked();
  axis.Reversed = row.Reversed->isChecked();
  const std::string fault = FaultOf(axis);
  return fault.empty() ? QString() : ToQString(row.Name + ": " + fault);
}

void frmAxes::ShowFault() {
  QString fault;
  for (const Row& row : rows_) {
    HandAxis axis;
    if (fault.isEmpty()) fault = FaultIn(row, axis);
  }
  fault_->setText(fault);
  ok_->setEnabled(fault.isEmpty());
}

void frmAxes::ShowAutomatic() {
  for (const Row& row : rows_) {
    for (QLineEdit* field : {row.Lower, row.Upper, row.Step}) field->clear();
    for (QCheckBox* box : {row.Log, row.Reversed}) box->setChecked(false);
  }
}

HandAxes frmAxes::Chosen() const {
  HandAxes axes = velorix_.Plots.Axes;
  for (const Row& row : rows_) {
    HandAxis axis;
    (void)FaultIn(row, axis);
    axes.erase(row.Name);
    if (axis != HandAxis()) axes[row.Name] = axis;
  }
  return axes;
}

}  // namespace velorix
