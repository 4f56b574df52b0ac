#pragma once

#include <set>
#include <string>
#include <vector>

#include "app/files/file_kinds.h"
#include "app/state/dialogs.h"
#include "store/session.h"

namespace velorix {

// What a save over an existing file would take away. What stands in the file is compared with what
// reading the new file would give.

struct Losses {
  int Tensors = 0;                // out-of-phase tensors of the file that the records lack
  int Values = 0;                 // other fields of the file that the records lack
  std::set<std::string> Missing;  // their names
  Unwritten Never;                // what of the file the program does not write again
  int Vanishing = 0;              // records of the file that are not among those to be saved
  int Foreign = 0;                // records of other files that are open together with this one
  int Letters = 0;                // texts with letters that are not in the format's alphabet
  int Cut = 0;                    // texts and angles that are cut to what their field holds
  int Common = 0;  // records whose site data give way to the first one's, which the file shares
  bool Unreadable = false;  // what stands there cannot be read as a data file
  bool Changed = false;     // the file was written by others since it was read

  bool Any() const { return *this != Losses(); }
  bool operator==(const Losses&) const = default;
};

/// What writing the records, or the selected ones, as `kind` over `path` would lose; nothing where
/// there is no file. Fails like the writer when a number does not fit the file.
Losses FindLosses(const Session& session, const std::string& path, const FileKind& kind,
                  const RecordArray& records, bool all);
/// The same for geological records. When they are of several files, those with names that the file
/// lacks count as records of the others.
Losses FindGedLosses(const Session& session, const std::string& path, const RecordArray& samples,
                     bool ofSeveral);

/// They in words, a line each.
std::vector<std::string> LossLines(const Losses& losses);

enum class LossAnswer { Save, Copy, Cancel };
/// Asks what to do about losses; "Save" without a question when there are none.
LossAnswer AskAboutLosses(Dialogs& dialogs, const std::string& title, const std::string& path,
                          const Losses& losses);

}  // namespace velorix
