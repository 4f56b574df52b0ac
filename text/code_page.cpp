#include "text/code_page.h"

#include <cstdint>
#include <cstring>

namespace velorix {

namespace {

// The characters of the bytes 80 to 9F; all other bytes are the characters of their own code.
// clang-format off
constexpr char32_t HighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
// clang-format on

constexpr char32_t NoCharacter = 0xFFFFFFFF;

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

/// How many bytes at the start of `text` are below 80, eight looked at in one step.
std::size_t AsciiLength(std::string_view text) {
  std::size_t n = 0;
  for (std::uint64_t eight; n + 8 <= text.size(); n += 8) {
    std::memcpy(&eight, text.data() + n, 8);
    if (eight & 0x8080808080808080u) break;
  }
  while (n < text.size() && Byte(text[n]) < 0x80) ++n;
  return n;
}

/// Appends a character below 10000 in UTF-8.
void Append(std::string& text, char32_t c) {
  const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (c < 0x80) {
    add(c);
  } else if (c < 0x800) {
    add(0xC0 | c >> 6);
    add(0x80 | (c & 0x3F));
  } else {
    add(0xE0 | c >> 12);
    add(0x80 | (c >> 6 & 0x3F));
    add(0x80 | (c & 0x3F));
  }
}

/// The character at `at`, which moves behind it; behind one byte only when no well-formed character
/// stands there.
char32_t Take(std::string_view text, std::size_t& at) {
  const unsigned char lead = Byte(text[at++]);
  if (lead < 0x80) return lead;
  const int more = lead >= 0xC2 && lead < 0xE0   ? 1
                   : lead >= 0xE0 && lead < 0xF0 ? 2
                   : lead >= 0xF0 && lead < 0xF5 ? 3
                                                 : 0;
  if (more == 0 || text.size() - at < static_cast<std::size_t>(more)) return NoCharacter;
  char32_t c = lead & (0x3F >> more);
  for (int i = 0; i < more; ++i) {
    const unsigned char next = Byte(text[at + static_cast<std::size_t>(i)]);
    if ((next & 0xC0) != 0x80) return NoCharacter;
    c = c << 6 | (next & 0x3F);
  }
  constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
  if (c < smallest[more] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) return NoCharacter;
  at += static_cast<std::size_t>(more);
  return c;
}

char ByteOf(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c < 0x100)) return static_cast<char>(c);
  for (int i = 0; i < 32; ++i)
    if (HighControls[i] == c) return static_cast<char>(0x80 + i);
  return '?';
}

}  // namespace

std::string FromCodePage(std::string_view bytes) {
  std::string text;
  FromCodePage(bytes, text);
  return text;
}

void FromCodePage(std::string_view bytes, std::string& text) {
  const std::size_t ascii = AsciiLength(bytes);
  text.assign(bytes.substr(0, ascii));
  for (char c : bytes.substr(ascii)) {
    const unsigned char byte = Byte(c);
    Append(text, byte >= 0x80 && byte < 0xA0 ? HighControls[byte - 0x80] : byte);
  }
}

std::string ToCodePage(std::string_view text) {
  const std::size_t ascii = AsciiLength(text);
  std::string bytes(text.substr(0, ascii));
  for (std::size_t at = ascii; at < text.size();) bytes += ByteOf(Take(text, at));
  return bytes;
}

}  // namespace velorix
