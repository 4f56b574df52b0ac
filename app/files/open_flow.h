#pragma once

#include <string>
#include <vector>

#include "app/files/ask_file.h"
#include "app/state/dialogs.h"
#include "app/state/history.h"
#include "app/state/host.h"
#include "store/session.h"

namespace velorix {

/// The file dialog of an action, then the reading of the chosen files and the replacement of the
/// store, a step that can be undone. A new file that does not exist gives only its name. True when
/// the session has a new file; false when the user cancels or a file is refused, and then the
/// session is as it was.
bool OpenDataFiles(Session& session, History& history, Dialogs& dialogs, const Host& host,
                   FileAction action);

/// What several files hold together, and what each of them gave.
struct ReadFiles {
  RecordArray Records;
  std::vector<OpenedFile> Opened;
};

/// Reads a file by the reader of its filter, or by that of its reload, behind what is read already.
Outcome ReadDataFile(const std::string& path, int filter, bool reload, const Settings& settings,
                     ReadFiles& read);

/// Puts files that were read into the session, the records and the names, a step that can be
/// undone.
void OpenReadFiles(Session& session, History& history, const Host& host,
                   const std::vector<std::string>& paths, ReadFiles& read);

/// Files handed over by a file manager, read together, each by the reader that its content asks
/// for. True when the session has a new file; a file that is none of the known kinds refuses them
/// all, with a sentence.
bool OpenDroppedFiles(Session& session, History& history, Dialogs& dialogs, const Host& host,
                      const std::vector<std::string>& paths);

/// The file before or behind the open one in its folder, round at the ends.
void OpenPrevious(Session& session, History& history, Dialogs& dialogs);
void OpenNext(Session& session, History& history, Dialogs& dialogs);

/// Reads the files that make up the store again.
void ReloadFile(Session& session, History& history, Dialogs& dialogs);

/// Empties the store and the session's file names. Gives the step that undoes it, with `text`.
Step CloseStep(Session& session, const std::string& text);

}  // namespace velorix
