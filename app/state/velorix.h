#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/state/code_lists.h"
#include "app/state/contour_session.h"
#include "app/state/debug_log.h"
#include "app/state/dialogs.h"
#include "app/state/views.h"
#include "base/outcome.h"
#include "plot/axes/columns.h"
#include "plot/net/stereo.h"
#include "plot/plots/xy_plot.h"
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
  // Pictures, where the host can make them; `draw` draws on the plane.
  using DrawPicture = std::function<void(Target&)>;
  /// A file of the type that the extension tells; `scale` pixels make a unit of the plane.
  std::function<Outcome(const std::string& path, PlaneSize plane, double scale,
                        const DrawPicture& draw)>
      WritePicture = {};
  /// On the clipboard, as the bytes of a metafile's file and in the host's own vectors.
  std::function<void(const std::string& metafile, PlaneSize plane, const DrawPicture& draw)>
      CopyPicture = {};
  /// Asks for a printer and prints on it, the plane whole and undistorted.
  std::function<Outcome(const std::string& document, PlaneSize plane, const DrawPicture& draw)>
      PrintPicture = {};
};

/// Which plots go on the page of `ExportGraphics`.
struct PageOptions {
  bool stereonet = true, histogram = true, xyPlot1 = true, xyPlot2 = true;
};

/// Which of the windows beside the main one stand open.
struct OpenWindows {
  bool DataTable = false;
  bool GroupStatistics = false;
  bool FoliLine = false;
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
  Array1<XYPlotOptions, 2> XYPlot = {};                // of `picXYPlot1` and `picXYPlot2`
  Array1<bool, 2> XYLines = {};                        // whether each is drawn with lines now
  Array1<std::optional<DrawnXYPlot>, 2> XYDrawn = {};  // the plots on the screen
  Column HistoParameter = Column::Km;
  PageOptions Page = {};
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
