#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "datafiles/formats/ams_file.h"
#include "datafiles/formats/ams_layout.h"

namespace velorix::golden {

// One AMS record with something different in every field, laid out by hand from the description of
// the format, not from the program's own table.

inline void PutText(std::string& bytes, std::size_t at, std::string_view text) {
  bytes.replace(at, text.size(), text);
}
inline void PutInteger(std::string& bytes, std::size_t at, std::uint32_t value, int width) {
  for (int i = 0; i < width; ++i) bytes[at++] = static_cast<char>(value >> 8 * i & 0xFF);
}
inline void PutShort(std::string& bytes, std::size_t at, int value) {
  PutInteger(bytes, at, static_cast<std::uint32_t>(value), 2);
}
inline void PutFloat(std::string& bytes, std::size_t at, float value) {
  PutInteger(bytes, at, std::bit_cast<std::uint32_t>(value), 4);
}
inline void PutFloats(std::string& bytes, std::size_t at, float first, int count) {
  for (; count > 0; --count, at += 4, ++first) PutFloat(bytes, at, first);
}

/// The bytes as another program may have left them, deviations of the principal values among them;
/// with a name of its own when one is given.
inline std::string OnDisk(const std::string& name = "DK-01a") {
  std::string bytes(640, '\0');
  // clang-format off
  const std::pair<std::size_t, std::string_view> texts[] = {
      {0, "                    Tag1"}, {0, name}, {38, "F3"},
      {44, "TQB-4   Marlo   12345678abcd"}, {74, "efghijkl"}, {100, "S0S1"}, {140, "L1L "},
      {472, "Scripps Beach       "}, {504, "dolerite  Miocene   dike      California"}};
  const std::pair<std::size_t, int> shorts[] = {
      {24, -1}, {72, -2}, {82, 12}, {84, 90}, {86, 3}, {88, 90}, {90, -1}};
  const std::pair<std::size_t, float> floats[] = {
      {26, 400.0f}, {34, 1.25f}, {40, 15616.0f}, {92, 215.5f}, {96, -46.0f},
      {108, 101.0f}, {112, 102.0f}, {124, 103.0f}, {128, 104.0f},
      {148, 105.0f}, {152, 106.0f}, {164, 107.0f}, {168, 108.0f},
      {180, 200.5f}, {184, 200.75f}, {324, 300.5f}, {328, 300.75f},
      {492, -117.25f}, {496, 32.875f}, {500, 12.0f}};
  // clang-format on
  for (const auto& [at, text] : texts) PutText(bytes, at, text);
  for (const auto& [at, value] : shorts) PutShort(bytes, at, value);
  for (const auto& [at, value] : floats) PutFloat(bytes, at, value);
  PutFloats(bytes, 188, 201, 34);  // both blocks but for their means
  PutFloats(bytes, 332, 301, 34);
  return bytes;
}

/// The bytes as this program writes them.
inline std::string Written() {
  return OnDisk().replace(200, 12, 12, '\0').replace(344, 12, 12, '\0');
}

template <class Slots>
void Count(Slots& slots, float first, int count) {
  for (int i = 0; i < count; ++i) slots.v[i] = first + static_cast<float>(i);
}

/// The first places of an array of numbers get some.
template <class Slots, class Value>
void Put(Slots& slots, std::initializer_list<Value> values) {
  for (int i = 0; const Value value : values) slots.v[i++] = value;
}

/// What `OnDisk` says, the blocks with numbers from `re` and `im` on; without the second if 0. The
/// foliations, which are strikes there by P4, are dip directions.
inline SpecimenRecord Record(float re = 200, float im = 300) {
  SpecimenRecord r;
  // clang-format off
  r.Name = "DK-01a";            r.Active = true;              r.MeasMode = -1;
  r.RunTag = "Tag1";            r.Field = 400;                r.FieldAux = 1.25f;
  r.FreqIndex = 3;              r.FreqName = "F3";            r.Frequency = 15616;
  r.Instrument = "TQB-4";       r.SourceProgram = "Marlo";
  r.RunStamp = {'1', '2', '3', '4', '5', '6', '7', '8'};
  r.RunAux1 = {'a', 'b', 'c', 'd'};    r.RunAux2 = -2;
  r.RunAux3 = {'e', 'f', 'g', 'h'};    r.RunAux4 = {'i', 'j', 'k', 'l'};
  r.OP = {12, 90, 3, 90};              r.HasCoor = {true, true, true, true};
  r.OrientAz = 215.5f;                 r.OrientInc = -46;
  r.FoliName = {"S0", "S1", "", ""};   r.LineName = {"L1", "L", "", ""};
  r.FoliAz = {191, 192, 0, 0};         r.FoliDip = {103, 104, 0, 0};
  r.LineTrend = {105, 106, 0, 0};      r.LinePlunge = {107, 108, 0, 0};
  r.Site = "Scripps Beach";     r.Lon = -117.25f;   r.Lat = 32.875f;   r.GeoAux = 12;
  r.Rock = "dolerite";          r.Strat = "Miocene";  r.Litho = "dike";  r.Regio = "California";
  // clang-format on
  const auto put = [](float first, double& km, double& kmSD, auto& k, auto& kSD, auto& tensor,
                      auto& vec, auto& e, auto& e2, auto& e3, auto& fTest) {
    km = first + 0.5f;
    kmSD = first + 0.75f;
    Count(k, first + 1, 3);
    Count(kSD, first + 4, 3);
    Count(tensor, first + 7, 6);
    for (int j = 1; j <= 3; ++j)  // column by column
      for (int i = 1; i <= 3; ++i) vec[i][j] = first + static_cast<float>(9 + 3 * j + i);
    Count(e, first + 22, 3);
    Count(e2, first + 25, 3);
    Count(e3, first + 28, 3);
    Count(fTest, first + 31, 4);
  };
  put(re, r.Km, r.KmSD, r.K, r.KSD, r.Tensor, r.Vec, r.E, r.E2, r.E3, r.FTest);
  r.HasIm = im != 0;
  if (r.HasIm)
    put(im, r.KmIm, r.KmSDIm, r.KIm, r.KSDIm, r.TensorIm, r.VecIm, r.EIm, r.E2Im, r.E3Im,
        r.FTestIm);
  return r;
}

inline SpecimenRecord Decoded(const std::string& bytes) {
  SpecimenRecord record;
  DecodeAmsRecord(reinterpret_cast<const std::byte*>(bytes.data()), record);
  return record;
}
inline std::string Encoded(const SpecimenRecord& record) {
  std::string bytes(AmsRecordSize, '\xEE');
  EncodeAmsRecord(record, reinterpret_cast<std::byte*>(bytes.data()));
  return bytes;
}

}  // namespace velorix::golden
