#pragma once

#include <string>
#include <string_view>

#include "base/outcome.h"
#include "store/record_array.h"
#include "store/settings.h"

namespace velorix {

// SI2B files, text of three lines a specimen: the principal susceptibilities from the smallest to
// the largest, with their directions. Paths are UTF-8.

/// Appends the specimens of an SI2B file; the orientation parameters are those of `settings`.
/// Refused for an empty file, with a message. A file that ends inside a specimen is "Input past end
/// of file", a line with too few tokens "Subscript out of range", a number too large for its field
/// "Overflow", a mean of 0 or two equal directions "Division by zero", each with the file and the
/// line. A file that can't be read is a `FileFault`. After any failure the array is as it was.
Outcome ReadSi2bFile(const std::string& path, RecordArray& records, const Settings& settings);

/// The same from the text of a file; `path` is for the messages.
Outcome ReadSi2bText(std::string_view text, const std::string& path, RecordArray& records,
                     const Settings& settings);

}  // namespace velorix
