#include "datafiles/formats/ged_file.h"
#include "fuzz/text_reader.h"

namespace {

/// The file without the coordinates, which change places and may be cut.
std::string WithoutCoordinates(std::string text) { return text.erase(20, 14); }

}  // namespace

// What was read is written in lines of 64 bytes, and comes back from them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velorix;
  RecordArray records;
  const auto read = [&](RecordArray& into) {
    return ReadGedText("x.ged", fuzz::TextOf(data, size), into);
  };
  if (!fuzz::ReadsOrLeaves(read, records)) return 0;
  const std::string written = GedText(records);
  fuzz::Hold(written.size() == 64 * (static_cast<std::size_t>(records.Count()) + 1));
  RecordArray again;
  fuzz::Hold(ReadGedText("x.ged", written, again).Done);
  fuzz::Hold(WithoutCoordinates(GedText(again)) == WithoutCoordinates(written));
  return 0;
}
