#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/state/dialogs.h"
#include "app/state/views.h"
#include "store/session.h"

namespace velorix {

// Asking for files. Paths are UTF-8.

/// What a file dialog is for.
enum class FileAction { New, Open, Save };

/// A dialog's answer, split into folder and names. `FirstName` is the first of `Names`.
struct FileList {
  std::string Folder;  // without a separator at its end, empty for the root
  std::string FirstName;
  std::vector<std::string> Names;

  std::string FirstPath() const;
  std::vector<std::string> Paths() const;
};
FileList SplitFileList(const std::string& list);

/// `name` in the folder of a `FileList`. A name that is a full path stays as it is.
std::string InFolder(const std::string& folder, const std::string& name);

/// Whether there is a file of this path. A folder is none, and neither is what can't be looked at.
bool FileExists(const std::string& path);

/// One filter of a dialog: "AMS-file(s) (*.ams)|*.ams|".
std::string FilterText(const std::string& caption, const std::string& extension);

/// Shows the dialog until `accepts` takes the answer; a refused answer is shown again. No answer
/// when the user cancels.
std::optional<FileAnswer> AskForFile(Dialogs& dialogs, FileAction action, FileQuestion question,
                                     const std::function<bool(const FileAnswer&)>& accepts);

/// What the dialog for data files shows, but for its filters: several files may be opened, one file
/// is made or saved.
FileQuestion DataFileQuestion(const Session& session, FileAction action);

/// The files chosen in the dialog for data files.
struct ChosenFiles {
  FileList List;
  int Filter = 1;
  bool Exists = true;  // the first one
};

/// Asks for data files. An existing file is taken to be opened; otherwise the user is asked whether
/// to append to it. A missing one is taken when `takesMissing`, which gets its name, says so.
std::optional<ChosenFiles> AskForDataFiles(
    Dialogs& dialogs, FileAction action, const FileQuestion& question,
    const std::function<bool(const std::string& name)>& takesMissing);

/// What a save dialog shows, but for its filters: a file of the open one's name, in its folder.
FileQuestion SaveQuestion(const Session& session, const char* title);

/// Asks until the name is one that no file has, or the user lets the old file be overwritten. No
/// answer when the user cancels.
std::optional<FileAnswer> AskWhereToSave(Dialogs& dialogs, const FileQuestion& question);

/// Shows in the status line that a file has been written.
void ShowWritten(Views& views, const std::string& path);

}  // namespace velorix
