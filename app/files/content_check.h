#pragma once

#include <string>

#include "app/files/file_kinds.h"
#include "store/session.h"

namespace velorix {

// Whether a file is what its type says. The type in the dialog decides how it is read; its content
// is looked at for what the user should know.

/// What is to be said of the files that are open when their content plainly is something else than
/// their type: "37 records read; x.ams looks like a PNG picture". Empty when there is nothing.
std::string ContentDoubt(const Session& session);

/// Whether the content of a file plainly is something else than a file of this kind.
bool IsPlainlyOther(const std::string& path, const FileKind& kind);

/// The filter of the reader for a file that was dropped: AMS and RAN files by their content, texts
/// by the first reader that finds a record, that of the extension before the others. 0 when none
/// fits; `why` then says what the file looks like.
int FilterOfContent(const std::string& path, const Settings& settings, std::string& why);

}  // namespace velorix
