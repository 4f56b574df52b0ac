#include "datafiles/ams_layout.h"

#include <algorithm>

#include "text/code_page.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr std::uint64_t EightBlanks = 0x2020202020202020, EightHighBits = 0x8080808080808080;

bool IsPadding(char c) { return c == ' ' || c == '\0'; }

/// The length of the text without the padding at its end, eight bytes at a step where it is long.
int TrimmedLength(const std::byte* at, int width) {
  int length = width;
  while (length >= 8) {
    const auto eight = LoadLittle<std::uint64_t>(at + length - 8);
    if (eight != EightBlanks && eight != 0) break;
    length -= 8;
  }
  while (length > 0 && IsPadding(static_cast<char>(at[length - 1]))) --length;
  return length;
}

bool IsAscii(const std::byte* at, int length) {
  std::uint64_t bits = 0;
  int i = 0;
  for (; i + 8 <= length; i += 8) bits |= LoadLittle<std::uint64_t>(at + i);
  for (; i < length; ++i) bits |= static_cast<std::uint64_t>(at[i]);
  return (bits & EightHighBits) == 0;
}

}  // namespace

void LoadText(const std::byte* at, int width, std::string& text) {
  const auto length = static_cast<std::size_t>(TrimmedLength(at, width));
  const std::string_view bytes(reinterpret_cast<const char*>(at), length);
  if (IsAscii(at, static_cast<int>(length)))
    text.assign(bytes);
  else
    FromCodePage(bytes, text);
}

void StoreText(std::byte* at, int width, std::string_view text) {
  std::string converted;
  if (!IsAscii(reinterpret_cast<const std::byte*>(text.data()), static_cast<int>(text.size())))
    text = converted = ToCodePage(text);
  const std::size_t size = static_cast<std::size_t>(width), length = std::min(text.size(), size);
  std::memcpy(at, text.data(), length);
  std::memset(at + length, ' ', size - length);
}

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

}  // namespace ams
}  // namespace velorix
