#include "platform/qt/main_window/status_labels.h"

#include <QLabel>
#include <QStatusBar>

#include "app/display/shown_group.h"
#include "platform/qt/parts/marks.h"
#include "platform/qt/parts/widgets.h"
#include "text/numbers.h"

namespace velorix {

void StatusLabels::Build(QStatusBar& bar) {
  const auto add = [&bar](const char* name, const char* tip) {
    auto* label = new QLabel(&bar);
    label->setObjectName(name);
    label->setToolTip(tip);
    bar.addPermanentWidget(label);
    return label;
  };
  mean_ = add("lblMean",
              "The group statistics and the mean on the stereonet belong to this view, not to the "
              "one shown. Clear Selection (Shift+Ctrl+F12) computes them for the one shown");
  mean_->setMinimumWidth(1);  // a long text does not widen the window
  MarkLabel(*mean_, true);
  disregarded_ = add("lblDisregarded",
                     "Records that are disregarded, and those that the view shows of the others");
  unsaved_ = add("lblUnsaved", "The records differ from those in any file; Save As writes them");
  counts_ = add("lblRecords", "Records in view, in the store, and selected");
  startTime_ = add("picStat(2)", "Seconds that the start took");
}

void StatusLabels::ShowRecords(const Velorix& velorix, int inView) {
  const auto show = [](QLabel& label, const std::string& text) {
    label.setText(ToQString(text));
    label.setVisible(!text.empty());
  };
  show(*mean_, MeanLabel(velorix.Session, velorix.GroupOf, velorix.GroupStats.GroupN));
  show(*disregarded_, DisregardedLabel(velorix.Session));
  int selected = 0;
  for (const SpecimenRecord& record : velorix.Session.Records) selected += record.Selected;
  counts_->setText(QString("%1 of %2 records in view, %3 selected")
                       .arg(inView)
                       .arg(velorix.Session.RecordCount())
                       .arg(selected));
}

void StatusLabels::ShowUnsaved(bool unsaved) { unsaved_->setText(unsaved ? "Not saved" : ""); }

void StatusLabels::ShowStartTime(float seconds) {
  startTime_->setText(ToQString(FormatNumber(seconds, "0.0")));
}

}  // namespace velorix
