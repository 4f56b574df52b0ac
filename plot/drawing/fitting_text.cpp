#include "plot/drawing/fitting_text.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace velorix {
namespace {

bool IsControl(std::string_view character) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
  return byte(0) < 0x20 || byte(0) == 0x7F ||
         (character.size() == 2 && byte(0) == 0xC2 && byte(1) < 0xA0);
}

/// The characters of UTF-8 text, blanks for control characters.
std::vector<std::string_view> CharactersOf(std::string_view text) {
  std::vector<std::string_view> characters;
  for (std::size_t i = 0, end = 0; i < text.size(); i = end) {
    for (end = i + 1; end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80;)
      ++end;
    const std::string_view character = text.substr(i, end - i);
    characters.push_back(IsControl(character) ? " " : character);
  }
  return characters;
}

/// In heights of bold Arial letters, rather too wide than too narrow.
double WidthOf(std::string_view character) {
  constexpr std::string_view Narrow = " fijlrt.,:;'!|()[]-/I", Wide = "mwMW@%";
  if (character.size() > 1) return character.size() == 2 ? 0.7 : 1;
  if (Narrow.find(character) != Narrow.npos) return 0.35;
  if (Wide.find(character) != Wide.npos) return 0.9;
  return character[0] >= 'A' && character[0] <= 'Z' ? 0.68 : 0.55;
}

double WidthOf(const std::vector<std::string_view>& characters) {
  double width = 0;
  for (const std::string_view character : characters) width += WidthOf(character);
  return width;
}

}  // namespace

double TextWidth(const std::string& text) { return WidthOf(CharactersOf(text)); }

std::string FittingText(const std::string& text, double room) {
  const std::vector<std::string_view> characters = CharactersOf(text);
  double width = WidthOf(characters);
  std::size_t left = (characters.size() + 1) / 2, right = left;  // what the dots stand for
  const bool dots = width > room;
  if (dots) width += 3 * WidthOf(".");
  while (width > room && (left > 1 || right < characters.size())) {
    const bool fromLeft = left > characters.size() - right;
    width -= WidthOf(characters[fromLeft ? --left : right++]);
  }
  std::string fitting;
  for (std::size_t i = 0; i < left; ++i) fitting += characters[i];
  if (dots) fitting += "...";
  for (std::size_t i = right; i < characters.size(); ++i) fitting += characters[i];
  return fitting;
}

std::vector<std::string> WrappedText(const std::string& text, double room) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t blank = std::min(text.find(' ', at), text.size());
    const std::string word = FittingText(text.substr(at, blank - at), room);
    at = blank + 1;
    if (!lines.empty() && TextWidth(lines.back() + " " + word) <= room)
      lines.back() += " " + word;
    else
      lines.push_back(word);
  }
  return lines;
}

}  // namespace velorix
