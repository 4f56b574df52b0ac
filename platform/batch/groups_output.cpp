#include "platform/batch/groups_output.h"

#include <iostream>

#include "app/display/display.h"
#include "app/tables/groups_csv.h"
#include "platform/batch/json.h"
#include "platform/batch/json_writer.h"
#include "platform/batch/progress.h"
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

}  // namespace velorix
