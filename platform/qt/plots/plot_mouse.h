#pragma once

#include <functional>

#include "app/display/plot_mouse.h"
#include "platform/qt/plots/picture_widget.h"

namespace velorix {

/// What the mouse does on a plot; an empty function is nothing. Places are in the picture's plane.
struct PlotMouse {
  std::function<void(double x, double y)> ReadOut = {};
  std::function<void()> Leave = {};  // the mouse has left the plot
  /// A box was drawn with the left button.
  std::function<void(const MouseBox& box, int keys)> Select = {};
  /// A measuring cross shows under the middle button, and with Ctrl and Shift under the left one.
  bool Cross = false;
};

/// Gives the picture its mouse.
void AttachMouse(PictureWidget& picture, const PlotMouse& mouse);

}  // namespace velorix
