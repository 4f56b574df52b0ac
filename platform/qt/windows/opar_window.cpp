#include "platform/qt/windows/opar_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include "app/commands/file_commands.h"
#include "platform/qt/parts/change_buttons.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {

frmOPAR::frmOPAR(Velorix& velorix, QWidget* owner) : QDialog(owner), velorix_(velorix) {
  setObjectName("frmOPAR");
  setWindowTitle("Orientation Parameters");
  auto* parameters = new QGroupBox("Orientation Parameters", this);
  auto* rows = new QGridLayout(parameters);
  rows->setHorizontalSpacing(12);
  rows->setVerticalSpacing(8);
  for (int i = 1; i <= 4; ++i) AddRow(*rows, i);
  rows->setColumnStretch(2, 1);

  auto* factor = new QGroupBox("Demagnetizing Factor", this);
  auto* inside = new QVBoxLayout(factor);
  demag_ = new QCheckBox("Use Demagnetizing Factor", factor);
  demag_->setObjectName("chkDemagFac");
  demag_->setToolTip(
      "Correct measurements for the demagnetizing field of the specimen's shape;\n"
      "it is kept in the settings, and nothing uses it yet");
  demag_->setChecked(velorix.Session.Settings.DemagFac);
  inside->addWidget(demag_);

  auto* column = new QVBoxLayout(this);
  column->setSpacing(12);
  column->addWidget(parameters);
  column->addWidget(factor);
  column->addLayout(MakeChangeButtons(
      velorix, *this,
      [this] {
        Lock(false);
        lists_[1]->setFocus();
      },
      [this] { ChangeOrientationParameters(velorix_, Chosen()); }));
  column->setSizeConstraint(QLayout::SetFixedSize);
  Lock(true);
}

/// Label, list, and what the value in the list says.
void frmOPAR::AddRow(QGridLayout& rows, int parameter) {
  QWidget* parent = rows.parentWidget();
  const QString tip = ToQString(OrientationMeaning(parameter));
  auto* list = MakeList(QString("cboOP(%1)").arg(parameter), tip, 4, parent);
  auto* label = new QLabel(QString("OP&%1").arg(parameter), parent);
  label->setToolTip(tip);
  label->setBuddy(list);
  auto* meaning = new QLabel(parent);
  meaning->setObjectName(QString("lblMeaning(%1)").arg(parameter));
  meaning->setToolTip(tip);

  const auto meaningAt = [list, parameter](int index) {
    const auto value = static_cast<std::int16_t>(list->itemText(index).toInt());
    return ToQString(index < 0 ? "" : OrientationValueMeaning(parameter, value));
  };
  for (const std::int16_t value : OrientationValues(parameter)) {
    list->addItem(QString::number(value));
    const int last = list->count() - 1;
    list->setItemData(last, meaningAt(last), Qt::ToolTipRole);
    meaning->setMinimumWidth(std::max(
        meaning->minimumWidth(), meaning->fontMetrics().horizontalAdvance(meaningAt(last)) + 2));
  }
  connect(list, &QComboBox::currentIndexChanged, meaning,
          [meaning, meaningAt](int index) { meaning->setText(meaningAt(index)); });
  list->setCurrentIndex(-1);
  list->setCurrentIndex(list->findText(QString::number(velorix_.Session.Settings.P[parameter])));

  rows.addWidget(label, parameter - 1, 0);
  rows.addWidget(list, parameter - 1, 1);
  rows.addWidget(meaning, parameter - 1, 2);
  lists_[parameter] = list;
}

void frmOPAR::Lock(bool locked) {
  for (QComboBox* list : lists_) list->setEnabled(!locked);
  demag_->setEnabled(!locked);
}

/// A list that shows nothing, since the settings hold a value that is not on offer, changes
/// nothing.
OrientationChoice frmOPAR::Chosen() const {
  OrientationChoice choice{velorix_.Session.Settings.P, demag_->isChecked()};
  for (int i = 1; i <= 4; ++i)
    if (lists_[i]->currentIndex() >= 0)
      choice.P[i] = static_cast<std::int16_t>(lists_[i]->currentText().toInt());
  return choice;
}

}  // namespace velorix
