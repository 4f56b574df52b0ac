#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "base/fault.h"
#include "datafiles/formats/ran_file.h"
#include "datafiles/formats/ran_layout.h"
#include "fuzz/input_length.h"
#include "store/session.h"

namespace {

using namespace velorix;

void Hold(bool law) {
  if (!law) std::abort();
}

/// What an attempt to read has come to.
enum class End { Read, Refused, Failed };

End Read(std::span<const std::byte> bytes, const char* path, RecordArray& records) {
  const int before = records.Count();
  try {
    if (ReadRanBytes(bytes, path, records, {})) return End::Read;
    Hold(records.Count() == before);
    return End::Refused;
  } catch (const Fault& fault) {
    Hold(fault.Number == 6 || fault.Number == 13);
    Hold(records.Count() == before);
    return End::Failed;
  }
}

/// The same values, whatever bits a NaN has.
bool SameTensor(const SpecimenRecord& a, const SpecimenRecord& b) {
  for (int i = 1; i <= 6; ++i) {
    const double before = a.Tensor[i], after = b.Tensor[i];
    if (before != after && !(std::isnan(before) && std::isnan(after))) return false;
  }
  return true;
}

/// What one more writing and reading keeps. A code beyond the code page, as an upper case letter
/// may be, and names that lose blanks in a second place are the exceptions to equal texts.
void HoldRoundTrip(const RecordArray& records) {
  std::vector<std::byte> written;
  try {
    written = RanBytes({}, records, true);
  } catch (const Fault& fault) {
    Hold(fault.Number == 6);
    return;
  }
  Hold(written.size() == 64 * (static_cast<std::size_t>(records.Count()) + 1));
  RecordArray again;
  const End end = Read(written, "x.ran", again);
  // A coordinate cut in its exponent.
  if (end == End::Failed) return;
  Hold(end == End::Read && again.Count() == records.Count());
  for (int i = 1; i <= again.Count(); ++i) {
    const SpecimenRecord &a = records[i], &b = again[i];
    Hold(b.SourceProgram == "Marlo" && b.Active && b.OP[4] == 0);
    Hold(b.HasCoor[1] != b.HasCoor[2] && !b.HasIm);
    const bool passesForSpecimen = a.FoliName[1] == "S" && a.LineName[1] == "S";
    if (passesForSpecimen) continue;
    Hold(a.HasCoor == b.HasCoor && a.FoliAz == b.FoliAz && a.LinePlunge == b.LinePlunge);
    Hold(SameTensor(a, b));
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  return fuzz::LimitInputs(argc, argv, 9 * RanRecordSize / 2);
}

// Arbitrary bytes end in records, in a refusal or in an error of the program's own; memory used
// before changes nothing. The first byte, which the reader doesn't look at, chooses the extension.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::byte> bytes(reinterpret_cast<const std::byte*>(data), size);
  const char* const path = size > 0 && data[0] % 2 == 1 ? "x.are" : "x.ran";
  static RecordArray used;
  used.Clear();
  RecordArray fresh;
  const End end = Read(bytes, path, fresh);
  Hold(Read(bytes, path, used) == end);
  Hold(fresh.Count() == (end == End::Read ? RanSpecimenCount(size) : 0));
  Hold((end == End::Refused) == (RanSpecimenCount(size) == 0));
  if (end != End::Read) return 0;
  for (int i = 1; i <= fresh.Count(); ++i) {
    const SpecimenRecord& record = fresh[i];
    const bool equalToItself = record == fresh[i];  // without a NaN among its plain floats
    Hold(!equalToItself || fresh[i] == used[i]);
    used[i].Selected = true;  // something stale for the next input
    used[i].TensorRot[1] = used[i].FoliDec[3] = 1.0;
    used[i].FoliName[4] = "S4";
  }
  HoldRoundTrip(fresh);
  return 0;
}
