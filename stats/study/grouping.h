#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/session.h"

namespace velorix {

/// What parts the records in view into groups.
struct GroupBy {
  enum class Way { File, Field, NameStart, NameUntil, Hand };

  Way How = Way::File;
  std::string SpecimenRecord::*Text = nullptr;  // of a field
  int Characters = 0;                           // of the start of a name
  std::string Until;                            // one character
  std::string Word;                             // as the user gave it; none for `Hand`

  bool operator==(const GroupBy&) const = default;
};

/// The words of `ParseGroupBy`, between bars.
inline constexpr char GroupByWords[] = "file|site|rock|strat|litho|regio|name:N|name-until:C";

/// The way by hand.
inline GroupBy ByHand() {
  GroupBy by;
  by.How = GroupBy::Way::Hand;
  return by;
}

/// What a word stands for, N a number of at least 1 and C one character; nothing for another word.
std::optional<GroupBy> ParseGroupBy(std::string_view word);

/// Records that belong together, by their places in the store, ascending.
struct RecordGroup {
  std::string Name;
  std::vector<int> Records;
};

/// The groups of the records in view, in the order of their first record. In view are the records
/// in use that have the system in view; out of phase those without such a block count, too, so that
/// their groups are listed. Texts count without white space at their ends; records without the text
/// form a group "". A name without the character that ends it, or that begins with it, counts as a
/// whole. A file's group has its name without extension, with as many of its folders as distinguish
/// it from files of the same name. By hand counts what `Session::HandGroups` says.
std::vector<RecordGroup> PartRecords(const Session& session, const GroupBy& by);

/// The group that each record of the store would have in view, in the order of the store.
std::vector<std::string> GroupNames(const Session& session, const GroupBy& by);

/// A name for each path: the file's name without extension, with the fewest of the folders above it
/// that no other path has likewise; with the extension where that alone differs.
std::vector<std::string> TellingNames(const std::vector<std::string>& paths);

}  // namespace velorix
