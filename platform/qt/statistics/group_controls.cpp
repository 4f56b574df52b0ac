#include "platform/qt/statistics/group_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

#include "app/commands/hand_groups.h"
#include "app/commands/view_choices.h"
#include "app/display/group_marks.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/change_buttons.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {

GroupControls::GroupControls(Velorix& velorix, QWidget* parent)
    : QWidget(parent), velorix_(velorix) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  auto* caption = new QLabel("&In plots:", this);
  marks_ = new QComboBox(this);
  marks_->setObjectName("cboGroupMarks");
  marks_->setToolTip("What shows the groups in the stereonet, the histogram and the XY plots");
  for (const char* way : {"Off", "Colour", "Shape"}) marks_->addItem(way);  // as in `MarkBy`
  caption->setBuddy(marks_);
  means_ = MakeButton<QCheckBox>("chkGroupMeans", "Mean&s",
                                 "The mean of each group with its ellipses in the stereonet", this);
  legend_ = MakeButton<QCheckBox>("chkGroupLegend", "&Legend",
                                  "The names of the groups below the plots", this);
  notice_ = new QLabel(this);
  notice_->setObjectName("lblGroupMarks");
  notice_->setTextFormat(Qt::PlainText);
  notice_->setWordWrap(true);
  for (QWidget* widget : {static_cast<QWidget*>(caption), static_cast<QWidget*>(marks_),
                          static_cast<QWidget*>(means_), static_cast<QWidget*>(legend_)})
    row->addWidget(widget);
  row->addWidget(notice_, 1);
  const auto button = [&](const char* name, const char* text, const char* tip, auto press) {
    QPushButton* made = MakeDialogButton(name, text, tip, this);
    row->addWidget(made);
    connect(made, &QPushButton::clicked, this, [this, press] { Work(velorix_, press); });
  };
  button("cmdNewGroup", "Ne&w group", "The selected records become a group of their own",
         [this] { NewHandGroup(velorix_); });
  button("cmdRenameGroup", "&Rename...", "Give the group of the selected row another name",
         [this] { Rename(); });
  button("cmdMergeGroups", "&Merge", "Make one group of those of the selected rows",
         [this] { Merge(); });
  connect(marks_, &QComboBox::activated, this, [this] { Choose(); });
  for (QCheckBox* box : {means_, legend_})
    connect(box, &QCheckBox::toggled, this, [this] { Choose(); });
  Show();
}

void GroupControls::Show() {
  const GroupChoices& choices = velorix_.Plots.Groups;
  const QSignalBlocker quietMeans(means_), quietLegend(legend_);
  const bool on = choices.Marks != MarkBy::Nothing;
  marks_->setCurrentIndex(static_cast<int>(choices.Marks));
  means_->setChecked(choices.Means);
  legend_->setChecked(choices.Legend);
  means_->setEnabled(on);
  legend_->setEnabled(on);
  notice_->setText(ToQString(GroupMeansText(velorix_.Plots)));
}

void GroupControls::Choose() {
  GroupChoices choices = velorix_.Plots.Groups;
  choices.Marks = static_cast<MarkBy>(marks_->currentIndex());
  choices.Means = means_->isChecked();
  choices.Legend = legend_->isChecked();
  Work(velorix_, [&] { ChooseGroups(velorix_, choices); });
  Show();
}

void GroupControls::Rename() {
  const std::vector<std::string> names = ChosenNames();
  if (names.size() != 1 || ChosenRows() != 1)
    return velorix_.Views.ShowStatus("Select the row of the one group that gets another name.");
  bool agreed = false;
  const QString name = QInputDialog::getText(window(), "Rename group", "&Name:", QLineEdit::Normal,
                                             ToQString(names.front()), &agreed, {}, Qt::ImhNone);
  if (agreed) RenameHandGroup(velorix_, names.front(), name.toStdString());
}

void GroupControls::Merge() {
  const std::vector<std::string> names = ChosenNames();
  if (ChosenRows() > static_cast<int>(names.size()))
    return velorix_.Views.ShowStatus("The row of all records is no group.");
  MergeHandGroups(velorix_, names);
}

}  // namespace velorix
