#include "datafiles/settings/preferences_file.h"

#include <algorithm>
#include <fstream>

#include "datafiles/bytes/safe_write.h"
#include "text/paths.h"

namespace velorix {
namespace {

struct Row {
  const char* Key;
  bool Preferences::*Value;
};
constexpr Row Rows[] = {{"KeepFormerFile", &Preferences::KeepFormerFile}};

constexpr char Yes[] = "1", No[] = "0";

/// False for a line that is none of the file's.
bool TakeLine(std::string_view line, Preferences& preferences) {
  const std::size_t equals = line.find('=');
  if (equals == line.npos) return line.empty();
  const std::string_view key = line.substr(0, equals), value = line.substr(equals + 1);
  for (const Row& row : Rows)
    if (key == row.Key && (value == Yes || value == No)) {
      preferences.*row.Value = value == Yes;
      return true;
    }
  return false;
}

}  // namespace

std::string PreferencesFile(const std::string& appFolder) {
  return JoinPath(appFolder, "Preferences.ini");
}

std::string PreferencesText(const Preferences& preferences) {
  std::string text;
  for (const Row& row : Rows)
    text += std::string(row.Key) + "=" + (preferences.*row.Value ? Yes : No) + "\r\n";
  return text;
}

Preferences PreferencesOfText(std::string_view text, int& bad) {
  Preferences preferences;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    bad += !TakeLine(text.substr(0, end), preferences);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return preferences;
}

Preferences PreferencesRead(const std::string& path, int& bad) {
  std::ifstream file(PathOf(path), std::ios::binary);
  std::string text(1 << 16, '\0');  // a few lines; whatever else the file may be
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  return PreferencesOfText(text, bad);
}

void PreferencesWrite(const Preferences& preferences, const std::string& path) {
  SafeWrite(path, [&preferences](std::ostream& out) { out << PreferencesText(preferences); });
}

}  // namespace velorix
