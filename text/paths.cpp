#include "text/paths.h"

#include <algorithm>

namespace velorix {

namespace {

constexpr std::string_view Separators = PathSeparator == '\\' ? "/\\" : "/";

std::string_view NameOf(std::string_view path) {
  return path.substr(path.find_last_of(Separators) + 1);  // npos + 1 is the whole
}

bool BeginsCharacter(char byte) { return (byte & 0xC0) != 0x80; }  // in UTF-8

std::ptrdiff_t LengthOf(std::string_view utf8) {
  return std::count_if(utf8.begin(), utf8.end(), BeginsCharacter);
}

/// The first characters, or the whole.
std::string_view FirstOf(std::string_view utf8, std::ptrdiff_t characters) {
  const auto end = std::find_if(utf8.begin(), utf8.end(), [&characters](char byte) {
    return BeginsCharacter(byte) && characters-- <= 0;
  });
  return utf8.substr(0, static_cast<std::size_t>(end - utf8.begin()));
}

}  // namespace

std::filesystem::path PathOf(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

std::string Utf8Of(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && Separators.find(path.back()) == Separators.npos) path += PathSeparator;
  return path.append(name);
}

std::string FileNameOf(std::string_view path) { return Utf8Of(PathOf(path).filename()); }

std::string BaseName(std::string_view path) {
  const std::string_view name = NameOf(path);
  return std::string(name.substr(0, name.rfind('.')));
}

std::string ExtensionOf(std::string_view path) {
  const std::string_view name = NameOf(path);
  return std::string(name.substr(std::min(name.rfind('.'), name.size() - 1) + 1));
}

std::string FolderOf(std::string_view path) {
  const std::size_t cut = path.find_last_of(Separators);
  if (cut == path.npos) return {};
  return std::string(path.substr(0, std::max<std::size_t>(cut, 1)));
}

std::string CompactPath(const std::string& path, int room) {
  constexpr std::string_view Dots = "...";
  if (LengthOf(path) <= room) return path;
  const std::size_t last = path.find_last_of("/\\");
  const std::string name = last == path.npos ? path : path.substr(last);  // with its separator
  for (std::size_t cut = last; cut != path.npos;
       cut = cut == 0 ? path.npos : path.find_last_of("/\\", cut - 1)) {
    std::string shorter = path.substr(0, cut + 1).append(Dots) + name;
    if (LengthOf(shorter) <= room) return shorter;
  }
  if (last != path.npos && LengthOf(name) + std::ssize(Dots) <= room)
    return std::string(Dots) + name;
  const std::string_view alone = std::string_view(path).substr(last + 1);  // npos + 1 is the whole
  if (LengthOf(alone) <= room) return std::string(alone);
  const std::ptrdiff_t letters = std::max<std::ptrdiff_t>(room - std::ssize(Dots), 0);
  return std::string(FirstOf(alone, letters)).append(Dots.substr(0, std::clamp(room, 0, 3)));
}

}  // namespace velorix
