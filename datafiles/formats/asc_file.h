#pragma once

#include <string>
#include <string_view>

#include "base/outcome.h"
#include "store/record_array.h"

namespace velorix {

// ASC reports, text of many lines a specimen with the numbers at fixed places; docs/formats/asc.md
// shows one. Paths are UTF-8.

/// Appends the specimens of an ASC report. Refused for an empty file, with a message. A report that
/// ends inside a specimen is "Input past end of file", a line with too few tokens "Subscript out of
/// range", a number too large for its field "Overflow", each with the file and the line. A file
/// that can't be read is a `FileFault`. After any failure the array is as it was.
Outcome ReadAscFile(const std::string& path, RecordArray& records);

/// The same from the text of a file; `path` is for the messages.
Outcome ReadAscText(std::string_view text, const std::string& path, RecordArray& records);

}  // namespace velorix
