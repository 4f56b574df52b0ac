#pragma once

#include <cstdint>
#include <tuple>
#include <type_traits>
#include <utility>

#include "base/narrowing.h"
#include "datafiles/bytes/bytes.h"
#include "datafiles/bytes/fixed_text.h"
#include "store/specimen_record.h"

namespace velorix {

// An AMS file is a sequence of records of 640 bytes, without a header; numbers are little-endian,
// texts single-byte. `AmsLayout` below is the record, a row a field, gapless and in file order:
// reader and writer walk it, and the page on the format is held to it. What is odd about a field
// is the kind of its row.

inline constexpr int AmsRecordSize = 640;

/// What every row has: the field's name, its place and its width in bytes.
struct AmsRow {
  const char* Name;
  int Offset, Width;
};

namespace ams {

template <auto Member>
struct Text : AmsRow {
  static constexpr const char* Kind = "text";
  void Load(const std::byte* at, SpecimenRecord& r) const { LoadText(at, Width, r.*Member); }
  void Store(std::byte* at, const SpecimenRecord& r) const { StoreText(at, Width, r.*Member); }
};

/// A text that is stripped of blanks at both ends when read.
template <auto Member>
struct StrippedText : AmsRow {
  static constexpr const char* Kind = "text, stripped";
  void Load(const std::byte* at, SpecimenRecord& r) const;
  void Store(std::byte* at, const SpecimenRecord& r) const { StoreText(at, Width, r.*Member); }
};

/// Codes of two characters in slots 1 and 2, stripped; slots 3 and 4 are zero bytes and not read.
template <auto Member>
struct Codes : AmsRow {
  static constexpr const char* Kind = "4 texts of 2, slots 1 and 2 used";
  void Load(const std::byte* at, SpecimenRecord& r) const;
  void Store(std::byte* at, const SpecimenRecord& r) const;
};

template <auto Member>
struct Short : AmsRow {
  static constexpr const char* Kind = "16-bit integer";
  void Load(const std::byte* at, SpecimenRecord& r) const {
    r.*Member = LoadLittle<std::int16_t>(at);
  }
  void Store(std::byte* at, const SpecimenRecord& r) const { StoreLittle(at, r.*Member); }
};

template <auto Member>
struct Shorts : AmsRow {
  static constexpr const char* Kind = "16-bit integers";
  void Load(const std::byte* at, SpecimenRecord& r) const {
    for (int i = 1; i <= Width / 2; ++i) (r.*Member)[i] = LoadLittle<std::int16_t>(at + 2 * i - 2);
  }
  void Store(std::byte* at, const SpecimenRecord& r) const {
    for (int i = 1; i <= Width / 2; ++i) StoreLittle(at + 2 * i - 2, (r.*Member)[i]);
  }
};

/// Bytes that are carried as they stand.
template <auto Member>
struct Bytes : AmsRow {
  static constexpr const char* Kind = "bytes, as they stand";
  void Load(const std::byte* at, SpecimenRecord& r) const {
    std::memcpy((r.*Member).data(), at, static_cast<std::size_t>(Width));
  }
  void Store(std::byte* at, const SpecimenRecord& r) const {
    std::memcpy(at, (r.*Member).data(), static_cast<std::size_t>(Width));
  }
};

/// Always written as zero, never read.
struct Zero : AmsRow {
  static constexpr const char* Kind = "zero, never read";
  void Load(const std::byte*, SpecimenRecord&) const {}
  void Store(std::byte*, const SpecimenRecord&) const {}
};

template <auto Member>
struct F32 : AmsRow {
  static constexpr const char* Kind = "32-bit float";
  void Load(const std::byte* at, SpecimenRecord& r) const { r.*Member = LoadLittle<float>(at); }
  void Store(std::byte* at, const SpecimenRecord& r) const { StoreLittle(at, ToSingle(r.*Member)); }
};

/// An orientation angle: 0 in record and file when the record has no orientation.
template <auto Member>
struct OrientationAngle : AmsRow {
  static constexpr const char* Kind = "32-bit float, 0 without orientation";
  void Load(const std::byte* at, SpecimenRecord& r) const {
    r.*Member = r.HasCoor[2] ? LoadLittle<float>(at) : 0;
  }
  void Store(std::byte* at, const SpecimenRecord& r) const {
    if (r.HasCoor[2]) StoreLittle(at, r.*Member);
  }
};

/// Angles of slots 1 and 2; slots 3 and 4 are zero and not read.
template <auto Member>
struct SlotAngles : AmsRow {
  static constexpr const char* Kind = "4 32-bit floats, slots 1 and 2 used";
  void Load(const std::byte* at, SpecimenRecord& r) const {
    r.*Member = {LoadLittle<float>(at), LoadLittle<float>(at + 4), 0, 0};
  }
  void Store(std::byte* at, const SpecimenRecord& r) const {
    for (int slot = 1; slot <= 2; ++slot) StoreLittle(at + 4 * slot - 4, (r.*Member)[slot]);
  }
};

/// Azimuths of the foliations in slots 1 and 2: strikes in the file where P4 is 90 and the slot has
/// a code, dip directions in the record. P4 and the codes are in earlier rows.
struct FoliationAzimuths : SlotAngles<&SpecimenRecord::FoliAz> {
  static constexpr const char* Kind = "4 32-bit floats, slots 1 and 2 used; strikes where P4 is 90";
  void Load(const std::byte* at, SpecimenRecord& r) const;
  void Store(std::byte* at, const SpecimenRecord& r) const;
};

/// The first `Width` / 4 numbers of an array.
template <auto Member>
struct F32s : AmsRow {
  static constexpr const char* Kind = "32-bit floats";
  void Load(const std::byte* at, SpecimenRecord& r) const {
    // By way of a copy: bytes might lie in the record, and the numbers would be written one by one.
    float numbers[std::remove_reference_t<decltype(r.*Member)>::Size];
    for (int i = 0; i < Width / 4; ++i) numbers[i] = LoadLittle<float>(at + 4 * i);
    for (int i = 0; i < Width / 4; ++i) (r.*Member).v[i] = numbers[i];
  }
  void Store(std::byte* at, const SpecimenRecord& r) const {
    for (int i = 0; i < Width / 4; ++i) StoreLittle(at + 4 * i, ToSingle((r.*Member).v[i]));
  }
};

/// Read, but never written: a file that went through the program once has zeros here, and this is
/// how the format is.
template <auto Member>
struct F32sReadOnly : F32s<Member> {
  static constexpr const char* Kind = "32-bit floats, read but written as zero";
  void Store(std::byte*, const SpecimenRecord&) const {}
};

/// A 3 by 3 matrix, first index fastest.
template <auto Member>
struct MatrixF32 : AmsRow {
  static constexpr const char* Kind = "9 32-bit floats, first index fastest";
  void Load(const std::byte* at, SpecimenRecord& r) const {
    float numbers[9];
    for (int i = 0; i < 9; ++i) numbers[i] = LoadLittle<float>(at + 4 * i);
    for (int j = 1; j <= 3; ++j)
      for (int i = 1; i <= 3; ++i) (r.*Member)[i][j] = numbers[3 * j + i - 4];
  }
  void Store(std::byte* at, const SpecimenRecord& r) const {
    for (int j = 1; j <= 3; ++j)
      for (int i = 1; i <= 3; ++i)
        StoreLittle(at + 12 * j + 4 * i - 16, ToSingle((r.*Member)[i][j]));
  }
};

/// -1 or 0, any other value reads as true.
template <auto Member, int Slot>
struct Flag : AmsRow {
  static constexpr const char* Kind = "16-bit boolean";
  void Load(const std::byte* at, SpecimenRecord& r) const {
    (r.*Member)[Slot] = LoadLittle<std::int16_t>(at) != 0;
  }
  void Store(std::byte* at, const SpecimenRecord& r) const {
    StoreLittle<std::int16_t>(at, (r.*Member)[Slot] ? -1 : 0);
  }
};

/// 0 is true here.
template <auto Member, int Slot>
struct InvertedFlag : AmsRow {
  static constexpr const char* Kind = "16-bit boolean, inverted";
  void Load(const std::byte* at, SpecimenRecord& r) const {
    (r.*Member)[Slot] = LoadLittle<std::int16_t>(at) == 0;
  }
  void Store(std::byte* at, const SpecimenRecord& r) const {
    StoreLittle<std::int16_t>(at, (r.*Member)[Slot] ? 0 : -1);
  }
};

using R = SpecimenRecord;

}  // namespace ams

// clang-format off
inline constexpr auto AmsLayout = std::tuple{
    ams::StrippedText<&ams::R::Name>          {"Name",             0,  20},
    ams::Text<&ams::R::RunTag>                {"RunTag",          20,   4},
    ams::Short<&ams::R::MeasMode>             {"MeasMode",        24,   2},
    ams::F32<&ams::R::Field>                  {"Field",           26,   4},
    ams::Zero                                 {"",                30,   4},
    ams::F32<&ams::R::FieldAux>               {"FieldAux",        34,   4},
    ams::Text<&ams::R::FreqName>              {"FreqName",        38,   2},
    ams::F32<&ams::R::Frequency>              {"Frequency",       40,   4},
    ams::Text<&ams::R::Instrument>            {"Instrument",      44,   8},
    ams::Text<&ams::R::SourceProgram>         {"SourceProgram",   52,   8},
    ams::Bytes<&ams::R::RunStamp>             {"RunStamp",        60,   8},
    ams::Bytes<&ams::R::RunAux1>              {"RunAux1",         68,   4},
    ams::Short<&ams::R::RunAux2>              {"RunAux2",         72,   2},
    ams::Bytes<&ams::R::RunAux3>              {"RunAux3",         74,   4},
    ams::Bytes<&ams::R::RunAux4>              {"RunAux4",         78,   4},
    ams::Shorts<&ams::R::OP>                  {"OP[1..4]",        82,   8},
    ams::Flag<&ams::R::HasCoor, 2>            {"HasCoor[2]",      90,   2},
    ams::OrientationAngle<&ams::R::OrientAz>  {"OrientAz",        92,   4},
    ams::OrientationAngle<&ams::R::OrientInc> {"OrientInc",       96,   4},
    ams::Codes<&ams::R::FoliName>             {"FoliName[1..4]", 100,   8},
    ams::FoliationAzimuths                    {"FoliAz[1..4]",   108,  16},
    ams::SlotAngles<&ams::R::FoliDip>         {"FoliDip[1..4]",  124,  16},
    ams::Codes<&ams::R::LineName>             {"LineName[1..4]", 140,   8},
    ams::SlotAngles<&ams::R::LineTrend>       {"LineTrend[1..4]",148,  16},
    ams::SlotAngles<&ams::R::LinePlunge>      {"LinePlunge[1..4]",164, 16},
    ams::F32<&ams::R::Km>                     {"Km",             180,   4},
    ams::F32<&ams::R::KmSD>                   {"KmSD",           184,   4},
    ams::F32s<&ams::R::K>                     {"K[1..3]",        188,  12},
    ams::F32sReadOnly<&ams::R::KSD>           {"KSD[1..3]",      200,  12},
    ams::F32s<&ams::R::Tensor>                {"Tensor[1..6]",   212,  24},
    ams::MatrixF32<&ams::R::Vec>              {"Vec[1..3,1..3]", 236,  36},
    ams::F32s<&ams::R::E>                     {"E[1..3]",        272,  12},
    ams::F32s<&ams::R::E2>                    {"E2[1..3]",       284,  12},
    ams::F32s<&ams::R::E3>                    {"E3[1..3]",       296,  12},
    ams::F32s<&ams::R::FTest>                 {"FTest[0..3]",    308,  16},
    ams::F32<&ams::R::KmIm>                   {"KmIm",           324,   4},
    ams::F32<&ams::R::KmSDIm>                 {"KmSDIm",         328,   4},
    ams::F32s<&ams::R::KIm>                   {"KIm[1..3]",      332,  12},
    ams::F32sReadOnly<&ams::R::KSDIm>         {"KSDIm[1..3]",    344,  12},
    ams::F32s<&ams::R::TensorIm>              {"TensorIm[1..6]", 356,  24},
    ams::MatrixF32<&ams::R::VecIm>            {"VecIm[1..3,1..3]",380, 36},
    ams::F32s<&ams::R::EIm>                   {"EIm[1..3]",      416,  12},
    ams::F32s<&ams::R::E2Im>                  {"E2Im[1..3]",     428,  12},
    ams::F32s<&ams::R::E3Im>                  {"E3Im[1..3]",     440,  12},
    ams::F32s<&ams::R::FTestIm>               {"FTestIm[0..3]",  452,  16},
    ams::Zero                                 {"",               468,   4},
    ams::Text<&ams::R::Site>                  {"Site",           472,  20},
    ams::F32<&ams::R::Lon>                    {"Lon",            492,   4},
    ams::F32<&ams::R::Lat>                    {"Lat",            496,   4},
    ams::F32<&ams::R::GeoAux>                 {"GeoAux",         500,   4},
    ams::Text<&ams::R::Rock>                  {"Rock",           504,  10},
    ams::Text<&ams::R::Strat>                 {"Strat",          514,  10},
    ams::Text<&ams::R::Litho>                 {"Litho",          524,  10},
    ams::Text<&ams::R::Regio>                 {"Regio",          534,  10},
    ams::InvertedFlag<&ams::R::HasCoor, 1>    {"not HasCoor[1]", 544,   2},
    ams::Zero                                 {"",               546,  94},
};
// clang-format on

/// Calls `visit(row)` for every row in file order.
template <class Visit>
constexpr void ForEachAmsRow(Visit visit) {
  std::apply([&](const auto&... row) { (visit(row), ...); }, AmsLayout);
}

/// The same for the rows of which `IsOne(row)` holds.
template <auto IsOne, class Visit>
constexpr void ForEachAmsRowOf(Visit visit) {
  const auto visitIfOne = [&]<std::size_t I>() {
    constexpr auto& row = std::get<I>(AmsLayout);
    if constexpr (IsOne(row)) visit(row);
  };
  [&]<std::size_t... I>(std::index_sequence<I...>) { (visitIfOne.template operator()<I>(), ...); }
  (std::make_index_sequence<std::tuple_size_v<decltype(AmsLayout)>>());
}

/// The rows of which `isOne(row)` holds, a bit each in file order.
template <class IsOne>
constexpr std::uint64_t AmsRowBits(IsOne isOne) {
  std::uint64_t bits = 0, bit = 1;
  ForEachAmsRow([&](const auto& row) {
    if (isOne(row)) bits |= bit;
    bit <<= 1;
  });
  return bits;
}
static_assert(std::tuple_size_v<decltype(AmsLayout)> <= 64);

constexpr bool IsGapless() {
  int end = 0;
  bool gapless = true;
  ForEachAmsRow([&](const auto& row) {
    gapless = gapless && row.Offset == end && row.Width > 0;
    end = row.Offset + row.Width;
  });
  return gapless && end == AmsRecordSize;
}
static_assert(IsGapless());

}  // namespace velorix
