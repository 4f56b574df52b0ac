#include "platform/batch/groups_output.h"

#include <iostream>

#include "app/commands/picture_commands.h"
#include "app/display/study_heading.h"
#include "app/display/view_values.h"
#include "app/tables/groups_csv.h"
#include "platform/batch/json.h"
#include "platform/batch/json_writer.h"
#include "platform/batch/progress.h"
#include "stats/study/comparison.h"
#include "stats/study/study.h"
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

/// Computes the groups; `take` gets their rows in order.
void Compute(const Velorix& velorix, const std::vector<RecordGroup>& groups, const BootChoice& boot,
             bool saysFailures, bool shown, const TakeRow& take) {
  Progress progress("Computing groups", static_cast<int>(groups.size()), shown);
  const auto hand = [&](GroupRow row) {
    if (saysFailures && row.Failure)
      std::cerr << "Group \"" << row.Name << "\": " << IncompleteText(*row.Failure) << "\n";
    take(std::move(row));
  };
  StudyStatistics(velorix.Session, groups, boot, velorix.GaussTable, hand,
                  [&progress](std::size_t done) {
                    progress.Tell(static_cast<int>(done));
                    return true;
                  });
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
  const auto compute = [&](const TakeRow& write) {
    Compute(velorix, groups, velorix.Bootstrap, true, shown, write);
  };
  const GroupRow all = AllRow(velorix.Session, velorix.Bootstrap, velorix.GaussTable);
  if (form == GroupsForm::Csv) {
    const auto origin =
        OriginOfGroups(velorix.Session, groups, velorix.Plots.Stereo.level, velorix.Bootstrap);
    out << GroupsCsvHeader(velorix.Session.Settings, origin);
    compute([&](const GroupRow& row) { out << GroupsCsvRow(row, origin); });
    out << GroupsCsvRow(all, origin);
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

bool WritePanels(Velorix& velorix, const GroupBy& by, const PictureAnswer& to, bool saysFailures,
                 bool shown) {
  const std::vector<RecordGroup> groups = PartRecords(velorix.Session, by);
  std::vector<GroupRow> rows;
  const BootChoice none = {BootMethod::None, BootReplicates, {}};  // panels show no bootstrap
  Compute(velorix, groups, none, saysFailures, shown,
          [&rows](GroupRow row) { rows.push_back(std::move(row)); });
  std::vector<Panel> panels;
  for (std::size_t i = 0; i < groups.size(); ++i)
    panels.push_back({groups[i].Name, groups[i].Records, &rows[i].Stats});
  return ExportPanels(velorix, to, panels);
}

void WriteComparisons(std::ostream& out, const Velorix& velorix, const GroupBy& by, bool shown) {
  const std::vector<RecordGroup> groups = PartRecords(velorix.Session, by);
  const std::size_t n = groups.size(), pairs = n < 2 ? 0 : n * (n - 1) / 2;
  Progress progress("Comparing groups", static_cast<int>(pairs), shown);
  for (const RecordGroup& group : groups)
    if (const std::string reason = NotComparedReason(velorix.Session, group); !reason.empty())
      std::cerr << "Group \"" << group.Name << "\": not compared: " << reason << ".\n";
  ObjectWriter object(out, 0);
  object.Add("GroupBy", by.Word);
  object.Add("Heading", ComparisonHeading(velorix.Session, groups, velorix.Bootstrap));
  object.Add("Level", NamesOf(ErrorLevel::Confidence95).Word);  // of the regions that may overlap
  AddBootstrap(object, velorix.Bootstrap);
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
