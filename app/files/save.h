#pragma once

#include "app/state/dialogs.h"
#include "app/state/views.h"
#include "datafiles/bytes/safe_write.h"
#include "store/session.h"

namespace velorix {

// A file that is written over is compared first, and the user asked when something would be lost.
// True when the records are written.

/// Asks for a name and writes the whole store there, disregarded records too.
bool SaveAs(Session& session, Dialogs& dialogs, Views& views);
/// As `SaveAs`; the dialog proposes the open file's name with " copy" behind it.
bool SaveCopy(Session& session, Dialogs& dialogs, Views& views);
/// As `SaveAs`, with the selected records only.
bool SaveSelectedAs(Session& session, Dialogs& dialogs, Views& views);
/// Writes the store over the open file, as a RAN file whatever the file was.
bool SaveFile(Session& session, Dialogs& dialogs, Views& views);

/// What becomes of a data file that is written over.
FormerFile FormerOf(const Session& session);

}  // namespace velorix
