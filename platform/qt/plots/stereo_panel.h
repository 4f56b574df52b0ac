#pragma once

#include <functional>

#include "app/commands/velorix.h"
#include "platform/qt/plots/plot_panel.h"

class QComboBox;
class QGridLayout;
class QListWidget;

namespace velorix {

struct OptionCheck;

/// The stereonet `picStereo` and the controls of its property frame, each bound to its field of
/// `StereoOptions`.
class StereoPanel : public PlotPanel {
 public:
  StereoPanel(Velorix& velorix, QWidget* parent);

  /// Draws the net again from the session and the options.
  void Redraw();
  /// The check lists of codes are filled again.
  void ShowCodeLists();
  /// The list of parameters takes the grid's headers again.
  void ShowGridHeader();

 private:
  void AddChecks();
  void AddCheck(const OptionCheck& check, QGridLayout& group);
  void AddColourCoding(QGridLayout& group);
  void EnableColourCoding(bool on);
  void ChangeOption(const std::function<void(StereoOptions&)>& change);
  QListWidget* AddCodes(const char* name, const char* tip, void (*choose)(Velorix&, int, bool));
  void FillCodes(QListWidget& list, const CodeList& codes);

  Velorix& velorix_;
  QListWidget *lstFoli_, *lstLine_;
  QComboBox* parameters_;
  std::vector<QWidget*> colourWays_;
  bool filling_ = false;
};

}  // namespace velorix
