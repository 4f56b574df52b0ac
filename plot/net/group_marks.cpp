#include "plot/net/group_marks.h"

#include <algorithm>

#include "base/rounding.h"
#include "plot/drawing/drawing.h"
#include "plot/drawing/fitting_text.h"

namespace velorix {
namespace {

constexpr double Letters = 12, RowHeight = 15, SymbolSize = 10;
constexpr double TextAt = 12, Gap = 10;               // right of the symbol's centre, behind a name
constexpr double ShortestName = 6, LongestName = 11;  // in letters
constexpr double MostRows = 6, SideRoom = 12, Room = 4;  // at its sides, above and below

/// More names than that stand in no legend.
constexpr std::size_t MostNames = 200;

std::vector<std::uint16_t> InView(const GroupMarks& marks) {
  std::vector<std::uint16_t> groups;
  if (marks.AreShown() && marks.Legend)
    for (std::size_t i = 0; i < marks.Groups.size(); ++i)
      if (marks.Groups[i].Count > 0) groups.push_back(static_cast<std::uint16_t>(i));
  return groups;
}

std::string NameOf(const GroupMarks::Group& group) {
  return group.Name.empty() ? "(no name)" : group.Name;
}

/// Places of a legend's names, all of a width.
struct LegendGrid {
  std::vector<std::uint16_t> groups;
  std::size_t columns = 1, rows = 0;  // rows with names
  double columnWidth = 0;

  /// As many columns as whole names leave room for, or more with shorter names where the rows that
  /// the box has room for would not hold all.
  LegendGrid(const GroupMarks& marks, const LegendBox& box) : groups(InView(marks)) {
    double longest = ShortestName;
    for (std::size_t i = 0; i < groups.size() && i < MostNames; ++i)
      longest = std::max(longest, TextWidth(NameOf(marks.Groups[groups[i]])));
    const double width = box.right - box.left, rest = TextAt + Gap;
    const double room = std::max((box.bottom - box.top) / RowHeight, 1.0);
    columnWidth = rest + std::min(longest, LongestName) * Letters;
    columns = static_cast<std::size_t>(std::max(width / columnWidth, 1.0));
    rows = static_cast<std::size_t>(room);
    while (groups.size() > columns * rows &&
           width / static_cast<double>(columns + 1) >= rest + ShortestName * Letters)
      columnWidth = width / static_cast<double>(++columns);
    rows = std::min(rows, (groups.size() + columns - 1) / columns);
  }
  /// The room of a name, a little more than it needs.
  double LettersOfName() const { return (columnWidth - TextAt - Gap) / Letters + 1e-6; }
};

LegendBox BelowPlane(PlaneSize plane) {
  const double top = plane.height + Room;
  return {SideRoom, top, plane.width - Room, top + MostRows * RowHeight};
}

}  // namespace

std::vector<std::uint16_t> ShownGroups(const Session& session, const GroupMarks& marks) {
  std::vector<std::uint16_t> groups;
  if (marks.AreShown())
    ForEachActive(session, [&](const SpecimenRecord& record) {
      groups.push_back(marks.GroupOf(static_cast<std::size_t>(&record - session.Records.begin())));
    });
  return groups;
}

PlaneSize WithLegend(PlaneSize plane, const GroupMarks& marks) {
  const std::size_t rows = LegendGrid(marks, BelowPlane(plane)).rows;
  if (rows > 0) plane.height += static_cast<int>(2 * Room + RowHeight * static_cast<double>(rows));
  return plane;
}

void DrawLegendBelow(Target& target, PlaneSize plane, const GroupMarks& marks,
                     const LegendLook& look) {
  DrawLegendIn(target, BelowPlane(plane), marks, look, 1);
}

void DrawLegendIn(Target& target, const LegendBox& place, const GroupMarks& marks,
                  const LegendLook& look, double s) {
  target.Layer("legend of groups");
  const LegendBox box = {place.left / place.scale, place.top / place.scale,
                         place.right / place.scale, place.bottom / place.scale};
  s *= place.scale;
  const LegendGrid grid(marks, box);
  const std::vector<std::uint16_t>& groups = grid.groups;
  const std::size_t room = grid.columns * grid.rows;
  const std::size_t named = groups.size() <= room ? groups.size() : room - 1;
  const auto text = [&](const std::string& words, double x, double y) {
    DrawText(target, words, x * s, (y + Letters / 3) * s, {.height = ToShort(Letters * s)});
  };
  for (std::size_t i = 0; i <= named && i < groups.size(); ++i) {
    const double x =
        box.left + SymbolSize / 2 + grid.columnWidth * static_cast<double>(i % grid.columns);
    const std::size_t row = i / grid.columns;
    const double y = box.top + RowHeight * (static_cast<double>(row) + 0.5) + 0.5;
    if (i == named) {
      text("... and " + std::to_string(groups.size() - named) + " more", x - SymbolSize / 2, y);
      continue;
    }
    const GroupMark mark = MarkOfGroup(groups[i]);
    DrawMark(target, look.Symbol.value_or(mark.symbol), mark.finish, x * s, y * s,
             ToShort(SymbolSize * s), look.Colour.value_or(mark.colour));
    text(FittingText(NameOf(marks.Groups[groups[i]]), grid.LettersOfName()), x + TextAt, y);
  }
}

}  // namespace velorix
