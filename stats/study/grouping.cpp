#include "stats/study/grouping.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <unordered_map>
#include <unordered_set>

#include "text/paths.h"

namespace velorix {
namespace {

struct FieldWord {
  const char* Word;
  std::string SpecimenRecord::*Text;
};
constexpr FieldWord FieldWords[] = {{"site", &SpecimenRecord::Site},
                                    {"rock", &SpecimenRecord::Rock},
                                    {"strat", &SpecimenRecord::Strat},
                                    {"litho", &SpecimenRecord::Litho},
                                    {"regio", &SpecimenRecord::Regio}};

std::string_view Trimmed(std::string_view text) {
  constexpr char WhiteSpace[] = " \t\r\n\v\f";
  const std::size_t first = text.find_first_not_of(WhiteSpace);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(WhiteSpace) - first + 1);
}

/// The bytes of the first `count` characters of UTF-8 text.
std::size_t BytesOfCharacters(std::string_view text, int count) {
  std::size_t i = 0;
  for (; i < text.size(); ++i) {
    const bool begins = (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80;
    if (begins && count-- == 0) break;
  }
  return i;
}

/// A number of digits, at least 1; one beyond the range counts as its end.
std::optional<int> CharactersOf(std::string_view text) {
  if (text.empty() || text.find_first_not_of("0123456789") != text.npos) return std::nullopt;
  int number = std::numeric_limits<int>::max();
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number >= 1 ? std::optional(number) : std::nullopt;
}

std::string_view UntilCharacter(std::string_view name, std::string_view end) {
  const std::size_t place = name.find(end);
  return place == name.npos || place == 0 ? name : Trimmed(name.substr(0, place));
}

/// The group of a record that its own texts decide.
std::string_view GroupName(const SpecimenRecord& record, const GroupBy& by) {
  if (by.How == GroupBy::Way::Field) return Trimmed(record.*by.Text);
  const std::string_view name = Trimmed(record.Name);
  if (by.How == GroupBy::Way::NameUntil) return UntilCharacter(name, by.Until);
  return Trimmed(name.substr(0, BytesOfCharacters(name, by.Characters)));
}

/// Names of the records' files, for records asked for in the order of the store.
class FileNames {
 public:
  explicit FileNames(const Session& session)
      : session_(session), names_(TellingNames(session.OpenFiles)) {
    if (names_.empty()) names_.emplace_back();
  }

  std::string_view Of(int record) {
    const std::vector<OpenedFile>& files = session_.Opened;
    while (file_ < files.size() && record > end_ + files[file_].Records)
      end_ += files[file_++].Records;
    return names_[file_ < files.size() && file_ < names_.size() ? file_ : 0];
  }

 private:
  const Session& session_;
  std::vector<std::string> names_;
  std::size_t file_ = 0;
  int end_ = 0;  // the last record before this file
};

/// Names of the records' groups, for records asked for in the order of the store.
class Namer {
 public:
  Namer(const Session& session, const GroupBy& by) : session_(session), by_(by), files_(session) {}

  std::string_view Of(int record) {
    if (by_.How == GroupBy::Way::File) return files_.Of(record);
    if (by_.How != GroupBy::Way::Hand) return GroupName(session_.Records[record], by_);
    const auto place = static_cast<std::size_t>(record - 1);
    return place < session_.HandGroups.size() ? session_.HandGroups[place] : std::string_view();
  }

 private:
  const Session& session_;
  const GroupBy& by_;
  FileNames files_;
};

/// Whether a record belongs to a group. One without the out-of-phase block in view is not rotated;
/// its group is listed all the same, with fewer records or none.
bool IsGrouped(const SpecimenRecord& record, const Session& session) {
  if (IsShown(record, session.CoorSys, InPhase)) return true;
  return session.ReImMode == OutOfPhase && !record.HasIm && record.Active &&
         record.HasCoor[static_cast<int>(session.CoorSys)];
}

/// A file's name that grows by its folders.
struct GrowingName {
  std::filesystem::path Rest;  // the folders not used so far
  std::string Name;

  bool CanGrow() const { return Rest.has_filename(); }
  void Grow() {
    Name = Utf8Of(Rest.filename()) + "/" + Name;
    Rest = Rest.parent_path();
  }
};

}  // namespace

std::optional<GroupBy> ParseGroupBy(std::string_view word) {
  GroupBy by;
  by.Word = word;
  if (word == "file") return by;
  for (const auto& [field, text] : FieldWords)
    if (word == field) {
      by.How = GroupBy::Way::Field;
      by.Text = text;
      return by;
    }
  constexpr std::string_view start = "name:", until = "name-until:";
  if (word.starts_with(start)) {
    const std::optional<int> characters = CharactersOf(word.substr(start.size()));
    by.How = GroupBy::Way::NameStart;
    by.Characters = characters.value_or(0);
    return characters ? std::optional(by) : std::nullopt;
  }
  if (!word.starts_with(until)) return std::nullopt;
  by.How = GroupBy::Way::NameUntil;
  by.Until = word.substr(until.size());
  const bool isOne = !by.Until.empty() && BytesOfCharacters(by.Until, 1) == by.Until.size();
  return isOne ? std::optional(by) : std::nullopt;
}

std::vector<std::string> TellingNames(const std::vector<std::string>& paths) {
  std::unordered_map<std::string, std::size_t> firsts;  // of equal paths
  for (std::size_t i = 0; i < paths.size(); ++i) firsts.try_emplace(paths[i], i);
  std::unordered_map<std::string, std::unordered_set<std::string>> extensions;
  const auto withoutExtension = [](const std::string& path) {
    return JoinPath(FolderOf(path), BaseName(path));
  };
  for (const std::string& path : paths)
    extensions[withoutExtension(path)].insert(ExtensionOf(path));
  std::vector<GrowingName> names;
  for (const std::string& path : paths) {
    const std::filesystem::path whole = PathOf(path);
    const bool plain = extensions[withoutExtension(path)].size() == 1;
    names.push_back({whole.parent_path(), plain ? BaseName(path) : Utf8Of(whole.filename())});
  }
  std::vector<std::size_t> open;  // names that may still have a like
  open.reserve(firsts.size());
  for (const auto& [path, i] : firsts) open.push_back(i);
  while (!open.empty()) {
    std::unordered_map<std::string, int> count;
    for (const std::size_t i : open) ++count[names[i].Name];
    std::erase_if(open,
                  [&](std::size_t i) { return count[names[i].Name] == 1 || !names[i].CanGrow(); });
    for (const std::size_t i : open) names[i].Grow();
  }
  std::vector<std::string> result;
  result.reserve(paths.size());
  for (const std::string& path : paths) result.push_back(names[firsts[path]].Name);
  return result;
}

std::vector<RecordGroup> PartRecords(const Session& session, const GroupBy& by) {
  std::vector<RecordGroup> groups;
  std::unordered_map<std::string, std::size_t> places;
  Namer names(session, by);
  for (int i = 1; i <= session.RecordCount(); ++i) {
    const SpecimenRecord& record = session.Records[i];
    if (!IsGrouped(record, session)) continue;
    const std::string name(names.Of(i));
    const auto [place, isNew] = places.try_emplace(name, groups.size());
    if (isNew) groups.push_back({name, {}});
    groups[place->second].Records.push_back(i);
  }
  return groups;
}

std::vector<std::string> GroupNames(const Session& session, const GroupBy& by) {
  std::vector<std::string> all;
  Namer names(session, by);
  for (int i = 1; i <= session.RecordCount(); ++i) all.emplace_back(names.Of(i));
  return all;
}

}  // namespace velorix
