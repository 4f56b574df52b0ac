#include "datafiles/settings/autosave_file.h"

#include <charconv>
#include <cstdint>

#include "datafiles/bytes/text_file.h"

namespace velorix {
namespace {

constexpr std::string_view Title = "Velorix autosave 1";
constexpr std::string_view TimeKey = "time", FileKey = "file", RowKey = "row", EndKey = "end";

using Fields = std::vector<std::string>;

/// Characters that would end a field or a line, and how they are written.
struct Escape {
  char Character, Letter;
};
constexpr Escape Escapes[] = {{'\\', '\\'}, {'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}};

void AppendField(std::string& line, std::string_view field) {
  line += '\t';
  for (const char c : field) {
    char letter = 0;
    for (const Escape& escape : Escapes)
      if (c == escape.Character) letter = escape.Letter;
    if (letter != 0) line += '\\';
    line += letter != 0 ? letter : c;
  }
}

template <class Integer>
void AppendInteger(std::string& line, Integer value) {
  AppendField(line, std::to_string(value));
}

/// The field without escapes; nothing for an unknown one.
std::optional<std::string> Unescaped(std::string_view field) {
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] != '\\') {
      text += field[i];
      continue;
    }
    const char letter = ++i < field.size() ? field[i] : '\0';
    const std::size_t before = text.size();
    for (const Escape& escape : Escapes)
      if (letter == escape.Letter) text += escape.Character;
    if (text.size() == before) return std::nullopt;
  }
  return text;
}

/// The fields of a line behind its key.
std::optional<Fields> FieldsOf(std::string_view line, std::string_view key) {
  if (!line.starts_with(key)) return std::nullopt;
  Fields fields;
  for (line.remove_prefix(key.size()); !line.empty();) {
    if (line.front() != '\t') return std::nullopt;
    const std::string_view field = line.substr(1, line.find('\t', 1) - 1);
    auto text = Unescaped(field);
    if (!text) return std::nullopt;
    fields.push_back(std::move(*text));
    line.remove_prefix(field.size() + 1);
  }
  return fields;
}

template <class Integer>
bool TakeInteger(const std::string& text, Integer& value) {
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

void AppendFile(std::string& text, const AutosavedFile& file) {
  text += FileKey;
  AppendField(text, file.Path);
  AppendInteger(text, file.Read.Filter);
  AppendInteger(text, file.Read.Records);
  AppendInteger(text, static_cast<int>(file.Read.Reloaded));
  AppendInteger(text, file.Read.Stamp.Size);
  // As many ticks as this system's clock of files has, which no other one reads.
  AppendInteger(text, static_cast<std::int64_t>(file.Read.Stamp.Time.time_since_epoch().count()));
  AppendInteger(text, file.Read.Stamp.Sum);
  text += '\n';
}

bool TakeFile(const Fields& fields, AutosavedFile& file) {
  using Clock = std::filesystem::file_time_type;
  int reloaded = 0;
  std::int64_t ticks = 0;
  const bool good = fields.size() == 7 && TakeInteger(fields[1], file.Read.Filter) &&
                    TakeInteger(fields[2], file.Read.Records) && TakeInteger(fields[3], reloaded) &&
                    TakeInteger(fields[4], file.Read.Stamp.Size) && TakeInteger(fields[5], ticks) &&
                    TakeInteger(fields[6], file.Read.Stamp.Sum);
  if (!good) return false;
  file.Path = fields[0];
  file.Read.Reloaded = reloaded != 0;
  file.Read.Stamp.Time = Clock(Clock::duration(ticks));
  return true;
}

/// Takes a line behind the title; false for one that none of an autosave is like.
bool TakeLine(std::string_view line, AutosavedWork& work) {
  if (const auto row = FieldsOf(line, RowKey)) {
    work.Rows.push_back(*row);
    return true;
  }
  if (const auto file = FieldsOf(line, FileKey)) {
    work.Files.emplace_back();
    return TakeFile(*file, work.Files.back());
  }
  const auto time = FieldsOf(line, TimeKey);
  if (!time || time->size() != 1) return false;
  work.Time = time->front();
  return true;
}

}  // namespace

std::string AutosaveText(const AutosavedWork& work) {
  std::string text(Title);
  text.append("\n").append(TimeKey);
  AppendField(text, work.Time);
  text += '\n';
  for (const AutosavedFile& file : work.Files) AppendFile(text, file);
  for (const Fields& row : work.Rows) {
    text += RowKey;
    for (const std::string& cell : row) AppendField(text, cell);
    text += '\n';
  }
  return text + AutosaveEnd(text);
}

std::string AutosaveEnd(std::string_view lines) {
  // The sum is FNV-1a of 64 bits (Fowler, Noll and Vo).
  std::uint64_t sum = 14695981039346656037u;
  for (const char c : lines) sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211u;
  std::string line(EndKey);
  AppendInteger(line, sum);
  return line + '\n';
}

std::optional<AutosavedWork> AutosaveOfText(std::string_view text) {
  const std::size_t end = text.rfind("\n" + std::string(EndKey) + "\t");
  if (end == text.npos) return std::nullopt;
  const std::string_view lines = text.substr(0, end + 1);
  if (text.substr(end + 1) != AutosaveEnd(lines)) return std::nullopt;
  TextLines rest{lines};
  if (rest.Next() != Title) return std::nullopt;
  AutosavedWork work;
  while (!rest.AtEnd())
    if (!TakeLine(rest.Next(), work)) return std::nullopt;
  return work;
}

}  // namespace velorix
