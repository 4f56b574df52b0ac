#pragma once

#include <array>
#include <cstddef>

namespace velorix {

/// The plots of the main window and of its page.
enum class PlotKind { Stereonet, Histogram, XYPlot1, XYPlot2 };

/// All of them, in the order in which they are drawn.
inline constexpr std::array AllPlots = {PlotKind::Stereonet, PlotKind::Histogram, PlotKind::XYPlot1,
                                        PlotKind::XYPlot2};

/// XY plot 1 or 2.
constexpr PlotKind XYPlotKind(int plot) {
  return plot == 1 ? PlotKind::XYPlot1 : PlotKind::XYPlot2;
}

/// A value for each plot, all the same at first.
template <class T>
class PerPlot {
 public:
  constexpr explicit PerPlot(const T& each = T()) { values_.fill(each); }
  constexpr T& operator[](PlotKind plot) { return values_[static_cast<std::size_t>(plot)]; }
  constexpr const T& operator[](PlotKind plot) const {
    return values_[static_cast<std::size_t>(plot)];
  }

 private:
  std::array<T, AllPlots.size()> values_ = {};
};

}  // namespace velorix
