#pragma once

#include <string>
#include <utility>

#include "app/edit/orientation_editor.h"
#include "app/state/debug_log.h"
#include "app/state/views.h"
#include "store/session.h"

namespace velorix {

// Orientation data that are in no data file are kept in a file of the program's own, so that a
// crash does not take them along. A later run offers them.

/// The autosave of one run of the program.
class Autosave {
 public:
  /// `path`: the file, which no other run uses.
  explicit Autosave(std::string path) : path_(std::move(path)) {}

  /// Writes what is unsaved: the cells of the orientation editor, null while its window is not
  /// open, or the records. The same as last time is not written again. The file goes when nothing
  /// is unsaved. Records of which it is not known from which files they are leave it as it is. A
  /// failure is reported once, until a write succeeds, in status line and log alone.
  void Update(const Session& session, const OrientationEditor* editor, Views& views, DebugLog& log);
  /// Removes the file.
  void Remove();
  /// Whether the file holds something.
  bool IsKept() const { return !written_.empty(); }

 private:
  void Write(const Session& session, const OrientationEditor* editor);

  std::string path_;
  std::string written_;  // what the file has, without the time
  bool refused_ = false;
};

/// Removes the file of an autosave, where there is one.
void RemoveAutosave(const std::string& path);

}  // namespace velorix
