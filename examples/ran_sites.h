#pragma once

#include "datafiles/formats/ran_file.h"
#include "examples/example_sites.h"

namespace velorix::examples {

/// Sites that are there as AMS files too, under the name of the format of exchange.
inline std::vector<ExampleFile> RanExampleFiles() {
  ExampleFile granite = GraniteFile(), tr245 = Tr245File();
  granite.Name = "granite.ran";
  tr245.Name = "tr245.are";
  return {granite, tr245};
}

/// The bytes of a file as this program writes it.
inline std::string RanFileBytes(const ExampleFile& file) {
  RecordArray records;
  for (const SpecimenRecord& record : file.Records) records.Add(record);
  const std::vector<std::byte> bytes = RanBytes({}, records, true);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace velorix::examples
