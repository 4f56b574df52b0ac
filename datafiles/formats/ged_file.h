#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/outcome.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/formats/holdings.h"
#include "store/record_array.h"

namespace velorix {

/// Letters of a foliation's or lineation's code in a geological file.
inline constexpr int GedCodeLetters = 1;

// Geological files (.ged): the field measurements of a site as text, a header line and a line of 62
// characters a sample. Azimuths stay as they stand, also the strikes that P4 = 90 says they are.
// Paths are UTF-8.

inline constexpr int GedLineLength = 62;

/// A field of a line: what it holds, its place and its width in characters.
struct GedField {
  const char* Name;
  int Offset, Width;
};
/// The fields of the header and of a sample, gapless and in their order.
std::span<const GedField> GedHeaderFields();
std::span<const GedField> GedSampleFields();

/// Refuses a file without a byte. `text` is its content.
Outcome CheckNotEmpty(const std::string& path, std::string_view text);

/// Refuses a text with lines of another length, with a list of the first hundred of them.
Outcome CheckGedLines(const std::string& path, std::string_view text, int length);

/// Appends the file's samples to `records`: their names, angles in whole degrees, codes ("0" stays
/// "0"), and the site's data in each. A field that must be a number and is none refuses the file
/// with the line; so does a file without a sample, in silence. A file that can't be read is a
/// `FileFault`, a number beyond 16 bits "Overflow". After any failure `records` is as it was.
Outcome ReadGedFile(const std::string& path, RecordArray& records);

/// The same from the content of a file.
Outcome ReadGedText(const std::string& path, std::string_view text, RecordArray& records);

/// Writes the records as a file in place of the old one; the site's data are those of the first.
/// Texts are cut at the width of their field, and so are angles of more than four characters. The
/// coordinates change places on the way through a file. Without a record the file stays and the
/// refusal is silent. The replaced file goes or stays as `former` says. What can't be written is a
/// `FileFault`, and the old file stays.
Outcome WriteGedFile(const std::string& path, const RecordArray& records,
                     FormerFile former = FormerFile::Goes);

/// Calls `visit` for each sample of the file, without rows, with what of it is lost by being read
/// and written; what of the header is lost is added to `ofFile`. Refuses and fails as
/// `ReadGedFile`.
Outcome VisitHeldGed(const std::string& path, const VisitHeld& visit, Unwritten& ofFile);

/// The bytes of such a file.
std::string GedText(const RecordArray& records);

}  // namespace velorix
