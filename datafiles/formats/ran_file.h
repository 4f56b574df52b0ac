#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/formats/holdings.h"
#include "store/record_array.h"
#include "store/settings.h"

namespace velorix {

// RAN and ARE files, the compact format of exchange: one site a file, tensors already turned to the
// geographic system where they can be. The records are in datafiles/formats/ran_layout.h. Paths are
// UTF-8.

/// Appends the specimens of a RAN or ARE file; an extension of exactly "are" gives the instrument.
/// Orientation parameters that the file gives as 0 are taken from `settings`. Refused for an empty
/// file, with a message, and without one for a file that has a header only. A last record that the
/// file cuts off reads as far as the file goes, the rest of it zero; a rest of less than half a
/// record goes unnoticed, and so does one of exactly half behind an even number of specimens. "Type
/// mismatch" when a coordinate is no number, "Overflow" when it, an orientation parameter or a
/// field is too large or the array would pass its limit. A file that can't be read is a
/// `FileFault`. After any failure the array is as it was.
Outcome ReadRanFile(const std::string& path, RecordArray& records, const Settings& settings);

/// The same from the bytes of a file; `path` is for the message and the extension.
Outcome ReadRanBytes(std::span<const std::byte> bytes, const std::string& path,
                     RecordArray& records, const Settings& settings);

/// Writes all records, or only the selected ones, in their order, with `suffix` behind every name;
/// disregarded records are written too. A record with an orientation (`HasCoor[2]`) goes out in the
/// geographic system, any other in the specimen system. The header is the first record's. Without
/// `append` the file is new or replaced, and the replaced one goes or stays as `former` says; with
/// it the records go behind those that it has, under the header that it has, all of them or none.
/// Refused, silently, when there are no records at all. When none is to be written, no file is
/// made, and without `append` an old one is removed. A failure is a `FileFault`, "Overflow" when
/// the file would pass 32766 records of 64 bytes or a number doesn't fit its field, or the failure
/// of a rotation; the old file then stands.
Outcome WriteRanFile(const std::string& path, const RecordArray& records, bool append, bool all,
                     const std::string& suffix = {}, FormerFile former = FormerFile::Goes);

/// Adds one specimen to a file, which is made when missing.
Outcome WriteRanRecord(const std::string& path, const SpecimenRecord& record,
                       const std::string& suffix = {});

/// The bytes of a file of all records or the selected ones, one at least, behind those in `kept`:
/// an older file in whole records of 64 bytes, or nothing. Fails like `WriteRanFile`.
std::vector<std::byte> RanBytes(std::vector<std::byte> kept, const RecordArray& records, bool all,
                                const std::string& suffix = {});

/// Calls `visit` for each specimen of the file with what of it is lost by being read and written;
/// what belongs to no specimen, header and rest, is added to `ofFile`. Refuses and fails as
/// `ReadRanFile`.
Outcome VisitHeldRan(const std::string& path, const Settings& settings, const VisitHeld& visit,
                     Unwritten& ofFile);

/// How many specimens a file of `size` bytes has: the quotient less the header, rounded, halves to
/// even, and never below 0. "Overflow" beyond the 16-bit range.
int RanSpecimenCount(std::uintmax_t size);

}  // namespace velorix
