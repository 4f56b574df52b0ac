#include "platform/batch/groups_output.h"

#include <iostream>

#include "app/display/display.h"
#include "app/tables/groups_csv.h"
#include "platform/batch/json.h"
#include "platform/batch/json_writer.h"
#include "platform/batch/progress.h"
#include "stats/comparison.h"
#include "stats/study.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

void WriteRow(ObjectWriter& object, const GroupRow& row, const Velorix& velorix) {
  object.Add("Group", row.Name);
  AddStats(object, row.Stats, velorix.Session.Settings, velorix.Plots.Stereo.level);
  object.End();
}

Json ToJson(double value) { return value; }
Json ToJson(bool value) { return value; }
Json ToJson(const std::optional<bool>& value) { return value ? Json(*value) : Json(); }
template <class T>
Json ToJson(const Array1<T, 3>& axes) {
  return Json::array({ToJson(axes[1]), ToJson(axes[2]), ToJson(axes[3])});
}

Json ComparisonJson(const std::string& a, const std::string& b, const GroupComparison& comparison) {
  const auto when = [](const auto& values) { return values ? ToJson(*values) : Json(); };
  const auto& difference = comparison.ValueDifference;
  Json limits;
  if (difference)
    limits = {{"Lower", ToJson(difference->Lower)}, {"Upper", ToJson(difference->Upper)}};
  return {{"A", a},
          {"B", b},
          {"Angle", when(comparison.Angle)},
          {"Overlap", when(comparison.Overlap)},
          {"AxisDiffers", difference ? ToJson(comparison.AxisDiffers) : Json()},
          {"ValueDifference", limits}};
}

}  // namespace

std::optional<GroupsForm> GroupsFormOf(const std::string& output) {
  const std::string extension = LowerCase(ExtensionOf(output));
  if (output == "-" || extension == "json") return GroupsForm::Json;
  return extension == "csv" ? std::optional(GroupsForm::Csv) : std::nullopt;
}

void WriteGroups(std::ostream& out, const Velorix& velorix, const GroupBy& by, GroupsForm form,
                 bool shown) {
  const std::vector<RecordGroup> groups = PartRecords(velorix.Session, by);
  Progress progress("Computing groups", static_cast<int>(groups.size()), shown);
  const auto compute = [&](const std::function<void(const GroupRow&)>& write) {
    const auto take = [&write](const GroupRow& row) {
      if (!row.Failure.empty())
        std::cerr << "Group \"" << row.Name << "\": " << IncompleteText(row.Failure) << "\n";
      write(row);
    };
    StudyStatistics(velorix.Session, groups, velorix.Bootstrap, velorix.GaussTable, take,
                    [&progress](std::size_t done) {
                      progress.Tell(static_cast<int>(done));
                      return true;
                    });
  };
  const GroupRow all = AllRow(velorix.Session, velorix.Bootstrap, velorix.GaussTable);
  if (form == GroupsForm::Csv) {
    out << GroupsCsvHeader(velorix.Session.Settings);
    compute([&out](const GroupRow& row) { out << GroupsCsvRow(row); });
    out << GroupsCsvRow(all);
    return;
  }
  ObjectWriter object(out, 0);
  object.Add("GroupBy", by.Word);
  object.Add("Heading", LevelHeading(velorix.Plots.Stereo));
  object.BeginList("Groups");
  compute([&](const GroupRow& row) {
    object.NextElement();
    ObjectWriter group(out, 2);
    WriteRow(group, row, velorix);
  });
  object.EndList();
  object.Begin("All");
  ObjectWriter group(out, 1);
  WriteRow(group, all, velorix);
  object.End();
  out << '\n';
}

void WriteComparisons(std::ostream& out, const Velorix& velorix, const GroupBy& by, bool shown) {
  const std::vector<RecordGroup> groups = PartRecords(velorix.Session, by);
  const std::size_t n = groups.size(), pairs = n < 2 ? 0 : n * (n - 1) / 2;
  Progress progress("Comparing groups", static_cast<int>(pairs), shown);
  ObjectWriter object(out, 0);
  object.BeginList("Pairs");
  CompareGroups(
      velorix.Session, groups, velorix.Bootstrap, velorix.GaussTable,
      [&](std::size_t a, std::size_t b, const GroupComparison& comparison) {
        object.NextElement();
        out << ComparisonJson(groups[a].Name, groups[b].Name, comparison)
                   .dump(-1, ' ', false, Json::error_handler_t::replace);
      },
      [&progress](std::size_t done) {
        progress.Tell(static_cast<int>(done));
        return true;
      });
  object.EndList();
  object.End();
  out << '\n';
}

}  // namespace velorix
