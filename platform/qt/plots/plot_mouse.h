#pragma once

#include <functional>

#include "app/display/plot_mouse.h"
#include "platform/qt/plots/picture_widget.h"

namespace velorix {

/// What the mouse does on a plot; an empty function is nothing. Places are in the picture's plane.
struct PlotMouse {
  std::function<void(double x, double y)> ReadOut = {};
  std::function<void()> Leave = {};  // the mouse has left the plot
  /// What the symbol at a place stands for, empty where there is none; the picture is `zoom` times
  /// enlarged. Shown in the picture's tip and, where no message stands, in the status line.
  std::function<std::string(const Point& place, double zoom)> Name = {};
  /// A box was drawn with the left button.
  std::function<void(const MouseBox& box, int keys)> Select = {};
  /// A lasso was drawn with the left button, which draws one while `LassoOn` holds. One without
  /// area counts as a box without extent.
  std::function<void(const Lasso& lasso, int keys)> SelectIn = {};
  std::function<bool()> LassoOn = {};  // there where `SelectIn` is
  /// A measuring cross shows under the middle button, and with Ctrl and Shift under the left one.
  bool Cross = false;
};

/// Gives the picture its mouse.
void AttachMouse(PictureWidget& picture, const PlotMouse& mouse);

}  // namespace velorix
