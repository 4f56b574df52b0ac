#pragma once

#include <string>
#include <string_view>

#include "base/outcome.h"
#include "store/record_array.h"
#include "store/settings.h"

namespace velorix {

// AMSSpin files, text of one line a specimen: tensors of trace 1. Paths are UTF-8.

/// Appends the specimens of an AMSSpin file; the orientation parameters are those of `settings`.
/// Refused for an empty file, with a message. A line with too few tokens, an empty one too, is
/// "Subscript out of range", a number too large for its field "Overflow", each with the file and
/// the line. A file that can't be read is a `FileFault`. After any failure the array is as it was.
Outcome ReadSpinFile(const std::string& path, RecordArray& records, const Settings& settings);

/// The same from the text of a file; `path` is for the messages.
Outcome ReadSpinText(std::string_view text, const std::string& path, RecordArray& records,
                     const Settings& settings);

}  // namespace velorix
