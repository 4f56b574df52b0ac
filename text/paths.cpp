#include "text/paths.h"

#include <algorithm>

namespace velorix {

namespace {

constexpr std::string_view Separators = PathSeparator == '\\' ? "/\\" : "/";

std::string_view NameOf(std::string_view path) {
  return path.substr(path.find_last_of(Separators) + 1);  // npos + 1 is the whole
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

}  // namespace velorix
