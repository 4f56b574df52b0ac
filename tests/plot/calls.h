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

/// The words drawn, each with a bar behind.
inline std::string WordsOf(const std::vector<DrawCall>& calls) {
  std::string words;
  for (const TextCall& call : CallsOf<TextCall>(calls)) words += call.text + "|";
  return words;
}

}  // namespace velorix
