#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace velorix {

/// How the user set an axis; what is unset is automatic. The ends are values of the column. The
/// step counts values, too, on a logarithmic axis decades.
struct HandAxis {
  std::optional<double> Lower, Upper, Step;
  bool Log = false, Reversed = false;

  bool operator==(const HandAxis&) const = default;
};

/// The axes set by hand, by their columns' names.
using HandAxes = std::map<std::string, HandAxis>;

/// What is wrong with ends and step, in a sentence; empty when the axis can be drawn: the lower end
/// is below the upper one, the step positive and with at most 100 steps, and the ends of a
/// logarithmic axis are positive.
std::string FaultOf(const HandAxis& hand);

/// The words of a style file, "auto 0.5 0.1 log reversed", for lower end, upper end and step, and
/// the switches that are on. The way back gives nothing for other words, nor for a faulty axis.
std::string HandAxisText(const HandAxis& hand);
std::optional<HandAxis> HandAxisOfText(std::string_view text);

/// A number that is typed for an end or a step, nothing for "auto" or no text. False, and `value`
/// as it was, for a text that is no finite number.
bool TakeHandNumber(std::string_view text, std::optional<double>& value);

}  // namespace velorix
