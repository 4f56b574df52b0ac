#include "datafiles/formats/asc_file.h"
#include "fuzz/text_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velorix;
  RecordArray records;
  const bool done = fuzz::ReadsOrLeaves(
      [&](RecordArray& into) { return ReadAscText(fuzz::TextOf(data, size), "x.asc", into); },
      records);
  for (int i = 2; done && i <= records.Count(); ++i)
    fuzz::Hold(records[i].Active && records[i].HasCoor[1]);
  return 0;
}
