#pragma once

#include <span>
#include <string>
#include <vector>

#include "app/state/velorix.h"
#include "base/outcome.h"

namespace velorix {

/// Appends the records of a file; what the file leaves open comes from the settings.
using FileReader = Outcome (*)(const std::string& path, RecordArray& records,
                               const Settings& settings);

/// One row of the open dialog's filters, with the reader that it chooses.
struct OpenFilter {
  const char* Name;       // as the console names it: "ams"
  const char* Extension;  // "ams"
  const char* Text;       // "AMS-file(s) (*.ams)|*.ams|"
  FileReader Read;
  FileReader Reload;
};

/// The six filters, in the order of their index 1 to 6.
std::span<const OpenFilter> OpenFilters();

/// Index 1 to 6 of the filter for a file's extension, 0 when there is none. "AMS" in upper case is
/// the SI2B text format, any other case of it the binary one.
int FilterOfExtension(const std::string& extension);

/// Splits a file dialog's answer into folder and names. `firstName` is the first of `names`.
struct FileList {
  std::string Folder, FirstName;
  std::vector<std::string> Names;
};
FileList SplitFileList(const std::string& list);

/// The file dialog for "New", "Open" or "Save", then the reading of the chosen files and the
/// replacement of the store. True when the session has a new file; false on cancel or a failed
/// read, and then the session is as it was.
bool OpenDataFiles(Velorix& velorix, const std::string& action, bool multi);

/// Files handed over by a file manager, read like a multiple open by the reader of the first one's
/// extension. True when the session has a new file.
bool OpenDroppedFiles(Velorix& velorix, const std::vector<std::string>& paths);

/// The file before or behind the open one in its folder, round at the ends.
void OpenPrevious(Velorix& velorix);
void OpenNext(Velorix& velorix);

/// Reads the files that make up the store again.
void ReloadFile(Velorix& velorix);

/// Empties the store and the session's file names, and displays that.
void CloseFile(Velorix& velorix);

}  // namespace velorix
