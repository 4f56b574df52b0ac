#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "base/fault.h"
#include "datafiles/formats/ams_file.h"
#include "datafiles/formats/ams_layout.h"
#include "fuzz/input_length.h"
#include "store/session.h"
#include "tensor/derivation.h"

namespace {

using namespace velorix;

void Hold(bool law) {
  if (!law) std::abort();
}

/// The same derived fields. The numbers among them are compared by their bits, so that a NaN equals
/// itself.
bool SameDerived(const SpecimenRecord& a, const SpecimenRecord& b) {
  return a.CoorLevel == b.CoorLevel && a.TensorRot == b.TensorRot && a.K == b.K && a.Dec == b.Dec &&
         a.Inc == b.Inc && a.Vec == b.Vec && a.FoliDec == b.FoliDec && a.FoliInc == b.FoliInc &&
         a.LineDec == b.LineDec && a.LineInc == b.LineInc;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  return fuzz::LimitInputs(argc, argv, AmsRecordSize);
}

// The record of an AMS file derives in the view that one of its bytes without a meaning names, or
// ends in an error of the program's own, and then it is as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::byte bytes[AmsRecordSize] = {};
  const auto* const first = reinterpret_cast<const std::byte*>(data);
  std::copy_n(first, std::min<std::size_t>(size, AmsRecordSize), bytes);
  SpecimenRecord record;
  DecodeAmsRecord(bytes, record);

  constexpr std::size_t Unread = 30;
  int choice = std::to_integer<int>(bytes[Unread]);
  const auto choose = [&choice](int count) {
    const int chosen = choice % count;
    choice /= count;
    return static_cast<std::int16_t>(chosen);
  };
  View view;
  view.CoorSys = static_cast<CoordinateSystem>(choose(5));
  view.ReImMode = static_cast<TensorBlock>(choose(3));
  const bool strike = choose(2) == 1;
  view.FoliCode = record.FoliName[1];
  view.LineCode = strike ? std::string_view("0") : std::string_view(record.LineName[1]);
  view.TectoPlane = choose(2) == 1 ? PaleoPlane::Vertical : PaleoPlane::Horizontal;
  view.TectoNorthSouth = choose(2) == 1;
  view.TectoEastWest = choose(2) == 1;

  SpecimenRecord derived = record;
  const bool hasBlock = view.ReImMode != OutOfPhase || record.HasIm;
  Hold(DeriveFactors(derived, Settings().FacIndex, view.ReImMode) == hasBlock);
  const SpecimenRecord before = derived;
  try {
    Hold(RotateRecord(derived, view) == hasBlock);
  } catch (const Fault& fault) {
    Hold(fault.Number != 999 && SameDerived(derived, before));
  }
  return 0;
}
