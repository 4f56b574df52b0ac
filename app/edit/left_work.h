#pragma once

#include <string>
#include <vector>

#include "app/edit/cell_doubts.h"
#include "app/files/open_flow.h"
#include "app/state/dialogs.h"
#include "app/state/history.h"
#include "app/state/host.h"
#include "datafiles/settings/autosave_file.h"
#include "store/session.h"

namespace velorix {

// The autosave that another run of the program has left.

/// What that run left, beside what its data files have now.
struct LeftWork {
  AutosavedWork Work;
  ReadFiles Read;
  std::string Obstacle;  // why nothing can be restored; else empty
  std::vector<int> New;  // numbers of the records that the files have otherwise
};

/// Reads an autosave and its data files. Says why the file can't be used: it can't be read, is
/// damaged or no autosave. Else empty.
std::string ReadLeftWork(const std::string& path, const Settings& settings, LeftWork& left);

/// "a.ams", or "a.ams and 2 more".
std::string FilesText(const LeftWork& left);

/// What is to be done with it. `Discard` without a question when the data files have all of it.
/// Where these are gone or have changed the question says so, and nothing can be restored.
enum class LeftAnswer { Restore, Discard, Later };
LeftAnswer AskAboutLeft(Dialogs& dialogs, const LeftWork& left);

/// What came of it.
struct RestoredWork {
  std::vector<std::string> Refused;  // numbers that have no room in their records; left out
  SheetDoubts Doubts;                // the cells that were not read as they stood
};

/// Opens the files as they were and puts the orientation data into the records, a step that can be
/// undone. `left` has no records any more.
RestoredWork RestoreLeftWork(Session& session, History& history, const Host& host, LeftWork& left);

}  // namespace velorix
