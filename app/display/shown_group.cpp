#include "app/display/shown_group.h"

#include "app/display/view_lists.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

std::string OpenFileNames(const Session& session) {
  std::string names = FileNameOf(session.CurrentFile);
  if (session.OpenFiles.size() > 1)
    names += " and " + std::to_string(session.OpenFiles.size() - 1) + " more";
  return names;
}

/// What the rotation to the view's system goes by: "foliation S horizontal, lineation L north". The
/// lower two systems ask for no code.
std::string TurnedBy(const Session& session) {
  if (session.CoorSys < Paleogeographic) return {};
  std::string text = "foliation " + session.FoliCode + " " +
                     LowerCase(TectoPlaneNames[IndexOf(session.TectoPlane)]) + ", lineation " +
                     session.LineCode;
  if (session.CoorSys < Tectonic) return text;
  return text + " " + LowerCase(TectoAxisNames[IndexOf(TectoAxisOf(session))]);
}

/// "geographic, N = 21".
std::string SystemAndCount(const GroupSubject& group, int n) {
  const std::string turned = group.Turned.empty() ? "" : " (" + group.Turned + ")";
  return NamesOf(group.CoorSys).Word + turned + ", N = " + std::to_string(n);
}

}  // namespace

GroupSubject GroupInView(const Session& session) {
  return {OpenFileNames(session), session.ReImMode, session.CoorSys, TurnedBy(session)};
}

bool IsGroupOfOtherView(const Session& session, const GroupSubject& group) {
  return session.RecordCount() > 0 && group != GroupInView(session);
}

std::string GroupHeading(const Session& session, const GroupSubject& group, int n) {
  if (session.RecordCount() == 0 || group.CoorSys == CoordinateSystem::None) return {};
  const std::string files = group.Files.empty() ? "" : group.Files + ", ";
  return files + (group.Block == InPhase ? "in-phase, " : "out-of-phase, ") +
         SystemAndCount(group, n);
}

std::string MeanLabel(const Session& session, const GroupSubject& group, int n) {
  return IsGroupOfOtherView(session, group) ? "Mean: " + SystemAndCount(group, n) : "";
}

std::string MeanNotice(const Session& session, const GroupSubject& group, int n) {
  if (!IsGroupOfOtherView(session, group)) return {};
  return "The mean belongs to another view: " + SystemAndCount(group, n) + ".";
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
