#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/session.h"

namespace velorix {

// The file of an autosave: what the orientation editor shows of the records and is in no data file,
// and the data files that the records were read from. It is a UTF-8 text of lines whose fields
// stand between tabs; the last line is a sum over the others, so that no damage goes unseen.

/// A data file, as it was read.
struct AutosavedFile {
  std::string Path;  // UTF-8
  OpenedFile Read;
};

struct AutosavedWork {
  std::string Time;  // when it was written, for the user
  std::vector<AutosavedFile> Files;
  std::vector<std::vector<std::string>> Rows;  // the cells of each record, in their order
};

/// The file's text, and the work of a text: none of one that is no autosave, is cut off or damaged.
std::string AutosaveText(const AutosavedWork& work);
std::optional<AutosavedWork> AutosaveOfText(std::string_view text);

/// The last line of an autosave with these lines before it.
std::string AutosaveEnd(std::string_view lines);

}  // namespace velorix
