#include "plot/axes/column_axis.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "text/numbers.h"

namespace velorix {

Extent ImposeBounds(Column column, const Extent& values) {
  switch (InfoOf(column).bounds) {
    case Bounds::Free:
      return values;
    case Bounds::FromZero:
      return {0, values.upper};
    case Bounds::FromOne:
      return {1, values.upper};
    case Bounds::PlusMinusOne:
      return {-1, 1};
    case Bounds::Declination:
      return {0, 360};
    case Bounds::Inclination:
      return {0, 90};
  }
  return values;
}

AxisRange ColumnScale(Column column, double lower, double upper) {
  const Bounds bounds = InfoOf(column).bounds;
  if (bounds == Bounds::Declination) return {0, 360, 0, 30, 10};
  if (bounds == Bounds::Inclination) return {0, 90, 0, 10, 2};
  AxisRange axis = AxisScale(lower, upper);
  // The first tick can come to lie a rounding error above the smallest value.
  axis.lower = std::min(axis.lower, lower);
  const Extent imposed = ImposeBounds(column, {axis.lower, axis.upper});
  if (imposed.lower != axis.lower) axis.first = imposed.lower;
  axis.lower = imposed.lower;
  axis.upper = column == Column::Number ? upper : imposed.upper;  // the largest running number
  return axis;
}

namespace {

/// A range from `lower` to `upper`, which are whole steps where they are not set by hand. The ticks
/// begin at the lower end.
AxisRange HandRange(const HandAxis& hand, double lower, double upper, const Extent& fixed) {
  AxisRange axis;
  const AxisRange automatic = AxisScale(lower, upper);
  const bool stepFits = hand.Step && (upper - lower) / *hand.Step <= MaxTicks - 1;
  axis.step = stepFits ? *hand.Step : automatic.step;
  const std::int64_t leading = std::lround(std::fabs(SplitExponent(axis.step).Mantissa));
  axis.minor = axis.step / (leading == 1 || leading == 5 || leading == 10 ? 5 : 2);
  const auto whole = [&](double steps) { return steps * axis.step; };
  constexpr double Hair = 1e-9;
  axis.lower =
      hand.Lower || lower == fixed.lower ? lower : whole(std::floor(lower / axis.step + Hair));
  axis.upper =
      hand.Upper || upper == fixed.upper ? upper : whole(std::ceil(upper / axis.step - Hair));
  if (!(axis.upper > axis.lower)) axis.upper = axis.lower + axis.step;
  axis.first = axis.lower;
  return axis;
}

/// The values with the ends set by hand. An automatic end that these leave behind goes as far
/// beyond the other one as for values of one size.
Extent HandEnds(const HandAxis& hand, Extent values) {
  if (hand.Lower) values.lower = *hand.Lower;
  if (hand.Upper) values.upper = *hand.Upper;
  if (values.lower < values.upper || hand.Lower.has_value() == hand.Upper.has_value())
    return values;
  const double end = hand.Lower ? *hand.Lower : *hand.Upper;
  const AxisRange scale = AxisScale(end, end);
  (hand.Lower ? values.upper : values.lower) =
      end + (hand.Lower ? 1 : -1) * (scale.upper - scale.lower);
  return values;
}

AxisRange LinearRange(Column column, const HandAxis& hand, const Extent& values) {
  if (!hand.Lower && !hand.Upper && !hand.Step)
    return ColumnScale(column, values.lower, values.upper);
  Extent fixed = ImposeBounds(column, Extent());
  if (column == Column::Number) fixed.upper = values.upper;  // the largest running number
  const Extent ends = HandEnds(hand, ImposeBounds(column, values));
  return HandRange(hand, ends.lower, ends.upper, fixed);
}

/// Whole decades where nothing is set by hand.
AxisRange LogRange(HandAxis hand, const Extent& values) {
  for (std::optional<double>* end : {&hand.Lower, &hand.Upper})
    if (*end) *end = std::log10(**end);
  const Extent ends = HandEnds(
      hand, {std::floor(std::log10(values.leastPositive)), std::ceil(std::log10(values.upper))});
  AxisRange axis = HandRange(hand, ends.lower, ends.upper, {});
  if (!hand.Lower) axis.lower = axis.first = ends.lower;
  if (!hand.Upper) axis.upper = std::max(ends.upper, axis.lower + 1);
  return axis;
}

/// The decimals that show each tick of a range of `tens` as it is.
int DecimalsOfTicks(const AxisRange& range, int tens) {
  const double unit = std::pow(10, tens);
  return std::max(DecimalsOf(range.first / unit), DecimalsOf(range.step / unit));
}

}  // namespace

Axis ColumnAxis(Column column, const Extent& values, const Settings& settings,
                const HandAxes* axes) {
  const std::string name = ColumnName(column, settings);
  const auto hand = axes ? axes->find(name) : HandAxes::const_iterator();
  if (!axes || hand == axes->end()) return ColumnAxis(column, values.lower, values.upper, settings);
  Axis axis;
  axis.label = name;
  axis.unit = InfoOf(column).unit;
  axis.reversed = hand->second.Reversed;
  axis.log = hand->second.Log;
  if (axis.log) {
    if (std::isfinite(values.leastPositive)) axis.range = LogRange(hand->second, values);
    return axis;
  }
  axis.range = LinearRange(column, hand->second, values);
  axis.power = column == Column::Km;
  if (axis.power)
    axis.tens =
        SplitExponent(std::max(std::fabs(axis.range.lower), std::fabs(axis.range.upper))).Exponent;
  axis.decimals = DecimalsOfTicks(axis.range, axis.tens.value_or(0));
  return axis;
}

Axis ColumnAxis(Column column, double lower, double upper, const Settings& settings) {
  Axis axis;
  axis.range = ColumnScale(column, lower, upper);
  axis.label = ColumnName(column, settings);
  axis.unit = InfoOf(column).unit;
  axis.power = column == Column::Km;
  return axis;
}

}  // namespace velorix
