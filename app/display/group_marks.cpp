#include "app/display/group_marks.h"

#include <algorithm>
#include <unordered_map>

#include "stats/study/study.h"

namespace velorix {
namespace {

using Places = std::unordered_map<std::string, std::uint16_t>;

/// The groups of all records, by name; `marks` gets them in the order of their first record.
Places NumberGroups(const Session& session, const GroupBy& by, GroupMarks& marks) {
  Places places;
  for (const std::string& name : GroupNames(session, by)) {
    const auto next = static_cast<std::uint16_t>(marks.Groups.size());
    const auto [place, isNew] = places.try_emplace(name, next);
    if (isNew) marks.Groups.push_back({name, 0});
    marks.Of.push_back(place->second);
  }
  return places;
}

void ComputeMeans(const Session& session, const GroupBy& by, const std::vector<float>& gaussTable,
                  const Places& places, GroupMarks& marks) {
  const auto groups = PartRecords(session, by);
  if (groups.size() > MostGroupMeans) return;
  StudyStatistics(session, groups, {BootMethod::None, BootReplicates, {}}, gaussTable,
                  [&](GroupRow row) {
                    marks.Means.push_back({places.at(row.Name), std::move(row.Stats)});
                  });
}

std::size_t GroupsInView(const GroupMarks& marks) {
  return static_cast<std::size_t>(
      std::count_if(marks.Groups.begin(), marks.Groups.end(),
                    [](const GroupMarks::Group& group) { return group.Count > 0; }));
}

}  // namespace

void MarkGroups(const Session& session, const std::vector<float>& gaussTable, PlotChoices& plots) {
  const GroupChoices& choices = plots.Groups;
  GroupMarks marks;
  if (choices.Marks != MarkBy::Nothing && choices.Parting) {
    marks.By = choices.Marks;
    marks.Legend = choices.Legend;
    const Places places = NumberGroups(session, *choices.Parting, marks);
    for (const std::uint16_t group : ShownGroups(session, marks)) ++marks.Groups[group].Count;
    if (choices.Means) ComputeMeans(session, *choices.Parting, gaussTable, places, marks);
  }
  plots.Stereo.showGroupMeans = !marks.Means.empty();
  plots.Marks = std::move(marks);
}

std::string GroupMeansText(const PlotChoices& plots) {
  const std::size_t groups = GroupsInView(plots.Marks);
  if (!plots.Groups.Means || groups <= MostGroupMeans) return {};
  return "The net shows means of up to " + std::to_string(MostGroupMeans) + " groups; these are " +
         std::to_string(groups) + ".";
}

}  // namespace velorix
