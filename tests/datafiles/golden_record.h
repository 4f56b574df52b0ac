#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "store/specimen_record.h"

namespace velorix::golden {

// One AMS record with something different in every field, laid out by hand from the description of
// the format, not from the program's own table.

using Bytes = std::vector<std::byte>;

inline void PutInteger(Bytes& bytes, int at, std::uint32_t value, int width) {
  for (int i = 0; i < width; ++i)
    bytes[static_cast<std::size_t>(at + i)] = std::byte(value >> 8 * i & 0xFF);
}
inline void PutShort(Bytes& bytes, int at, int value) {
  PutInteger(bytes, at, static_cast<std::uint32_t>(value), 2);
}
inline void PutFloat(Bytes& bytes, int at, float value) {
  PutInteger(bytes, at, std::bit_cast<std::uint32_t>(value), 4);
}
inline void PutFloats(Bytes& bytes, int at, float first, int count) {
  for (int i = 0; i < count; ++i) PutFloat(bytes, at + 4 * i, first + static_cast<float>(i));
}
inline void PutText(Bytes& bytes, int at, std::string_view text) {
  for (char c : text) bytes[static_cast<std::size_t>(at++)] = static_cast<std::byte>(c);
}

/// The bytes as another program may have left them, deviations of the principal values among them.
inline Bytes OnDisk() {
  Bytes bytes(640);
  PutText(bytes, 0, "DK-01a              ");
  PutText(bytes, 20, "Tag1");
  PutShort(bytes, 24, -1);
  PutFloat(bytes, 26, 400);
  PutFloat(bytes, 34, 1.25f);
  PutText(bytes, 38, "3F");
  PutFloat(bytes, 40, 15616);
  PutText(bytes, 44, "TQB-4   ");
  PutText(bytes, 52, "Marlo   ");
  PutText(bytes, 60, "12345678");
  PutText(bytes, 68, "abcd");
  PutShort(bytes, 72, -2);
  PutText(bytes, 74, "efgh");
  PutText(bytes, 78, "ijkl");
  PutShort(bytes, 82, 12);
  PutShort(bytes, 84, 90);
  PutShort(bytes, 86, 3);
  PutShort(bytes, 88, 90);
  PutShort(bytes, 90, -1);
  PutFloat(bytes, 92, 215.5f);
  PutFloat(bytes, 96, -46);
  PutText(bytes, 100, "S0S1");
  PutFloats(bytes, 108, 101, 2);
  PutFloats(bytes, 124, 103, 2);
  PutText(bytes, 140, "L1L ");
  PutFloats(bytes, 148, 105, 2);
  PutFloats(bytes, 164, 107, 2);
  for (int block = 0; block <= 1; ++block) {
    const int at = 180 + 144 * block;
    const float first = block == 0 ? 200.0f : 300.0f;
    PutFloat(bytes, at, first + 0.5f);          // Km
    PutFloat(bytes, at + 4, first + 0.75f);     // KmSD
    PutFloats(bytes, at + 8, first + 1, 3);     // K
    PutFloats(bytes, at + 20, first + 4, 3);    // KSD
    PutFloats(bytes, at + 32, first + 7, 6);    // Tensor
    PutFloats(bytes, at + 56, first + 13, 9);   // Vec
    PutFloats(bytes, at + 92, first + 22, 3);   // E
    PutFloats(bytes, at + 104, first + 25, 3);  // E2
    PutFloats(bytes, at + 116, first + 28, 3);  // E3
    PutFloats(bytes, at + 128, first + 31, 4);  // FTest
  }
  PutText(bytes, 472, "Scripps Beach       ");
  PutFloat(bytes, 492, -117.25f);
  PutFloat(bytes, 496, 32.875f);
  PutFloat(bytes, 500, 12);
  PutText(bytes, 504, "dolerite  ");
  PutText(bytes, 514, "Miocene   ");
  PutText(bytes, 524, "dike      ");
  PutText(bytes, 534, "California");
  return bytes;
}

/// The bytes as this program writes them.
inline Bytes Written() {
  Bytes bytes = OnDisk();
  for (int at : {200, 344})
    for (int i = 0; i < 12; ++i) bytes[static_cast<std::size_t>(at + i)] = std::byte{0};
  return bytes;
}

template <class Slots>
void Count(Slots& slots, float first, int count) {
  for (int i = 0; i < count; ++i) slots.v[i] = first + static_cast<float>(i);
}

/// What `OnDisk` says.
inline SpecimenRecord Record() {
  SpecimenRecord r;
  r.Name = "DK-01a";
  r.Active = true;
  r.MeasMode = -1;
  r.RunTag = "Tag1";
  r.Field = 400;
  r.FieldAux = 1.25f;
  r.FreqIndex = 3;
  r.FreqName = "3F";
  r.Frequency = 15616;
  r.Instrument = "TQB-4";
  r.SourceProgram = "Marlo";
  r.RunStamp = {'1', '2', '3', '4', '5', '6', '7', '8'};
  r.RunAux1 = {'a', 'b', 'c', 'd'};
  r.RunAux2 = -2;
  r.RunAux3 = {'e', 'f', 'g', 'h'};
  r.RunAux4 = {'i', 'j', 'k', 'l'};
  r.OP = {12, 90, 3, 90};
  r.HasCoor = {true, true, true, true};
  r.OrientAz = 215.5f;
  r.OrientInc = -46;
  r.FoliName = {"S0", "S1", "", ""};
  r.FoliAz = {101, 102, 0, 0};
  r.FoliDip = {103, 104, 0, 0};
  r.LineName = {"L1", "L", "", ""};
  r.LineTrend = {105, 106, 0, 0};
  r.LinePlunge = {107, 108, 0, 0};
  r.Km = 200.5;
  r.KmSD = 200.75;
  Count(r.K, 201, 3);
  Count(r.KSD, 204, 3);
  Count(r.Tensor, 207, 6);
  Count(r.E, 222, 3);
  Count(r.E2, 225, 3);
  Count(r.E3, 228, 3);
  Count(r.FTest, 231, 4);
  r.HasIm = true;
  r.KmIm = 300.5;
  r.KmSDIm = 300.75;
  Count(r.KIm, 301, 3);
  Count(r.KSDIm, 304, 3);
  Count(r.TensorIm, 307, 6);
  Count(r.EIm, 322, 3);
  Count(r.E2Im, 325, 3);
  Count(r.E3Im, 328, 3);
  Count(r.FTestIm, 331, 4);
  for (int j = 1; j <= 3; ++j)  // column by column
    for (int i = 1; i <= 3; ++i) {
      r.Vec[i][j] = static_cast<float>(213 + 3 * (j - 1) + (i - 1));
      r.VecIm[i][j] = static_cast<float>(313 + 3 * (j - 1) + (i - 1));
    }
  r.Site = "Scripps Beach";
  r.Lon = -117.25f;
  r.Lat = 32.875f;
  r.GeoAux = 12;
  r.Rock = "dolerite";
  r.Strat = "Miocene";
  r.Litho = "dike";
  r.Regio = "California";
  return r;
}

}  // namespace velorix::golden
