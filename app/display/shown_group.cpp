#include "app/display/shown_group.h"

#include "app/display/display.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

std::string OpenFileNames(const Session& session) {
  std::string names = Utf8Of(PathOf(session.CurrentFile).filename());
  if (session.OpenFiles.size() > 1)
    names += " and " + std::to_string(session.OpenFiles.size() - 1) + " more";
  return names;
}

/// What the rotation to the view's system goes by: "foliation S horizontal, lineation L north". The
/// lower two systems ask for no code.
std::string TurnedBy(const Session& session) {
  if (session.CoorSys != Paleogeographic && session.CoorSys != Tectonic) return {};
  std::string text = "foliation " + session.FoliCode + " " +
                     LowerCase(TectoPlaneNames[IndexOf(session.TectoPlane)]) + ", lineation " +
                     session.LineCode;
  if (session.CoorSys == Paleogeographic) return text;
  return text + " " + LowerCase(TectoAxisNames[TectoAxisIndex(session)]);
}

/// "geographic, N = 21".
std::string SystemAndCount(const Velorix& velorix) {
  const GroupSubject& group = velorix.GroupOf;
  const std::string turned = group.Turned.empty() ? "" : " (" + group.Turned + ")";
  return NamesOf(group.CoorSys).Word + turned +
         ", N = " + std::to_string(velorix.GroupStats.GroupN);
}

}  // namespace

GroupSubject GroupInView(const Session& session) {
  return {OpenFileNames(session), session.ReImMode, session.CoorSys, TurnedBy(session)};
}

bool IsGroupOfOtherView(const Velorix& velorix) {
  return velorix.Session.RecordCount() > 0 && velorix.GroupOf != GroupInView(velorix.Session);
}

std::string GroupHeading(const Velorix& velorix) {
  const GroupSubject& group = velorix.GroupOf;
  if (velorix.Session.RecordCount() == 0 || group.CoorSys == CoordinateSystem::None) return {};
  const std::string files = group.Files.empty() ? "" : group.Files + ", ";
  return files + (group.Block == InPhase ? "in-phase, " : "out-of-phase, ") +
         SystemAndCount(velorix);
}

std::string MeanLabel(const Velorix& velorix) {
  return IsGroupOfOtherView(velorix) ? "Mean: " + SystemAndCount(velorix) : "";
}

std::string MeanNotice(const Velorix& velorix) {
  if (!IsGroupOfOtherView(velorix)) return {};
  return "The mean belongs to another view: " + SystemAndCount(velorix) + ".";
}

std::string DisregardedLabel(const Session& session) {
  int disregarded = 0, shown = 0;
  for (const SpecimenRecord& record : session.Records) {
    disregarded += !record.Active;
    shown += IsShown(record, session.CoorSys, session.ReImMode);
  }
  if (disregarded == 0) return {};
  return std::to_string(disregarded) + " of " + std::to_string(session.RecordCount()) +
         " disregarded, " + std::to_string(shown) + " shown";
}

}  // namespace velorix
