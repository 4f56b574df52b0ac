#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "store/specimen_record.h"

namespace velorix {

// What a data file holds, as far as two files are compared by it.

/// What a file has and the program does not write again, in numbers.
struct Unwritten {
  int Deviations = 0;           // of the principal values, in-phase
  int DeviationsIm = 0;         // the same, out-of-phase
  int FurtherSlots = 0;         // codes and angles of foliations and lineations in slots 3 and 4
  int UnknownBytes = 0;         // that are not 0, where the format has no field
  int Rest = 0;                 // bytes behind the last record
  int Rounded = 0;              // numbers that are read as whole ones
  int Values = 0;               // all others
  std::set<std::string> Names;  // of the fields of those, as the page on the format has them

  void Add(const Unwritten& other);
  bool operator==(const Unwritten&) const = default;
};

/// Rows of an AMS record, in the order of its layout, a bit each. They serve as the measure for
/// records of all formats.
using AmsRows = std::uint64_t;

/// A record of a file: its name, the rows that have something in them, and what is lost of it by
/// being read and written.
struct HeldRecord {
  std::string Name;
  AmsRows Rows = 0;
  Unwritten Lost;
};

/// What a record will have in a new file: a sum over its bytes, where the format has one and the
/// rows of the record are the file's, else the rows.
struct StoredForm {
  std::optional<std::uint64_t> Sum;
  AmsRows Rows = 0;
};

/// Goes through the records of a file.
struct VisitHeld {
  std::function<void(const HeldRecord&)> Visit;
  /// Asked before, where the format has a sum over a record's bytes: whether the next record will
  /// stand in the new file byte for byte. Then it is not visited, since nothing of it is lost.
  std::function<bool(std::uint64_t sum)> StandsAgain = {};
};

/// A sum over the `AmsRecordSize` bytes of a record, by which the same ones are known.
std::uint64_t AmsSum(const std::byte* bytes);

/// The rows of a record as an AMS file has it; all rows when it cannot be written there.
AmsRows AmsRowsOf(const SpecimenRecord& record);
/// The same of its `AmsRecordSize` bytes.
AmsRows AmsRowsOfBytes(const std::byte* bytes);
/// What a record of an AMS file holds, by its bytes: they are read and written as the program does,
/// and what does not come back is lost. `scratch` is a record to work with.
void AmsHeld(const std::byte* bytes, SpecimenRecord& scratch, HeldRecord& held);

/// The name of the row at a place of the layout, without its range: "FTest".
std::string AmsRowName(int place);

}  // namespace velorix
