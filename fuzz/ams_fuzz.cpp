#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "datafiles/formats/ams_file.h"
#include "datafiles/formats/ams_layout.h"
#include "fuzz/input_length.h"

namespace {

using namespace velorix;

void Hold(bool law) {
  if (!law) std::abort();
}

using Bytes = std::vector<std::byte>;

Bytes Encoded(const SpecimenRecord& record) {
  Bytes bytes(AmsRecordSize);
  EncodeAmsRecord(record, bytes.data());
  return bytes;
}

/// A record with a NaN among its plain floats is not equal to its own copy.
bool HasNan(const SpecimenRecord& record) {
  const SpecimenRecord& copy = record;
  return record != copy;
}

/// Equal, or as equal as records with a NaN among their plain floats can be seen to be.
bool Same(const SpecimenRecord& a, const SpecimenRecord& b) {
  return a == b || (HasNan(a) && HasNan(b) && Encoded(a) == Encoded(b) &&
                    a.TensorRot == b.TensorRot && a.Dec == b.Dec && a.FoliDec == b.FoliDec &&
                    a.FoliName == b.FoliName && a.Selected == b.Selected);
}

SpecimenRecord Decoded(const Bytes& bytes) {
  SpecimenRecord record;
  DecodeAmsRecord(bytes.data(), record);
  return record;
}

/// What was read and written stays the same when it is read and written once more. A strike is
/// turned by 360 degrees at most, and one far outside does not come back at once.
void HoldRoundTrip(const SpecimenRecord& record) {
  if (record.OP[4] == 90) return;
  const Bytes written = Encoded(record);
  const SpecimenRecord again = Decoded(written);
  Hold(Encoded(again) == written);
  Hold(again.HasCoor == record.HasCoor && again.HasIm == record.HasIm);
  Hold(again.Tensor == record.Tensor && again.TensorIm == record.TensorIm);
  Hold(again.OP == record.OP && again.FreqIndex == record.FreqIndex);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  return fuzz::LimitInputs(argc, argv, 5 * AmsRecordSize / 2);
}

// Arbitrary bytes end in records, in a refusal or in "Overflow"; memory used before changes
// nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::byte> bytes(reinterpret_cast<const std::byte*>(data), size);
  static RecordArray used;
  used.Clear();
  RecordArray fresh;
  const Outcome outcome = ReadAmsBytes(bytes, "x.ams", fresh);
  Hold(ReadAmsBytes(bytes, "x.ams", used).Done == outcome.Done);
  Hold(fresh.Count() == AmsRecordCount(size) && used.Count() == fresh.Count());
  Hold(outcome.Done == !fresh.Empty() && outcome.Text.empty() == (size > 0));
  for (int i = 1; i <= fresh.Count(); ++i) {
    Hold(Same(fresh[i], used[i]));
    HoldRoundTrip(fresh[i]);
    used[i].Selected = true;  // something stale for the next input
    used[i].TensorRot[1] = used[i].FoliDec[3] = 1.0;
    used[i].FoliName[4] = "S4";
  }
  return 0;
}
