#pragma once

#include <string>
#include <vector>

#include "plot/drawing/recorder.h"

namespace velorix {

/// What `draw(target)` drew.
template <class Draw>
std::vector<DrawCall> Recorded(Draw draw) {
  Recorder recorder;
  draw(recorder);
  return recorder.calls;
}

/// The calls of one kind, in order.
template <class Call>
std::vector<Call> CallsOf(const std::vector<DrawCall>& calls) {
  std::vector<Call> found;
  for (const DrawCall& call : calls)
    if (const auto* one = std::get_if<Call>(&call)) found.push_back(*one);
  return found;
}

/// Where a call lies; a text by its point, a colour scale by its lower corners.
inline std::vector<LogicalPoint> PointsOf(const DrawCall& call) {
  if (const auto* c = std::get_if<PolygonCall>(&call)) return c->points;
  if (const auto* c = std::get_if<PolylineCall>(&call)) return c->points;
  if (const auto* c = std::get_if<EllipseCall>(&call))
    return {{c->box.left, c->box.top}, {c->box.right, c->box.bottom}};
  if (const auto* c = std::get_if<PixelCall>(&call)) return {c->point};
  if (const auto* c = std::get_if<RampCall>(&call))
    return {{c->sides.front(), c->bottom}, {c->sides.back(), c->bottom}};
  if (const auto* c = std::get_if<TextCall>(&call)) return {c->point};
  return {};
}

/// The words drawn, each with a bar behind.
inline std::string WordsOf(const std::vector<DrawCall>& calls) {
  std::string words;
  for (const TextCall& call : CallsOf<TextCall>(calls)) words += call.text + "|";
  return words;
}

}  // namespace velorix
