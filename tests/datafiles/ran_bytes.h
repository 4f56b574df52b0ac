#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "base/fault.h"
#include "datafiles/ran_file.h"
#include "tests/datafiles/golden_ran.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {

// What the tests of reading and writing RAN files share: files as texts of bytes.

using golden::Bytes;

inline const std::string Header = golden::TextOf(golden::RanHeader());
inline const std::string OneSpecimen = golden::TextOf(golden::RanSpecimen());

inline Outcome Read(const std::string& bytes, RecordArray& records,
                    const std::string& path = "x.ran", const Settings& settings = {}) {
  return ReadRanBytes(std::as_bytes(std::span(bytes)), path, records, settings);
}

/// The only specimen of a file under a header.
inline SpecimenRecord Only(const Bytes& specimen, const Bytes& header = golden::RanHeader(),
                           const std::string& path = "x.ran", const Settings& settings = {}) {
  RecordArray records;
  EXPECT_TRUE(Read(golden::TextOf(header) + golden::TextOf(specimen), records, path, settings));
  EXPECT_EQ(records.Count(), 1);
  return records[1];
}

/// The bytes that a file gets for some records.
inline std::string Written(const std::vector<SpecimenRecord>& list,
                           const std::string& suffix = "") {
  RecordArray records;
  for (const SpecimenRecord& r : list) records.Add(r);
  const TempFolder folder;
  EXPECT_TRUE(WriteRanFile(folder.File("x.ran"), records, false, true, suffix));
  return BytesOf(folder.File("x.ran"));
}

inline SpecimenRecord WrittenAndRead(const SpecimenRecord& record) {
  RecordArray records;
  EXPECT_TRUE(Read(Written({record}), records));
  return records[1];
}

/// The number of the fault in which something ends, 0 without one.
inline int FaultOf(const std::function<void()>& run) {
  try {
    run();
  } catch (const Fault& fault) {
    return fault.Number;
  }
  return 0;
}

}  // namespace velorix
