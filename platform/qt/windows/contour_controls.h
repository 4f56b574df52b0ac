#pragma once

#include <QScrollArea>
#include <functional>

#include "app/state/contour_session.h"

class QVBoxLayout;

namespace velorix {

/// The frames beside the contour picture: what is counted, how smooth, in which colours, and what
/// is shown. They scroll where the screen is low.
class ContourControls : public QScrollArea {
 public:
  /// Shows the options of `contour` and changes them.
  ContourControls(ContourSession& contour, QWidget* parent);

  std::function<void(ContourDisplay)> OnDisplay;  // something else is to be counted
  std::function<void()> OnChange;                 // the picture is to look different

  /// The height that is out of sight when the frames have the height of their size hint.
  int HiddenHeight() const;

 private:
  QVBoxLayout* AddFrame(const char* name, const char* title);
  void AddDisplays();
  void AddSmooth();
  void AddColours();
  void AddChecks();
  void Change(bool ContourOptions::*option, bool on);

  ContourOptions& options_;
  QWidget* inside_;
  QVBoxLayout* column_;
};

}  // namespace velorix
