#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "datafiles/bytes/bytes.h"
#include "text/code_page.h"

namespace velorix {

// Texts of a fixed width in binary files: single-byte, blank-padded. Reading a full store reads
// half a million of them, so eight bytes are looked at in one step.

namespace fixed_text {

/// `width` bytes, at most 8, as one number with the first byte lowest. Two overlapping pieces,
/// since a piecewise copy into a word has the processor wait for the word.
inline std::uint64_t LoadPart(const std::byte* at, int width) {
  const auto both = [&]<class Piece>(Piece low) {
    constexpr int size = sizeof low;
    const std::uint64_t high = LoadLittle<Piece>(at + width - size);
    return low | high << 8 * (width - size);
  };
  if (width == 8) return LoadLittle<std::uint64_t>(at);
  if (width >= 4) return both(LoadLittle<std::uint32_t>(at));
  if (width >= 2) return both(LoadLittle<std::uint16_t>(at));
  return width == 1 ? LoadLittle<std::uint8_t>(at) : 0;
}

/// The length without the blanks and zero bytes at the end.
inline int TrimmedLength(const std::byte* at, int width) {
  constexpr std::uint64_t NoPadding =
      ~0x2020202020202020u;  // a blank or a zero byte has none of it
  while (width > 0) {
    const int part = std::min(width, 8);
    const std::uint64_t rest = LoadPart(at + width - part, part) & NoPadding;
    if (rest != 0) return width - part + (71 - std::countl_zero(rest)) / 8;
    width -= part;
  }
  return 0;
}

inline bool IsAscii(const std::byte* at, int width) {
  std::uint64_t bits = 0;
  for (; width >= 8; at += 8, width -= 8) bits |= LoadPart(at, 8);
  if (width > 0) bits |= LoadPart(at, width);
  return (bits & 0x8080808080808080u) == 0;
}

}  // namespace fixed_text

/// The text of a field, without the blanks and zero bytes at its end, into `text`.
inline void LoadText(const std::byte* at, int width, std::string& text) {
  const int length = fixed_text::TrimmedLength(at, width);
  const std::string_view bytes(reinterpret_cast<const char*>(at), static_cast<std::size_t>(length));
  if (fixed_text::IsAscii(at, width))
    text.assign(bytes);
  else
    FromCodePage(bytes, text);
}

/// `text` into a field, cut at its width or filled up with blanks.
inline void StoreText(std::byte* at, int width, std::string_view text) {
  const std::size_t size = static_cast<std::size_t>(width);
  const auto* const first = reinterpret_cast<const std::byte*>(text.data());
  std::string converted;
  if (!fixed_text::IsAscii(first, static_cast<int>(text.size()))) {
    converted = ToCodePage(text);
    text = converted;
  }
  const std::size_t length = std::min(text.size(), size);
  if (length > 0) std::memcpy(at, text.data(), length);
  std::memset(at + length, ' ', size - length);
}

}  // namespace velorix
