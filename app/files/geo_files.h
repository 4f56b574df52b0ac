#pragma once

#include "app/files/ask_file.h"

namespace velorix {

/// The filter of geological files.
std::string GedFilter();

/// Reads all geological files of a dialog's answer in place of the session's geological records.
/// False, with the session as it was and the reader's box shown, when one of them is refused.
bool ReadGeoFiles(Session& session, Dialogs& dialogs, const FileList& list);

/// Forgets the session's geological records and their file.
void ForgetGeoFile(Session& session);

}  // namespace velorix
