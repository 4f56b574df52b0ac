#pragma once

#include <gtest/gtest.h>

#include <span>
#include <vector>

#include "datafiles/ran_file.h"
#include "tests/datafiles/golden_record.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {

// What the tests of reading and writing RAN files share: a header and a specimen laid out by hand
// from the description of the format, not from the program's own tables.

inline std::string Header() {
  using namespace std::string_literals;
  return "\3\0Scripps Beach   -117.2532.875 doleMio dikeCali12 90 3  0  \0\0\0\0"s;
}

inline std::string OneSpecimen() {
  std::string bytes(64, '\0');
  golden::PutText(bytes, 0, "DK-01a      ");
  golden::PutFloat(bytes, 12, 2700);
  golden::PutFloat(bytes, 16, 150);
  golden::PutFloats(bytes, 20, 1, 6);  // k11, k22, k33, k12, k23, k13: 1 to 6
  golden::PutText(bytes, 44, "SL");
  golden::PutText(bytes, 54, "T0");
  const int angles[] = {294, 25, -5, 7, 0, 11, 12, 13, 14};  // 0 in the place of the second codes
  for (std::size_t i = 0; i < 9; ++i)
    if (i != 4) golden::PutShort(bytes, 46 + 2 * i, angles[i]);
  return bytes;
}

/// What the two say together: the site's coordinates come back exchanged.
inline SpecimenRecord RanRecord() {
  SpecimenRecord r;
  // clang-format off
  r.Name = "DK-01a";                  r.Active = true;
  r.Field = 700;                      r.FreqIndex = 2;
  r.FreqName = "2F";                  r.Frequency = 3904;
  r.Instrument = "NVR1";              r.SourceProgram = "Marlo";
  r.Site = "Scripps Beach";           r.Lon = 32.875f;     r.Lat = -117.25f;
  r.Rock = "dole";  r.Strat = "Mio";  r.Litho = "dike";    r.Regio = "Cali";
  r.OP = {12, 90, 3, 0};              r.HasCoor = {false, true, true, true};
  r.FoliName = {"S", "T", "", ""};    r.LineName = {"L", "", "", ""};
  r.FoliAz = {294, 11, 0, 0};         r.FoliDip = {25, 12, 0, 0};
  r.LineTrend = {-5, 13, 0, 0};       r.LinePlunge = {7, 14, 0, 0};
  // clang-format on
  r.Km = 300e-6;  // a mean of 2 times 150
  golden::Count(r.Tensor, 1, 6);
  for (int i = 1; i <= 3; ++i) r.E[i] = r.E2[i] = r.E3[i] = 0.0f;
  for (int i = 0; i <= 3; ++i) r.FTest[i] = 0.0f;
  return r;
}

inline Outcome Read(const std::string& bytes, RecordArray& records,
                    const std::string& path = "x.ran", const Settings& settings = {}) {
  return ReadRanBytes(std::as_bytes(std::span(bytes)), path, records, settings);
}

/// The only specimen of a file under a header.
inline SpecimenRecord Only(const std::string& specimen, const std::string& header = Header(),
                           const std::string& path = "x.ran", const Settings& settings = {}) {
  RecordArray records;
  EXPECT_TRUE(Read(header + specimen, records, path, settings));
  EXPECT_EQ(records.Count(), 1);
  return records[1];
}

/// The bytes that a file gets for a record.
inline std::string Written(const SpecimenRecord& record, const std::string& suffix = "") {
  const TempFolder folder;
  EXPECT_TRUE(WriteRanRecord(folder.File("x.ran"), record, suffix));
  return BytesOf(folder.File("x.ran"));
}

inline SpecimenRecord WrittenAndRead(const SpecimenRecord& record) {
  const std::string bytes = Written(record);
  return Only(bytes.substr(64), bytes.substr(0, 64));
}

}  // namespace velorix
