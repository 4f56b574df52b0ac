#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/outcome.h"
#include "store/record_array.h"

namespace velorix {

// What the readers of text formats share. A file is taken into memory once; lines and tokens look
// into it.

/// The bytes of a file, whose path is UTF-8. A file that can't be read is a `FileFault`.
std::string TextOfFile(const std::string& path);

/// The lines of a text, one behind the other. A line ends in LF or CR LF, which are no part of it;
/// what stands behind the last end is a line too.
struct TextLines {
  std::string_view Rest;  // not yet read
  int Line = 0;           // number of the line read last, from 1

  bool AtEnd() const { return Rest.empty(); }
  /// The next line; "Input past end of file" when there is none.
  std::string_view Next();
  void Skip(int lines) {
    while (lines-- > 0) Next();
  }
};

/// The number that a text starts with, or 0, in 32 bits; "Overflow" when it is too large for them.
float SingleOf(std::string_view text);

/// `value`, or "Overflow" when it is not finite.
double Finite(double value);

/// The 4 bytes of a 32-bit float as files have it.
std::array<std::uint8_t, 4> BytesOfSingle(float value);

/// The refusal of a file without a byte.
Outcome RefuseEmptyFile(const std::string& path);

/// A fault with the file and the line, from 1, in which it happened.
Fault FaultInLine(Fault fault, const std::string& path, int line);

/// Appends a record for each specimen of a text: `readSpecimen(lines, record)` fills an empty
/// record from the next lines, until they are all read. Refused for an empty text; a fault gets the
/// file and the line added. After any failure `records` is as it was.
template <class ReadSpecimen>
Outcome ReadSpecimens(std::string_view text, const std::string& path, RecordArray& records,
                      ReadSpecimen readSpecimen) {
  if (text.empty()) return RefuseEmptyFile(path);
  const int before = records.Count();
  TextLines lines{text};
  try {
    while (!lines.AtEnd()) readSpecimen(lines, records[records.Grow(1)]);
  } catch (const Fault& fault) {
    records.Truncate(before);
    throw FaultInLine(fault, path, lines.Line);
  } catch (...) {
    records.Truncate(before);
    throw;
  }
  return {};
}

}  // namespace velorix
