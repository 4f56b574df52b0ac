#include "platform/qt/windows/factor_window.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include "platform/qt/parts/change_buttons.h"
#include "platform/qt/parts/widgets.h"
#include "tensor/aniso_factor.h"

namespace velorix {

frmAnisoFac::frmAnisoFac(Velorix& velorix, QWidget* owner) : QDialog(owner) {
  setObjectName("frmAnisoFac");
  setWindowTitle("Anisotropy Quantitative Factors");
  auto* rows = new QGridLayout;
  rows->setHorizontalSpacing(12);
  rows->addWidget(new QLabel("Name", this), 0, 1);
  rows->addWidget(new QLabel("Factor", this), 0, 2);
  rows->setColumnStretch(2, 1);
  const FactorRows shown = FactorRowsOf(velorix.Session.Settings);
  for (int slot = 1; slot <= FactorSlots; ++slot) AddRow(*rows, slot, shown[slot]);
  auto* letters = new QLabel(FactorLetters, this);
  letters->setObjectName("lblLetters");

  auto* column = new QVBoxLayout(this);
  column->addLayout(rows);
  column->addSpacing(6);
  column->addWidget(letters);
  column->addSpacing(12);
  column->addLayout(MakeChangeButtons(
      velorix, *this,
      [this] {
        Lock(false);
        names_[1]->setFocus();
      },
      [this, &velorix] { ChangeFactors(velorix.Session, Chosen()); }));
  column->setSizeConstraint(QLayout::SetFixedSize);
  Lock(true);
}

void frmAnisoFac::AddRow(QGridLayout& rows, int slot, const FactorRow& row) {
  auto* number = new QLabel(QString("&%1").arg(slot), this);
  number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* name = new QLineEdit(ToQString(row.Name), this);
  name->setObjectName(QString("txtFac(%1)").arg(slot));
  name->setToolTip("Short name of the factor, without blanks");
  name->setAccessibleName(QString("Name of factor %1").arg(slot));
  name->setFixedWidth(10 * name->fontMetrics().averageCharWidth() + 16);
  name->installEventFilter(this);
  auto* list = MakeList(QString("cboFac(%1)").arg(slot), FactorLetters, 0, this);
  for (int index = 1; index <= LastFactor; ++index)
    list->addItem(ToQString(std::string(FactorText(index))));
  list->setAccessibleName(QString("Formula of factor %1").arg(slot));
  list->setCurrentIndex(row.Position);
  number->setBuddy(name);
  rows.addWidget(number, slot, 0);
  rows.addWidget(name, slot, 1);
  rows.addWidget(list, slot, 2);
  names_[slot] = name;
  formulas_[slot] = list;
}

void frmAnisoFac::Lock(bool locked) {
  for (int slot = 1; slot <= FactorSlots; ++slot) {
    names_[slot]->setEnabled(!locked);
    formulas_[slot]->setEnabled(!locked);
  }
}

FactorRows frmAnisoFac::Chosen() const {
  FactorRows rows;
  for (int slot = 1; slot <= FactorSlots; ++slot)
    rows[slot] = {names_[slot]->text().toStdString(), formulas_[slot]->currentIndex()};
  return rows;
}

/// A text box that gets the focus selects all of its text; later, so that the click which brought
/// the focus does not undo it.
bool frmAnisoFac::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::FocusIn)
    QTimer::singleShot(0, object, [box = static_cast<QLineEdit*>(object)] { box->selectAll(); });
  return QDialog::eventFilter(object, event);
}

}  // namespace velorix
