#include "platform/batch/untilt_output.h"

#include <iostream>

#include "app/tables/untilting_table.h"
#include "platform/batch/json_writer.h"
#include "platform/batch/progress.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

Json OrNull(const auto& value) { return value ? Json(*value) : Json(); }

Json BestJson(const UntiltBest& best) {
  const auto& limits = best.Limits;
  return {{"Best", OrNull(best.Step)},
          {"Lower", limits ? Json(limits->Lower) : Json()},
          {"Upper", limits ? Json(limits->Upper) : Json()},
          {"Resamplings", best.Resamplings},
          {"Verdict", limits ? Json(best.Verdict) : Json()}};
}

}  // namespace

UntiltForm UntiltFormOf(const std::string& output) {
  const std::string extension = LowerCase(ExtensionOf(output));
  if (output == "-" || extension == "json") return UntiltForm::Json;
  return extension == "wmf" ? UntiltForm::Metafile : UntiltForm::Picture;
}

Untilting UntiltForBatch(const Velorix& velorix, const GroupBy& by, bool shown) {
  const std::vector<RecordGroup> groups = PartRecords(velorix.Session, by);
  Progress progress("Untilting groups", UntiltSteps, shown);
  Untilting untilting =
      *UntiltGroups(velorix.Session, groups, velorix.Bootstrap.Seed, [&progress](int done) {
        progress.Tell(done);
        return true;
      });
  for (const UntiltedGroup& group : untilting.Groups)
    if (!group.Used)
      std::cerr << "Group \"" << group.Name << "\": not untilted: " << NotUntiltedReason(group)
                << ".\n";
  const std::string nothing = NothingUntilted(untilting);
  if (!nothing.empty()) std::cerr << "--untilt: " << nothing << "\n";
  return untilting;
}

void WriteUntiltJson(std::ostream& out, const Untilting& untilting, const GroupBy& by,
                     const std::string& heading) {
  ObjectWriter object(out, 0);
  const auto addList = [&](const char* name, const auto& rows, const auto& jsonOf) {
    object.BeginList(name);
    for (const auto& row : rows) {
      object.NextElement();
      out << Json(jsonOf(row)).dump(-1, ' ', false, Json::error_handler_t::replace);
    }
    object.EndList();
  };
  object.Add("GroupBy", by.Word);
  object.Add("Heading", heading);
  object.Add("Foliation", untilting.Foliation);
  addList("Groups", untilting.Groups, [](const UntiltedGroup& group) {
    return Json{{"Group", group.Name}, {"N", OrNull(group.Used)}, {"LeftOut", group.LeftOut}};
  });
  object.Add("LeftOut", untilting.LeftOut);
  object.Add("Seed", untilting.Seed);
  addList("Steps", untilting.Steps, [](const UntiltStep& step) {
    return Json{{"Step", step.Percent},
                {"P", OrNull(step.P)},
                {"T", OrNull(step.T)},
                {"TauMax", OrNull(step.TauMax)},
                {"TauMin", OrNull(step.TauMin)}};
  });
  object.Add("Kmax", BestJson(untilting.Kmax));
  object.Add("Kmin", BestJson(untilting.Kmin));
  object.End();
  out << '\n';
}

}  // namespace velorix
