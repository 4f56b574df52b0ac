#include "datafiles/ged_file.h"
#include "fuzz/text_reader.h"

// What was read is written in lines of 64 bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velorix;
  RecordArray records;
  const auto read = [&](RecordArray& into) {
    return ReadGedText("x.ged", fuzz::TextOf(data, size), into);
  };
  if (!fuzz::ReadsOrLeaves(read, records)) return 0;
  const std::string written = GedText(records);
  fuzz::Hold(written.size() == 64 * (static_cast<std::size_t>(records.Count()) + 1));
  return 0;
}
