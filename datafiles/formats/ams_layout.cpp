#include "datafiles/formats/ams_layout.h"

#include "store/strike.h"
#include "text/numbers.h"

namespace velorix {
namespace {

/// Whether the file has a strike in place of the dip direction.
bool HasStrike(const SpecimenRecord& r, int slot) {
  return r.OP[4] == StrikeAndDip && !StripBlanks(r.FoliName[slot]).empty();
}

}  // namespace

namespace ams {

template <auto Member>
void StrippedText<Member>::Load(const std::byte* at, SpecimenRecord& r) const {
  std::string& text = r.*Member;
  LoadText(at, Width, text);
  if (!text.empty() && text.front() == ' ') text = std::string(StripBlanks(text));
}
template struct StrippedText<&R::Name>;

template <auto Member>
void Codes<Member>::Load(const std::byte* at, SpecimenRecord& r) const {
  for (int slot = 1; slot <= 2; ++slot) {
    std::string& code = (r.*Member)[slot];
    if (LoadLittle<std::uint16_t>(at + 2 * slot - 2) == 0) {  // most records have no codes
      code.clear();
      continue;
    }
    LoadText(at + 2 * slot - 2, 2, code);
    if (!code.empty() && code.front() == ' ') code = std::string(StripBlanks(code));
  }
  for (int slot = 3; slot <= 4; ++slot) (r.*Member)[slot].clear();
}

template <auto Member>
void Codes<Member>::Store(std::byte* at, const SpecimenRecord& r) const {
  for (int slot = 1; slot <= 2; ++slot)
    StoreText(at + 2 * slot - 2, 2, StripBlanks((r.*Member)[slot]));
}
template struct Codes<&R::FoliName>;
template struct Codes<&R::LineName>;

void FoliationAzimuths::Load(const std::byte* at, SpecimenRecord& r) const {
  SlotAngles::Load(at, r);
  for (int slot = 1; slot <= 2; ++slot)
    if (HasStrike(r, slot)) r.FoliAz[slot] = DipDirectionOfStrike(r.FoliAz[slot]);
}

void FoliationAzimuths::Store(std::byte* at, const SpecimenRecord& r) const {
  for (int slot = 1; slot <= 2; ++slot)
    StoreLittle(at + 4 * slot - 4,
                HasStrike(r, slot) ? StrikeOfDipDirection(r.FoliAz[slot]) : r.FoliAz[slot]);
}

}  // namespace ams
}  // namespace velorix
