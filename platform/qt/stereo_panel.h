#pragma once

#include "app/velorix.h"
#include "platform/qt/plot_panel.h"

class QListWidget;

namespace velorix {

/// The stereonet `picStereo` and the controls of its property frame, each bound to its field of
/// `StereoOptions`.
class StereoPanel : public PlotPanel {
 public:
  StereoPanel(Velorix& velorix, QWidget* parent);

  /// Draws the net again from the session and the options.
  void Redraw();
  /// The check lists of codes are filled again.
  void ShowCodeLists();

 private:
  void AddChecks();
  QListWidget* AddCodes(const char* name, const char* tip, void (*choose)(Velorix&, int, bool));
  void FillCodes(QListWidget& list, const CodeList& codes);

  Velorix& velorix_;
  QListWidget *lstFoli_, *lstLine_;
  bool filling_ = false;
};

}  // namespace velorix
