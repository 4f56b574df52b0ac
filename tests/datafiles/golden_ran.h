#pragma once

#include <string>

#include "tests/datafiles/golden_record.h"

namespace velorix::golden {

// Records of a RAN file laid out by hand from the description of the format, not from the program's
// own tables.

inline std::string TextOf(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

inline Bytes RanHeader() {
  Bytes bytes(64);
  PutShort(bytes, 0, 3);
  PutText(bytes, 2, "Scripps Beach   ");
  PutText(bytes, 18, "-117.25");
  PutText(bytes, 25, "32.875 ");
  PutText(bytes, 32, "dole");
  PutText(bytes, 36, "Mio ");
  PutText(bytes, 40, "dike");
  PutText(bytes, 44, "Cali");
  PutText(bytes, 48, "12 ");
  PutText(bytes, 51, "90 ");
  PutText(bytes, 54, "3  ");
  PutText(bytes, 57, "0  ");
  return bytes;
}

inline Bytes RanSpecimen() {
  Bytes bytes(64);
  PutText(bytes, 0, "DK-01a      ");
  PutFloat(bytes, 12, 2700);
  PutFloat(bytes, 16, 150);
  PutFloats(bytes, 20, 1, 6);  // k11, k22, k33, k12, k23, k13: 1 to 6
  PutText(bytes, 44, "SL");
  PutShort(bytes, 46, 294);
  PutShort(bytes, 48, 25);
  PutShort(bytes, 50, -5);
  PutShort(bytes, 52, 7);
  PutText(bytes, 54, "T0");
  PutShort(bytes, 56, 11);
  PutShort(bytes, 58, 12);
  PutShort(bytes, 60, 13);
  PutShort(bytes, 62, 14);
  return bytes;
}

/// What the two say together: the site's coordinates come back exchanged.
inline SpecimenRecord RanRecord() {
  SpecimenRecord r;
  r.Name = "DK-01a";
  r.Active = true;
  r.Field = 700;
  r.FreqIndex = 2;
  r.FreqName = "2F";
  r.Frequency = 3904;
  r.Instrument = "NVR1";
  r.SourceProgram = "Marlo";
  r.Site = "Scripps Beach";
  r.Lon = 32.875f;
  r.Lat = -117.25f;
  r.Rock = "dole";
  r.Strat = "Mio";
  r.Litho = "dike";
  r.Regio = "Cali";
  r.OP = {12, 90, 3, 0};
  r.HasCoor = {false, true, true, true};
  r.FoliName = {"S", "T", "", ""};
  r.FoliAz = {294, 11, 0, 0};
  r.FoliDip = {25, 12, 0, 0};
  r.LineName = {"L", "", "", ""};
  r.LineTrend = {-5, 13, 0, 0};
  r.LinePlunge = {7, 14, 0, 0};
  r.Km = 300e-6;  // a mean of 2 times 150
  Count(r.Tensor, 1, 6);
  for (int i = 1; i <= 3; ++i) r.E[i] = r.E2[i] = r.E3[i] = 0.0f;
  for (int i = 0; i <= 3; ++i) r.FTest[i] = 0.0f;
  return r;
}

}  // namespace velorix::golden
