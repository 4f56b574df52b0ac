#include "app/commands/startup.h"

#include <filesystem>

#include "datafiles/bytes/file_faults.h"
#include "datafiles/settings/preferences_file.h"
#include "datafiles/settings/settings_file.h"
#include "stats/group/gauss_random.h"
#include "text/paths.h"

namespace velorix {

/// Reads the settings; says so when the file is there but can't be read.
static std::string TakeSettings(Settings& settings, const std::string& path) {
  std::error_code ignored;
  const bool bad = std::filesystem::exists(PathOf(path), ignored) && !SettingsRead(settings, path);
  LoadSettings(settings, path);
  return bad ? path + ": The settings could not be read. The defaults have taken their place." : "";
}

std::string PrepareSession(Session& session, DebugLog& log, const Host& host) {
  const auto make = [](const std::string& folder) {
    OnFile(folder, [&folder] { std::filesystem::create_directories(PathOf(folder)); });
  };
  const auto makeIn = [&make](const std::string& folder, const char* name) {
    make(JoinPath(folder, name));
  };
  for (const char* name : {"LogFiles", "ServiceTest"}) makeIn(host.AppFolder, name);
  log.Open(JoinPath(JoinPath(host.AppFolder, "LogFiles"), "DebugPrint.log"));
  make(host.DataRoot);
  for (const char* name : {"TemporaryData", "SimulData", "RawData", "SigmaTest"})
    makeIn(host.DataRoot, name);
  for (const char* name : {"Fields", "HCorr"}) makeIn(host.AppFolder, name);

  session.SettingsFile = JoinPath(host.AppFolder, "MarloAniso.sav");
  std::string notice = TakeSettings(session.Settings, session.SettingsFile);
  if (!notice.empty()) log.DebugPrint("Error: " + notice);
  const std::string preferences = PreferencesFile(host.AppFolder);
  int bad = 0;
  session.Preferences = PreferencesRead(preferences, bad);
  if (bad > 0)
    log.DebugPrint("Error: " + preferences + ": " + std::to_string(bad) +
                   (bad == 1 ? " line is" : " lines are") + " not understood.");
  return notice;
}

void BuildTables(ContourGrid& grid, std::vector<float>& gaussTable,
                 const std::function<void()>& yield) {
  BuildContourGrid(grid);
  yield();
  FillGaussTable(gaussTable, yield);
}

void ResetSession(Session& session) {
  session.CoorSys = Geographic;
  session.TectoPlane = PaleoPlane::Horizontal;
  session.TectoNorthSouth = session.TectoEastWest = false;
  session.ReImMode = InPhase;
  ClearStore(session);
  session.CurrentFile.clear();
  session.OpenFiles.clear();
  session.Opened.clear();
}

}  // namespace velorix
