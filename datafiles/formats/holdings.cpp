#include "datafiles/formats/holdings.h"

#include <cstring>
#include <iterator>

#include "base/byte_sum.h"
#include "base/fault.h"
#include "datafiles/formats/ams_file.h"
#include "datafiles/formats/ams_layout.h"

namespace velorix {
namespace {

template <class Row>
constexpr bool IsText = std::string_view(Row::Kind).find("text") != std::string_view::npos;

/// The bytes that one code, number or other element of a row takes.
template <class Row>
constexpr int ElementOf(const Row& row) {
  const std::string_view kind = Row::Kind;
  if (kind.starts_with("text") || kind.starts_with("bytes")) return row.Width;
  if (kind.starts_with("zero")) return 1;
  return kind.starts_with("16-bit") || kind.starts_with("4 texts of 2") ? 2 : 4;
}

/// Whether there is something else than padding.
[[gnu::always_inline]] inline bool IsSet(const std::byte* at, int width, bool isText) {
  if (isText) return fixed_text::TrimmedLength(at, width) > 0;
  std::uint64_t bits = 0;
  for (; width > 8; at += 8, width -= 8) bits |= fixed_text::LoadPart(at, 8);
  return (bits | fixed_text::LoadPart(at, width)) != 0;
}

/// Files an element of a row that is lost.
void Count(const AmsRow& row, int element, Unwritten& lost) {
  const std::string_view name = row.Name;
  if (name.empty())
    ++lost.UnknownBytes;
  else if (name == "KSD[1..3]")
    ++lost.Deviations;
  else if (name == "KSDIm[1..3]")
    ++lost.DeviationsIm;
  else if (element >= 2 && (name.starts_with("Foli") || name.starts_with("Line")))
    ++lost.FurtherSlots;
  else {
    ++lost.Values;
    lost.Names.insert(std::string(name.substr(0, name.find('['))));
  }
}

/// The rows whose bytes come back as they stood, found by reading and writing some into an empty
/// record. The others are zero, or hang on other fields, or are never written.
AmsRows ExactRows() {
  AmsRows exact = 0, bit = 1;
  ForEachAmsRow([&](const auto& row) {
    bool same = true;
    for (const int value : {0x01, 0x41, 0x7E, 0xC1}) {
      std::byte given[AmsRecordSize], back[AmsRecordSize] = {};
      std::memset(given, value, sizeof given);
      SpecimenRecord record;
      row.Load(given + row.Offset, record);
      row.Store(back + row.Offset, record);
      same = same && std::memcmp(given + row.Offset, back + row.Offset,
                                 static_cast<std::size_t>(row.Width)) == 0;
    }
    if (same) exact |= bit;
    bit <<= 1;
  });
  return exact;
}

/// The bytes that the program writes for a record that it has read from `bytes`.
void Rewrite(const std::byte* bytes, SpecimenRecord& record, std::byte* again) {
  static const AmsRows Exact = ExactRows();
  std::memcpy(again, bytes, AmsRecordSize);
  AmsRows bit = 1;
  ForEachAmsRow([&](const auto& row) {
    const bool exact = (Exact & bit) != 0;
    bit <<= 1;
    const std::string_view name = row.Name;
    // Of the exact ones those that others hang on: P4, by which azimuths are read.
    if (!exact || name == "Name" || name == "OP[1..4]") row.Load(bytes + row.Offset, record);
    if (exact) return;
    std::memset(again + row.Offset, 0, static_cast<std::size_t>(row.Width));
    row.Store(again + row.Offset, record);
  });
}

}  // namespace

void Unwritten::Add(const Unwritten& other) {
  Deviations += other.Deviations;
  DeviationsIm += other.DeviationsIm;
  FurtherSlots += other.FurtherSlots;
  UnknownBytes += other.UnknownBytes;
  Rest += other.Rest;
  Rounded += other.Rounded;
  Values += other.Values;
  Names.insert(other.Names.begin(), other.Names.end());
}

AmsRows AmsRowsOfBytes(const std::byte* bytes) {
  AmsRows rows = 0, bit = 1;
  ForEachAmsRow([&](const auto& row) {
    if (IsSet(bytes + row.Offset, row.Width, IsText<std::decay_t<decltype(row)>>)) rows |= bit;
    bit <<= 1;
  });
  return rows;
}

std::uint64_t AmsSum(const std::byte* bytes) {
  std::uint64_t words[AmsRecordSize / sizeof(std::uint64_t)];
  static_assert(sizeof words == AmsRecordSize && std::size(words) % ByteSum::Lanes == 0);
  std::memcpy(words, bytes, sizeof words);
  ByteSum sum;
  sum.Add(words);
  return sum.Value();
}

AmsRows AmsRowsOf(const SpecimenRecord& record) {
  std::byte bytes[AmsRecordSize];
  try {
    EncodeAmsRecord(record, bytes);
  } catch (const Fault&) {
    return ~AmsRows{0};
  }
  return AmsRowsOfBytes(bytes);
}

void AmsHeld(const std::byte* bytes, SpecimenRecord& scratch, HeldRecord& held) {
  std::byte again[AmsRecordSize];
  Rewrite(bytes, scratch, again);
  held.Name = scratch.Name;
  held.Rows = AmsRowsOfBytes(again);
  held.Lost = {};
  if (std::memcmp(bytes, again, AmsRecordSize) == 0) return;
  ForEachAmsRow([&](const auto& row) {
    constexpr bool Text = IsText<std::decay_t<decltype(row)>>;
    const int width = ElementOf(row);
    for (int at = 0; at < row.Width; at += width) {
      const int place = row.Offset + at;
      if (IsSet(bytes + place, width, Text) && !IsSet(again + place, width, Text))
        Count(row, at / width, held.Lost);
    }
  });
}

std::string AmsRowName(int place) {
  std::string name;
  ForEachAmsRow([&](const auto& row) {
    if (place-- == 0) name = row.Name;
  });
  return name.substr(0, name.find('['));
}

}  // namespace velorix
