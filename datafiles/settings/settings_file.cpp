#include "datafiles/settings/settings_file.h"

#include <algorithm>
#include <fstream>

#include "base/fault.h"
#include "base/rounding.h"
#include "datafiles/bytes/safe_write.h"
#include "text/code_page.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {

namespace {

/// One line: value, key in column 8, bar in column 18. A key that reaches column 18 still gets one
/// blank before the bar, so that it stays a token of its own.
void AppendLine(std::string& text, std::string_view value, std::string_view key) {
  const auto padTo = [](std::string& line, std::size_t column) {
    line.append(line.size() + 1 < column ? column - 1 - line.size() : 1, ' ');
  };
  std::string line(value);
  padTo(line, 8);
  line += key;
  padTo(line, 18);
  text += line + "|\r\n";
}

/// `name` in the file's code page, without the characters that would end the line.
std::string KeyOf(const std::string& name) {
  std::string key = ToCodePage(name);
  std::erase_if(key, [](char c) { return c == '\r' || c == '\n'; });
  return key;
}

/// Takes the next line from `bytes`; false at their end.
bool TakeLine(std::string_view& bytes, std::string_view& line) {
  if (bytes.empty()) return false;
  const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
  line = bytes.substr(0, end);
  const bool pair = bytes.substr(end, 2) == "\r\n";
  bytes.remove_prefix(std::min(end + (pair ? 2 : 1), bytes.size()));
  return true;
}

/// Reads the lines into `record`; any failure is a Fault.
void ReadLines(Settings& record, std::string_view bytes) {
  Tokens tokens;
  const auto value = [&] {
    std::string_view line;
    if (!TakeLine(bytes, line)) FailEndOfFile();
    SplitBlanks(line, tokens);
    return NumberOf(tokens.Token(1));
  };
  for (std::int16_t& p : record.P) p = ToShort(value());
  record.DemagFac = value() == 1;  // 2 is false, too
  for (int i = 1; i <= FactorSlots; ++i) {
    record.FacIndex[i] = ToShort(value());
    FromCodePage(tokens.Token(2), record.FacName[i]);
  }
}

}  // namespace

void SettingsDefaults(Settings& record) { record = {}; }

std::string SettingsText(const Settings& record) {
  std::string text;
  for (int i = 1; i <= 4; ++i) AppendLine(text, FormatNumber(record.P[i], "0"), "P" + PlainText(i));
  AppendLine(text, record.DemagFac ? " 1" : " 0", "DemagFac");
  for (int i = 1; i <= FactorSlots; ++i)
    AppendLine(text, FormatNumber(record.FacIndex[i], "0"), KeyOf(record.FacName[i]));
  return text;
}

bool SettingsReadText(Settings& record, std::string_view bytes) {
  try {
    ReadLines(record, bytes);
    return true;
  } catch (const Fault&) {
    return false;
  }
}

bool SettingsRead(Settings& record, const std::string& path) {
  std::ifstream file(PathOf(path), std::ios::binary);
  std::string bytes(1 << 16, '\0');  // 13 lines are far below; whatever else the file may be
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return !file.bad() && SettingsReadText(record, bytes);
}

void SettingsWrite(const Settings& record, const std::string& path) {
  SafeWrite(path, [&record](std::ostream& out) { out << SettingsText(record); });
}

void LoadSettings(Settings& settings, const std::string& path) {
  if (SettingsRead(settings, path)) return;
  SettingsDefaults(settings);
  SettingsWrite(settings, path);
}

}  // namespace velorix
