#include "datafiles/ams_layout.h"

#include <algorithm>

#include "text/code_page.h"
#include "text/numbers.h"

namespace velorix {
namespace {

bool IsPadding(char c) { return c == ' ' || c == '\0'; }

}  // namespace

void LoadText(const std::byte* at, int width, std::string& text) {
  const char* const first = reinterpret_cast<const char*>(at);
  std::size_t length = static_cast<std::size_t>(width);
  while (length > 0 && IsPadding(first[length - 1])) --length;
  FromCodePage({first, length}, text);
}

void StoreText(std::byte* at, int width, std::string_view text) {
  const std::string bytes = ToCodePage(text);
  const std::size_t size = static_cast<std::size_t>(width), length = std::min(bytes.size(), size);
  std::memcpy(at, bytes.data(), length);
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
