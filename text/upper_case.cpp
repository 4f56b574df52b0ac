#include "text/upper_case.h"

namespace velorix {
namespace {

/// Upper case of a character below U+0800.
unsigned Upper(unsigned c) {
  const auto within = [c](unsigned first, unsigned last) { return c >= first && c <= last; };
  if (within('a', 'z')) return c - 0x20;
  if (within(0xE0, 0xFE) && c != 0xF7) return c - 0x20;
  if (c == 0xFF) return 0x178;
  if (c == 0x131) return 'I';
  if (within(0x139, 0x148) || within(0x179, 0x17E)) return c % 2 == 0 ? c - 1 : c;
  if (within(0x100, 0x137) || within(0x14A, 0x177)) return c % 2 == 1 ? c - 1 : c;
  if (within(0x3B1, 0x3C9) && c != 0x3C2) return c - 0x20;
  if (within(0x430, 0x44F)) return c - 0x20;
  if (within(0x450, 0x45F)) return c - 0x50;
  return c;
}

/// Lower case of a character below U+0800.
unsigned Lower(unsigned c) {
  const auto within = [c](unsigned first, unsigned last) { return c >= first && c <= last; };
  if (within('A', 'Z')) return c + 0x20;
  if (within(0xC0, 0xDE) && c != 0xD7) return c + 0x20;
  if (c == 0x178) return 0xFF;
  if (within(0x139, 0x148) || within(0x179, 0x17E)) return c % 2 == 1 ? c + 1 : c;
  if (within(0x100, 0x137) || within(0x14A, 0x177)) return c % 2 == 0 ? c + 1 : c;
  if (within(0x391, 0x3A9)) return c + 0x20;
  if (within(0x410, 0x42F)) return c + 0x20;
  if (within(0x400, 0x40F)) return c + 0x50;
  return c;
}

std::string LetterByLetter(std::string_view text, unsigned (*change)(unsigned)) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool pair =
        byte >= 0xC2 && byte < 0xE0 && i + 1 < text.size() && (text[i + 1] & 0xC0) == 0x80;
    if (byte >= 0x80 && !pair) {
      result += text[i];
      continue;
    }
    const unsigned c =
        pair ? (byte & 0x1Fu) << 6 | (static_cast<unsigned char>(text[++i]) & 0x3Fu) : byte;
    const unsigned changed = change(c);
    if (changed < 0x80) {
      result += static_cast<char>(changed);
    } else {
      result += static_cast<char>(0xC0 | changed >> 6);
      result += static_cast<char>(0x80 | (changed & 0x3F));
    }
  }
  return result;
}

}  // namespace

std::string UpperCase(std::string_view text) { return LetterByLetter(text, Upper); }

std::string LowerCase(std::string_view text) { return LetterByLetter(text, Lower); }

}  // namespace velorix
