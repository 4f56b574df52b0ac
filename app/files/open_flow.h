#pragma once

#include <string>
#include <vector>

#include "app/files/ask_file.h"
#include "app/state/velorix.h"

namespace velorix {

/// The file dialog of an action, then the reading of the chosen files and the replacement of the
/// store. A new file that does not exist gives only its name. True when the session has a new file;
/// false when the user cancels or a file is refused, and then the session is as it was.
bool OpenDataFiles(Session& session, Dialogs& dialogs, const Host& host, FileAction action);

/// Files handed over by a file manager, read together by the reader of the first one's extension.
/// True when the session has a new file.
bool OpenDroppedFiles(Session& session, Dialogs& dialogs, const Host& host,
                      const std::vector<std::string>& paths);

/// The file before or behind the open one in its folder, round at the ends.
void OpenPrevious(Session& session, Dialogs& dialogs);
void OpenNext(Session& session, Dialogs& dialogs);

/// Reads the files that make up the store again.
void ReloadFile(Session& session, Dialogs& dialogs);

/// Empties the store and the session's file names, and displays that.
void CloseFile(Velorix& velorix);

}  // namespace velorix
