#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "base/outcome.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/formats/holdings.h"
#include "store/record_array.h"

namespace velorix {

// AMS files, the program's own format; the record is in datafiles/formats/ams_layout.h. With P4 =
// 90 they have foliations as strikes, which reading and writing turn from and to dip directions.
// Paths are UTF-8.

/// Appends all records of the file. Refused for an empty file, with a message, and without one for
/// a file of up to half a record. A last record that the file cuts off reads as far as the file
/// goes, the rest of it zero; a rest of less than half a record goes unnoticed, and so does one of
/// exactly half behind an even number of records. "Overflow" when the array would pass its limit. A
/// file that can't be read is a `FileFault`. After any failure the array is as it was.
Outcome ReadAmsFile(const std::string& path, RecordArray& records);

/// The same from the bytes of a file; `path` is for the message.
Outcome ReadAmsBytes(std::span<const std::byte> bytes, const std::string& path,
                     RecordArray& records);

/// Calls `visit` for each record of the file, one after the other, without a place for all of them;
/// what belongs to no record is added to `ofFile`. Each record is read and written as it would be,
/// and what does not come back is lost. Refuses and fails as `ReadAmsFile`.
Outcome VisitHeldAms(const std::string& path, const VisitHeld& visit, Unwritten& ofFile);

/// The reading of reload, previous and next: as `ReadAmsFile`, but the block of one phase
/// (out-of-phase when `useIm`) goes to the in-phase fields, the out-of-phase fields stay empty, and
/// a record with a zero tensor comes back disregarded.
Outcome ReloadAmsFile(const std::string& path, RecordArray& records, bool useIm);

/// Writes all records, or only the selected ones, in their order; disregarded records are written
/// too. Without `append` the file is new or replaced, and the replaced one goes or stays as
/// `former` says; with it the records go behind those that it has, all of them or none. Refused,
/// silently, when there are no records at all. When none is to be written, no file is made, and
/// without `append` an old one is removed. A failure is a `FileFault`, or "Overflow" when an append
/// would bring the file over 32767 records or a number is too large for the file's 32 bits; the old
/// file then stands.
Outcome WriteAmsFile(const std::string& path, const RecordArray& records, bool append, bool all,
                     FormerFile former = FormerFile::Goes);

/// Calls `visit` for each record, or each selected one, with what the file gives back when it is
/// written and read, of what a comparison needs: name, site data, foliations and lineations, and
/// orientation parameters; and with the sum of its bytes. Fails as `WriteAmsFile` when a number is
/// too large for the file.
void VisitStoredAms(
    const RecordArray& records, bool all,
    const std::function<void(const SpecimenRecord& record, const SpecimenRecord& stored,
                             const StoredForm& form)>& visit);

/// Appends one record to a file, which is made when missing.
Outcome WriteAmsRecord(const std::string& path, const SpecimenRecord& record);

/// How many records a file of `size` bytes has: the quotient rounded, halves to even. "Overflow"
/// beyond the 16-bit range.
int AmsRecordCount(std::uintmax_t size);

/// One record from and to `AmsRecordSize` bytes. Every field of `record` is assigned. "Overflow"
/// when a number of `record` is finite and too large for the file's 32 bits.
void DecodeAmsRecord(const std::byte* bytes, SpecimenRecord& record);
void EncodeAmsRecord(const SpecimenRecord& record, std::byte* bytes);

}  // namespace velorix
