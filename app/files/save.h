#pragma once

#include "app/state/dialogs.h"
#include "app/state/views.h"
#include "store/session.h"

namespace velorix {

/// Asks for a name and writes the whole store there, disregarded records too.
void SaveAs(const Session& session, Dialogs& dialogs, Views& views);
/// As `SaveAs`, with the selected records only.
void SaveSelectedAs(const Session& session, Dialogs& dialogs, Views& views);
/// Writes the store over the open file, as a RAN file whatever the file was.
void SaveFile(const Session& session, Dialogs& dialogs, Views& views);

}  // namespace velorix
