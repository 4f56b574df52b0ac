#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/number.h"
#include "plot/drawing/target.h"
#include "store/session.h"

namespace velorix {

// The values of a record that the record grid, the data table, axes, colours and the histogram
// show: one table with a row each. A new value is a row there and a key here.

/// The keys, in the order of the data table but for the factors, which stand before the directions.
enum class Column : std::uint8_t {
  ID,
  Specimen,
  Mode,
  Number,  // running number of a record among those shown; it stands on axes and scales alone
  Field,
  Frequency,
  Km,
  KmSD,
  Kmax,
  KmaxSD,
  Kint,
  KintSD,
  Kmin,
  KminSD,
  Fac1,  // the slots of the factors
  Fac2,
  Fac3,
  Fac4,
  Fac5,
  Fac6,
  Fac7,
  Fac8,
  KmaxDec,
  KmaxInc,
  KintDec,
  KintInc,
  KminDec,
  KminInc,
  F,
  F12,
  F23,
  E12,
  E23,
  E13,
};

/// The column of a factor slot, from 1.
constexpr Column FactorColumn(int slot) {
  return static_cast<Column>(static_cast<int>(Column::Fac1) + slot - 1);
}

/// Ends and steps that a column imposes on its scale.
enum class Bounds { Free, FromZero, FromOne, PlusMinusOne, Declination, Inclination };

/// The picture of four significant digits in exponent form. An empty picture is the plain text.
inline constexpr std::string_view FourDigits = "0.000E+00";

/// A row of the table.
struct ColumnInfo {
  Column key;
  const char* name;   // in the grid and on axes; empty for a column of the data table alone
  const char* upper;  // headers of the data table
  const char* lower;
  int slot;          // of the factor, whose name is the name and both headers; or 0
  const char* unit;  // "A/m", "Hz", "SI", "deg" or empty
  velorix::Bounds bounds;
  std::string_view picture;   // of its numbers in the data table
  Colour colour;              // of its bars in the histogram
  int gridWidth, tableWidth;  // usual longest text, in characters; 0: it doesn't stand there
  // The number of a cell with its width, or its text, which lives as long as the record; the other
  // is null. Km, F tests and angles are those of the block. The running number has neither.
  Number (*value)(const SpecimenRecord& record, bool outOfPhase);
  std::string_view (*text)(const SpecimenRecord& record) = nullptr;
  const char* scaleTitle = nullptr;  // on the stereonet's colour scale, where it isn't the name
};
const ColumnInfo& InfoOf(Column column);

/// The columns of the grid and of the data table, from left to right, and those that axes and
/// colours can show: the running number, then the grid's numbers from the field on.
extern const std::span<const Column> GridColumns, DataTableColumns, PlotColumns;

/// `PlotColumns` from `first` on.
std::span<const Column> PlotColumnsFrom(Column first);

/// The name of a column. The factors carry the names that the settings give them.
std::string ColumnName(Column column, const Settings& settings);

/// What names the column on the stereonet's colour scale.
std::string ScaleTitle(Column column, const Settings& settings);

/// The light tint of a column's header: its bars' colour, a quarter of it with white.
Colour TintOf(Column column);

/// The value on an axis or scale of a column of `PlotColumns`. `number` is the record's running
/// number.
double ColumnValue(Column column, const SpecimenRecord& record, TensorBlock reImMode, int number);

}  // namespace velorix
