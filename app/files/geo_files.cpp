#include "app/files/geo_files.h"

#include "datafiles/ged_file.h"
#include "text/paths.h"

namespace velorix {
namespace {

void ShowRefusal(Dialogs& dialogs, const Outcome& outcome) {
  if (outcome.Text.empty()) return;
  if (outcome.IsWarning)
    dialogs.Warn(outcome.Title, outcome.Text);
  else
    dialogs.Ask(outcome.Title, outcome.Text, {"OK"});
}

/// The dialog may give a name with a folder of its own.
std::string PathIn(const FileList& list, const std::string& name) {
  return Utf8Of(PathOf(list.Folder) / PathOf(name));
}

}  // namespace

bool ReadGeoFiles(Velorix& velorix, const FileList& list) {
  RecordArray samples;
  for (const std::string& name : list.Names) {
    const Outcome outcome = ReadGedFile(PathIn(list, name), samples);
    if (outcome) continue;
    ShowRefusal(velorix.Dialogs, outcome);
    return false;
  }
  velorix.Session.GeoRecords = std::move(samples);
  velorix.Session.GeoFile = PathIn(list, list.FirstName);
  return true;
}

void ForgetGeoFile(Session& session) {
  session.GeoRecords.Clear();
  session.GeoFile.clear();
}

}  // namespace velorix
