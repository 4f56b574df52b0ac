#include "plot/figure/figure_layout.h"

#include <algorithm>
#include <cmath>

#include "plot/drawing/fitting_text.h"
#include "plot/drawing/letters.h"

namespace velorix {
namespace {

constexpr double UnitsPerInch = 100;

/// The size of symbols beside letters as they are now.
constexpr double SymbolsAsNow = 8;

// Rooms in heights of letters.
constexpr double Margin = 0.4, Gap = 1;
constexpr double RimLabel = 2.1;  // beside a net
constexpr double AboveNet = 1.4, BelowNet = 1.6;
constexpr double TitleRoom = 1.6;    // an axis's title and what keeps it from the numbers
constexpr double HeadingRoom = 2.3;  // a plot's title
constexpr double PanelLetterRoom = 1.4;
constexpr double LegendRows = 4, LegendRow = 1.5;
constexpr double BarWidth = 10;                    // units
constexpr double LeastFrame = 9, AroundFrame = 6;  // so that titles fit beside a frame
constexpr double PlotShape = 0.8;  // the height of a plot in a row without a net, in widths

struct Cell {
  double left = 0, top = 0, width = 0, height = 0;
};

class Filling {
 public:
  Filling(const FigureStyle& style, const ShownPlots& plots) : style_(style), plots_(plots) {
    h_ = style.FontSize > 0 ? style.FontSize / PointsPerInch * UnitsPerInch * CellPerEm
                            : LettersAsNow;
    for (const PlotKind kind : AllPlots)
      if (plots.Shown[kind]) kinds_.push_back(kind);
  }

  FigurePlaces Places() {
    places_.Width = style_.Width / MmPerInch * UnitsPerInch;
    places_.LetterHeight = h_;
    const std::size_t columns = Columns();
    const double between = Gap * h_, margin = Margin * h_;
    const double inner = places_.Width - 2 * margin, width = ColumnWidth(columns);
    double top = margin;
    for (std::size_t first = 0; first < kinds_.size(); first += columns) {
      const std::size_t last = std::min(first + columns, kinds_.size());
      double height = std::max(PlotShape * width, (LeastFrame + AroundFrame) * h_);
      for (std::size_t i = first; i < last; ++i)
        if (kinds_[i] == PlotKind::Stereonet) height = NetHeight(width);
      for (std::size_t i = first; i < last; ++i)
        Place(kinds_[i],
              {margin + (width + between) * static_cast<double>(i - first), top, width, height});
      top += height + between;
    }
    if (plots_.GroupLegend) {
      const double height = LegendRows * LegendRow * h_;
      places_.Legend = {margin, top, places_.Width - margin, top + height, h_ / LettersAsNow};
      top += height;
    }
    places_.NameAt = {margin, top};
    for (const std::string& sentence : plots_.Sentences)
      for (const std::string& line : WrappedText(sentence, inner / h_))
        places_.NameLines.push_back(line);
    top += NameStep * h_ * static_cast<double>(places_.NameLines.size());
    const bool endsWithPlots = !plots_.GroupLegend && places_.NameLines.empty() && !kinds_.empty();
    places_.Height = top + margin - (endsWithPlots ? between : 0);
    return places_;
  }

 private:
  std::size_t Columns() const {
    constexpr double NarrowFigure = 100;  // mm
    const auto most = std::max<std::size_t>(kinds_.size(), 1);
    if (style_.Columns > 0) return std::min(static_cast<std::size_t>(style_.Columns), most);
    if (most == 1 || (most == 2 && style_.Width < NarrowFigure)) return 1;
    return HasRoomIn(ColumnWidth(2)) ? 2 : 1;
  }
  double ColumnWidth(std::size_t columns) const {
    const double inner = places_.Width - 2 * Margin * h_;
    return (inner - Gap * h_ * static_cast<double>(columns - 1)) / static_cast<double>(columns);
  }
  /// Whether what surrounds the plots leaves them room in columns of this width.
  bool HasRoomIn(double width) const {
    for (const PlotKind kind : kinds_) {
      const double plot = kind == PlotKind::Stereonet
                              ? Diameter(width)
                              : FrameIn({0, 0, width, width}, plots_.Labels[kind]).width;
      if (plot < LeastFrame * h_) return false;
    }
    return true;
  }
  double LetterRoom() const { return style_.PanelLetters ? PanelLetterRoom * h_ : 0; }
  double Symbols() const {
    return style_.SymbolSize > 0 ? style_.SymbolSize / MmPerInch * UnitsPerInch
                                 : SymbolsAsNow * h_ / LettersAsNow;
  }
  /// What keeps texts clear of a symbol on a frame.
  double SymbolGap() const {
    constexpr double HalfOfLargest = 0.85;
    return HalfOfLargest * Symbols();
  }
  double RimRoom() const { return RimLabel * h_ + SymbolGap(); }
  bool HasKey() const { return style_.Captions == CaptionPlace::Outside; }

  /// Right of the net: the colour scale with its title and numbers.
  double ScaleRoom() const {
    const StereoOptions& net = plots_.Stereo;
    return net.showData && net.colourByValue ? ScaleGap() + BarWidth - RimRoom() + h_ / 2 : 0;
  }
  double ScaleTitle() const { return RimRoom() + h_; }
  double ScaleGap() const {
    constexpr double Labels = 4;
    const bool perAxis = plots_.Stereo.colourRamp == ColourRamp::PerAxis;
    return ScaleTitle() + Labels * h_ + (perAxis ? 3 * BarWidth : 0);
  }
  double CornerRoom() const {
    return style_.Captions == CaptionPlace::AsNow &&
                   (plots_.Stereo.showPlanes || plots_.Stereo.showLines)
               ? 5 * h_
               : 0;
  }
  double Diameter(double width) const {
    return std::max(width - 2 * RimRoom() - std::max(ScaleRoom(), CornerRoom()), h_);
  }
  NetKey KeyOf(double width) const {
    return {plots_.Stereo, plots_.CoorSys, plots_.Plotted, (width - ScaleRoom()) / h_};
  }
  double NetHeight(double width) const {
    double height = LetterRoom() + (AboveNet + BelowNet) * h_ + 2 * SymbolGap() + Diameter(width);
    if (HasKey())
      height += KeyOf(width).Height() * h_;
    else if (style_.Captions == CaptionPlace::AsNow)
      height += 0.15 * Diameter(width);
    return height;
  }

  void Place(PlotKind kind, const Cell& cell) {
    if (style_.PanelLetters) places_.PanelLetters.push_back({cell.left, cell.top + h_});
    if (kind == PlotKind::Stereonet) return PlaceNet(cell);
    places_.Frame[kind] = FrameIn(cell, plots_.Labels[kind]);
  }

  void PlaceNet(const Cell& cell) {
    StereoGeometry& net = places_.Net;
    net.diameter = Diameter(cell.width);
    net.cx = cell.left + RimRoom() + net.diameter / 2;
    if (ScaleRoom() == 0) net.cx = cell.left + (cell.width - CornerRoom()) / 2;
    net.cy = cell.top + LetterRoom() + AboveNet * h_ + SymbolGap() + net.diameter / 2;
    net.labelGap = SymbolGap();
    net.fontHeight = h_;
    net.symbolSize = Symbols();
    if (style_.Captions != CaptionPlace::AsNow) {
      net.scaleTitle = ScaleTitle();
      net.scaleGap = ScaleGap();
    }
    if (!HasKey()) return;
    places_.Key.emplace(KeyOf(cell.width));
    places_.KeyAt = {cell.left, net.cy + net.diameter / 2 + SymbolGap() + BelowNet * h_};
  }

  /// The frame within the room that numbers, titles and the colour scale leave.
  PlotGeometry FrameIn(const Cell& cell, const LabelWidths& labels) const {
    constexpr double HalfNumber = 1.3, TitleStep = 1.3;
    const double gap = std::max(0.5 * h_, SymbolGap());  // from the frame to texts
    PlotGeometry plot;
    plot.fontHeight = h_;
    plot.symbolSize = Symbols();
    const double left = gap + (labels.YAxis + TitleRoom) * h_;
    double right = std::max(HalfNumber * h_, SymbolGap());
    if (labels.Scale) {
      plot.barLeft = gap + (*labels.Scale + HalfNumber / 2) * h_;
      plot.barRight = plot.barLeft + BarWidth;
      plot.barTitle = plot.barRight + 1.4 * h_;
      right = plot.barTitle + 0.4 * h_;
    }
    const double heading = style_.Captions == CaptionPlace::None ? 0 : HeadingRoom * h_;
    const double top = gap + std::max(heading, LetterRoom());
    const double below = gap + (TitleStep + 1) * h_;
    plot.left = cell.left + left;
    plot.width = std::max(cell.width - left - right, h_);
    plot.height = std::max(std::min(cell.height - top - below, plot.width), h_);
    plot.bottom = cell.top + top + plot.height;
    plot.numbersLeft = gap / plot.width;
    plot.numbersBelow = gap / plot.height;
    plot.titleLeft = (gap + (labels.YAxis + 0.5) * h_) / plot.width;
    plot.titleBelow = (gap + (1 + TitleStep / 2) * h_ + 0.4 * h_) / plot.height;
    plot.titleAbove = (gap + 0.4 * h_) / plot.height;
    return plot;
  }

  const FigureStyle& style_;
  const ShownPlots& plots_;
  double h_ = 0;
  std::vector<PlotKind> kinds_;
  FigurePlaces places_;
};

}  // namespace

FigurePlaces FillFigure(const FigureStyle& style, const ShownPlots& plots) {
  return Filling(style, plots).Places();
}

}  // namespace velorix
