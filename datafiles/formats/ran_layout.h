#pragma once

#include <array>
#include <tuple>

#include "base/slots.h"
#include "datafiles/bytes/bytes.h"
#include "datafiles/bytes/fixed_text.h"

namespace velorix {

// A RAN file is a sequence of records of 64 bytes: a header for the whole site, then one record a
// specimen; numbers are little-endian, texts single-byte. `RanHeaderLayout` and `RanSpecimenLayout`
// below are the two records, a row a field, gapless and in file order: reader and writer walk them,
// and the page on the format is held to them. The structures hold what stands on disk; what it
// means is in datafiles/formats/ran_file.cpp.

inline constexpr int RanRecordSize = 64;

/// What the header says of the site. Numbers in it are decimal texts.
struct RanHeader {
  std::int16_t HeaderCount = 0;  // records of 64 bytes in the file, plus 1
  std::string Site;
  std::string Coordinate1, Coordinate2;
  std::string Rock, Strat, Litho, Regio;
  std::string P1, P2, P3, P4;
};

/// The two characters of a code pair as they stand on disk: a foliation's and a lineation's code.
using CodePair = std::array<char, 2>;

/// Azimuth and dip of a foliation, trend and plunge of a lineation.
using RanAngles = Array1<std::int16_t, 4>;

struct RanSpecimen {
  std::string Name;
  float A = 0, B = 0;
  Array1<float, 6> Tensor;
  CodePair Codes1 = {}, Codes2 = {};
  RanAngles Angles1, Angles2;
};

/// What every row has: the field's name, its place and its width in bytes.
struct RanRow {
  const char* Name;
  int Offset, Width;
};

namespace ran {

template <auto Member>
struct Text : RanRow {
  static constexpr const char* Kind = "text";
  void Load(const std::byte* at, auto& r) const { LoadText(at, Width, r.*Member); }
  void Store(std::byte* at, const auto& r) const { StoreText(at, Width, r.*Member); }
};

/// A number in digits, cut at the width of its field whatever that makes of it.
template <auto Member>
struct Digits : Text<Member> {
  static constexpr const char* Kind = "decimal text";
};

template <auto Member>
struct Short : RanRow {
  static constexpr const char* Kind = "16-bit integer";
  void Load(const std::byte* at, auto& r) const { r.*Member = LoadLittle<std::int16_t>(at); }
  void Store(std::byte* at, const auto& r) const { StoreLittle(at, r.*Member); }
};

template <auto Member>
struct Shorts : RanRow {
  static constexpr const char* Kind = "16-bit integers";
  void Load(const std::byte* at, auto& r) const {
    for (int i = 1; i <= Width / 2; ++i) (r.*Member)[i] = LoadLittle<std::int16_t>(at + 2 * i - 2);
  }
  void Store(std::byte* at, const auto& r) const {
    for (int i = 1; i <= Width / 2; ++i) StoreLittle(at + 2 * i - 2, (r.*Member)[i]);
  }
};

template <auto Member>
struct F32 : RanRow {
  static constexpr const char* Kind = "32-bit float";
  void Load(const std::byte* at, auto& r) const { r.*Member = LoadLittle<float>(at); }
  void Store(std::byte* at, const auto& r) const { StoreLittle(at, r.*Member); }
};

template <auto Member>
struct F32s : RanRow {
  static constexpr const char* Kind = "32-bit floats";
  void Load(const std::byte* at, auto& r) const {
    for (int i = 1; i <= Width / 4; ++i) (r.*Member)[i] = LoadLittle<float>(at + 4 * i - 4);
  }
  void Store(std::byte* at, const auto& r) const {
    for (int i = 1; i <= Width / 4; ++i) StoreLittle(at + 4 * i - 4, (r.*Member)[i]);
  }
};

template <auto Member>
struct Pair : RanRow {
  static constexpr const char* Kind = "2 characters";
  void Load(const std::byte* at, auto& r) const { std::memcpy((r.*Member).data(), at, 2); }
  void Store(std::byte* at, const auto& r) const { std::memcpy(at, (r.*Member).data(), 2); }
};

/// Written as zero, never read.
struct Zero : RanRow {
  static constexpr const char* Kind = "zero, never read";
  void Load(const std::byte*, auto&) const {}
  void Store(std::byte*, const auto&) const {}
};

using H = RanHeader;
using S = RanSpecimen;

}  // namespace ran

// clang-format off
inline constexpr auto RanHeaderLayout = std::tuple{
    ran::Short<&ran::H::HeaderCount>  {{"HeaderCount",       0,  2}},
    ran::Text<&ran::H::Site>          {{"Site",              2, 16}},
    ran::Digits<&ran::H::Coordinate1> {{{"first coordinate",  18,  7}}},
    ran::Digits<&ran::H::Coordinate2> {{{"second coordinate", 25,  7}}},
    ran::Text<&ran::H::Rock>          {{"Rock",             32,  4}},
    ran::Text<&ran::H::Strat>         {{"Strat",            36,  4}},
    ran::Text<&ran::H::Litho>         {{"Litho",            40,  4}},
    ran::Text<&ran::H::Regio>         {{"Regio",            44,  4}},
    ran::Digits<&ran::H::P1>          {{{"P1",               48,  3}}},
    ran::Digits<&ran::H::P2>          {{{"P2",               51,  3}}},
    ran::Digits<&ran::H::P3>          {{{"P3",               54,  3}}},
    ran::Digits<&ran::H::P4>          {{{"P4",               57,  3}}},
    ran::Zero                         {{"",                 60,  4}},
};

inline constexpr auto RanSpecimenLayout = std::tuple{
    ran::Text<&ran::S::Name>          {{"Name",              0, 12}},
    ran::F32<&ran::S::A>              {{"A",                12,  4}},
    ran::F32<&ran::S::B>              {{"B",                16,  4}},
    ran::F32s<&ran::S::Tensor>        {{"Tensor[1..6]",     20, 24}},
    ran::Pair<&ran::S::Codes1>        {{"code pair 1",      44,  2}},
    ran::Shorts<&ran::S::Angles1>     {{"angles 1",         46,  8}},
    ran::Pair<&ran::S::Codes2>        {{"code pair 2",      54,  2}},
    ran::Shorts<&ran::S::Angles2>     {{"angles 2",         56,  8}},
};
// clang-format on

/// Calls `visit(row)` for every row of a layout in file order.
template <class Layout, class Visit>
constexpr void ForEachRanRow(const Layout& layout, Visit visit) {
  std::apply([&](const auto&... row) { (visit(row), ...); }, layout);
}

template <class Layout>
constexpr bool FillsRanRecord(const Layout& layout) {
  int end = 0;
  bool gapless = true;
  ForEachRanRow(layout, [&](const auto& row) {
    gapless = gapless && row.Offset == end && row.Width > 0;
    end = row.Offset + row.Width;
  });
  return gapless && end == RanRecordSize;
}
static_assert(FillsRanRecord(RanHeaderLayout) && FillsRanRecord(RanSpecimenLayout));

/// One record of the file from and to `RanRecordSize` bytes.
template <class Layout, class Part>
void LoadRanRecord(const Layout& layout, const std::byte* bytes, Part& part) {
  ForEachRanRow(layout, [&](const auto& row) { row.Load(bytes + row.Offset, part); });
}
template <class Layout, class Part>
void StoreRanRecord(const Layout& layout, const Part& part, std::byte* bytes) {
  std::memset(bytes, 0, RanRecordSize);
  ForEachRanRow(layout, [&](const auto& row) { row.Store(bytes + row.Offset, part); });
}

}  // namespace velorix
