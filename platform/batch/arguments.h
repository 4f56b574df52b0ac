#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "stats/group/bootstrap.h"

namespace velorix {

/// What the command line asks for. Indices are those of the program's lists.
struct Arguments {
  std::vector<std::string> Files;
  int Filter = 0;  // 1 to 6, 0 by extension
  bool Reload = false;
  int Next = 0, Previous = 0;
  std::string SettingsFile;
  std::vector<std::string> Ged;  // geological files
  bool AssignGed = false;
  int CoorSys = 1, Block = 0, Plane = 0, Axis = 0;  // list positions from 0
  std::string FoliCode, LineCode;
  int Level = 0, Bootstrap = 0;                         // positions in ErrorLevels and BootMethods
  std::int64_t Replicates = BootReplicates, Seed = -1;  // -1: no seed
  std::vector<int> Select, Disregard;
  std::string GroupBy;  // a word of `ParseGroupBy`
  int Contour = 0;      // 1 to 5, 0 none
  int Smooth = -1;      // -1: the window's
  std::string ContourJson, ContourImage;
  std::string Style;    // of the figure
  int Delimiter = -1;   // of the grid, from 0; -1: comma
  bool Append = false;  // the grid to its file
  // Outputs; "-": standard output.
  std::string Save, SaveSelected, Records, Grid, Table, Stats, Groups, Compare, Untilt, Page,
      Figure, Panels, GeoJson, WriteGed;
  bool Force = false, NoBackup = false, Quiet = false;

  /// The outputs named, in the order in which they are made.
  std::vector<std::string> Outputs() const;
};

/// Something to print, and the status to end with: help, version, or wrong usage.
struct EarlyEnd {
  int Status = 0;
  std::string Text;  // for standard output with status 0, for standard error else
};

/// The arguments of `argv`, or why there is nothing to do.
std::variant<Arguments, EarlyEnd> ParseArguments(int argc, const char* const* argv);

}  // namespace velorix
