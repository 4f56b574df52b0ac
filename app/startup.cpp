#include "app/startup.h"

#include <filesystem>

#include "datafiles/settings_file.h"
#include "stats/gauss_random.h"
#include "text/paths.h"

#ifndef VELORIX_VERSION
#error "the build gives the version"
#endif

namespace velorix {

const char* const Version = VELORIX_VERSION;

void PrepareSession(Velorix& velorix) {
  const Host& host = velorix.Host;
  const auto make = [](const std::string& folder, const char* name) {
    std::filesystem::create_directories(PathOf(JoinPath(folder, name)));
  };
  for (const char* name : {"LogFiles", "ServiceTest"}) make(host.AppFolder, name);
  velorix.Log.Open(JoinPath(JoinPath(host.AppFolder, "LogFiles"), "DebugPrint.log"));
  std::filesystem::create_directories(PathOf(host.DataRoot));
  for (const char* name : {"TemporaryData", "SimulData", "RawData", "SigmaTest"})
    make(host.DataRoot, name);
  for (const char* name : {"Fields", "HCorr"}) make(host.AppFolder, name);

  velorix.Session.SettingsFile = JoinPath(host.AppFolder, "MarloAniso.sav");
  LoadSettings(velorix.Session.Settings, velorix.Session.SettingsFile);
}

void BuildTables(Velorix& velorix, const std::function<void()>& yield) {
  BuildContourGrid(velorix.ContourGrid, 0, 300, 3);
  yield();
  FillGaussTable(velorix.GaussTable, yield);
}

void ResetSession(Velorix& velorix) {
  Session& session = velorix.Session;
  session.CoorSys = Geographic;
  session.TectoPlane = PaleoPlane::Horizontal;
  session.TectoNorthSouth = session.TectoEastWest = false;
  session.ReImMode = InPhase;
  ClearStore(session);
  session.CurrentFile.clear();
  session.CurrentFileBase.clear();
  session.OpenFiles.clear();
}

}  // namespace velorix
