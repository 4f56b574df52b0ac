#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "base/fault.h"
#include "datafiles/ams_file.h"
#include "datafiles/ams_layout.h"
#include "store/session.h"
#include "tensor/derivation.h"

namespace {

using namespace velorix;

void Hold(bool law) {
  if (!law) std::abort();
}

using Bytes = std::vector<std::byte>;

/// Empty when a derived number doesn't fit the file's 32 bits.
Bytes Encoded(const SpecimenRecord& record) try {
  Bytes bytes(AmsRecordSize);
  EncodeAmsRecord(record, bytes.data());
  return bytes;
} catch (const Fault& fault) {
  Hold(fault.Number == 6);
  return {};
}

/// Equal, or as equal as records with a NaN among their plain floats can be seen to be.
bool Same(const SpecimenRecord& a, const SpecimenRecord& b) {
  return a == b || (a != a && b != b && Encoded(a) == Encoded(b) && a.TensorRot == b.TensorRot &&
                    a.Dec == b.Dec && a.PlotX == b.PlotX && a.FoliDec == b.FoliDec &&
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
  Hold(!written.empty());
  const SpecimenRecord again = Decoded(written);
  Hold(Encoded(again) == written);
  Hold(again.HasCoor == record.HasCoor && again.HasIm == record.HasIm);
  Hold(again.Tensor == record.Tensor && again.TensorIm == record.TensorIm);
  Hold(again.OP == record.OP && again.FreqIndex == record.FreqIndex);
}

/// Every system and block derives or ends in an error of the program's own, and then the record is
/// as it was.
void Derive(const SpecimenRecord& record) {
  const Settings settings;
  for (std::int16_t block = 0; block <= OutOfPhase; ++block)
    for (std::int16_t coorSys = 0; coorSys <= Tectonic; ++coorSys)
      for (const bool strike : {false, true}) {
        View view;
        view.CoorSys = coorSys;
        view.ReImMode = block;
        view.FoliCode = record.FoliName[1];
        view.LineCode = strike ? std::string_view("0") : std::string_view(record.LineName[1]);
        view.TectoPlane = strike ? Vertical : Horizontal;
        view.TectoNorthSouth = strike;
        view.TectoEastWest = !strike;
        SpecimenRecord derived = record;
        DeriveFactors(derived, settings.FacIndex, block);
        const SpecimenRecord before = derived;
        try {
          RotateRecord(derived, view);
        } catch (const Fault&) {
          Hold(Same(derived, before));
        }
      }
}

}  // namespace

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
    if (i <= 4) Derive(fresh[i]);
    used[i].Selected = true;  // something stale for the next input
    used[i].TensorRot[1] = used[i].PlotX[1] = used[i].FoliDec[3] = 1.0;
    used[i].FoliName[4] = "S4";
  }
  return 0;
}
