#include "app/files/geo_files.h"

#include "app/files/file_stamp.h"
#include "datafiles/formats/ged_file.h"

namespace velorix {

std::string GedFilter() { return FilterText("GED-file(s)", "ged"); }

bool ReadGeoFiles(Session& session, Dialogs& dialogs, const FileList& list) {
  RecordArray samples;
  for (const std::string& path : list.Paths()) {
    const Outcome outcome = ReadGedFile(path, samples);
    if (outcome) continue;
    ShowRefusal(dialogs, outcome, "OK");
    return false;
  }
  session.GeoRecords = std::move(samples);
  session.GeoFile = list.FirstPath();
  session.GeoStamp = StampOf(session.GeoFile);
  return true;
}

void ForgetGeoFile(Session& session) {
  session.GeoRecords.Clear();
  session.GeoFile.clear();
}

}  // namespace velorix
