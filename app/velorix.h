#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/code_lists.h"
#include "app/contour_session.h"
#include "app/debug_log.h"
#include "app/dialogs.h"
#include "app/views.h"
#include "plot/stereo.h"
#include "stats/contour_grid.h"
#include "stats/group_statistics.h"
#include "store/session.h"

namespace velorix {

inline constexpr char ProgramTitle[] = "Velorix5";
inline constexpr char ReleaseLine[] = "06-April-2018";

/// What the program asks of the system it runs on.
struct Host {
  std::string AppFolder;  // where settings and log stand; it can be written
  std::string DataRoot;   // root of the data folders
  /// Names of the files in `folder` with the extension, in any case, in name order.
  std::function<std::vector<std::string>(const std::string& folder, const std::string& extension)>
      ListFolder;
};

/// Which of the windows beside the main one stand open.
struct OpenWindows {
  bool GroupStatistics = false;
  bool Contour = false;
};

/// The running program: the session, the tables made at start-up, what the controls of the windows
/// decide, and the ways to the user. `main` owns the one object; every command gets it.
struct Velorix {
  velorix::Dialogs& Dialogs;
  velorix::Views& Views;
  velorix::Host Host;

  velorix::Session Session = {};
  CodeLists Lists = {};
  StereoOptions Stereo = {};
  OpenWindows Windows = {};
  velorix::GroupStats GroupStats = {};
  std::vector<float> GaussTable = {};
  velorix::ContourGrid ContourGrid = {};
  ContourSession Contour = {};
  DebugLog Log = {};
};

/// The program's version, as in "5.0.0".
extern const char* const Version;

}  // namespace velorix
