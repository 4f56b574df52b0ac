#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "plot/drawing/group_mark.h"
#include "stats/group/group_statistics.h"
#include "store/session.h"

namespace velorix {

/// What shows the groups in the plots.
enum class MarkBy { Nothing, Colours, Shapes };

inline constexpr std::uint16_t NoGroup = 0xFFFF;

/// The groups of the records as the net, the XY plots and the histogram show them. By default they
/// show none and are drawn as without.
struct GroupMarks {
  struct Group {
    std::string Name;
    int Count = 0;  // records in view
  };
  struct Mean {
    std::uint16_t Group = 0;
    GroupStats Stats;
  };

  MarkBy By = MarkBy::Nothing;
  bool Legend = false;
  std::vector<Group> Groups;      // of the whole store, so that a group keeps its mark in each view
  std::vector<std::uint16_t> Of;  // the group of each record, by its place in the store from 0
  std::vector<Mean> Means;        // those that the net shows

  bool AreShown() const { return By != MarkBy::Nothing; }
  /// Of the record at a place from 0.
  std::uint16_t GroupOf(std::size_t place) const { return place < Of.size() ? Of[place] : NoGroup; }
  std::optional<GroupMark> MarkOf(std::size_t place) const {
    const std::uint16_t group = GroupOf(place);
    return group == NoGroup ? std::nullopt : std::optional(MarkOfGroup(group));
  }
};

/// What shows the groups of symbols that values may colour: colours then belong to the values.
inline MarkBy SymbolsBy(MarkBy by, bool valuesColour) {
  return by != MarkBy::Nothing && valuesColour ? MarkBy::Shapes : by;
}

/// The groups of the records in view, in store order: those of the values that a histogram counts.
std::vector<std::uint16_t> ShownGroups(const Session& session, const GroupMarks& marks);

/// What the symbols of a legend have in common: one shape where colours alone show the groups, one
/// colour where shapes do.
struct LegendLook {
  std::optional<std::int16_t> Symbol;
  std::optional<velorix::Colour> Colour;
};
inline constexpr std::int16_t NeutralSymbol = 0;
inline constexpr Colour NeutralColour = 0xC0C0C0;

/// Where a legend stands, in logical units, and how many times the usual size its letters and
/// symbols are.
struct LegendBox {
  double left = 0, top = 0, right = 0, bottom = 0, scale = 1;
};

/// A plot's plane with room for the legend below it.
PlaneSize WithLegend(PlaneSize plane, const GroupMarks& marks);

/// The names of the groups in view, each with its symbol, in rows below `plane`. Names that are too
/// long are shortened; what finds no room in six rows is counted: "... and 12 more". Nothing
/// without groups or with the legend off.
void DrawLegendBelow(Target& target, PlaneSize plane, const GroupMarks& marks,
                     const LegendLook& look);

/// The same in as many rows as a box has room for, all lengths times `s`.
void DrawLegendIn(Target& target, const LegendBox& place, const GroupMarks& marks,
                  const LegendLook& look, double s);

}  // namespace velorix
