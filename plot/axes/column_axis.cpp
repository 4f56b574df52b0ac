#include "plot/axes/column_axis.h"

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

Axis ColumnAxis(Column column, double lower, double upper, const Settings& settings) {
  Axis axis;
  axis.range = ColumnScale(column, lower, upper);
  axis.label = ColumnName(column, settings);
  axis.unit = InfoOf(column).unit;
  axis.power = column == Column::Km;
  return axis;
}

}  // namespace velorix
