#include "app/edit/left_work.h"

#include <algorithm>
#include <utility>

#include "app/edit/edit_grid.h"
#include "app/files/ask_file.h"
#include "app/files/file_kinds.h"
#include "app/files/file_stamp.h"
#include "app/state/program.h"
#include "base/fault.h"
#include "datafiles/bytes/text_file.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

/// Whether the work has all that it takes to be restored.
bool IsWhole(const AutosavedWork& work) {
  const auto isFile = [](const AutosavedFile& file) {
    return file.Read.Filter >= 1 && file.Read.Filter <= std::ssize(FileKinds());
  };
  const auto isRow = [](const std::vector<std::string>& row) {
    return std::ssize(row) == EditColumns;
  };
  return !work.Files.empty() && std::all_of(work.Files.begin(), work.Files.end(), isFile) &&
         std::all_of(work.Rows.begin(), work.Rows.end(), isRow);
}

/// Why a file cannot be read again as it was; empty when it was.
std::string ReadAgain(const AutosavedFile& file, const Settings& settings, ReadFiles& read) {
  const std::string name = FileNameOf(file.Path);
  if (!FileExists(file.Path)) return name + " is not there any more.";
  std::string refused = name + " cannot be read any more.";
  try {
    if (!ReadDataFile(file.Path, file.Read.Filter, file.Read.Reloaded, settings, read))
      return refused;
  } catch (const Fault&) {
    return refused;
  }
  return IsUnchanged(file.Path, file.Read.Stamp) ? "" : name + " has changed since then.";
}

/// Finds the rows that the files do not have; all, where the files are of other records.
void Compare(LeftWork& left) {
  const std::vector<EditRow> rows = RowsOf(left.Read.Records);
  const bool sameCount = rows.size() == left.Work.Rows.size();
  bool sameNames = sameCount;
  for (std::size_t i = 0; i < left.Work.Rows.size(); ++i) {
    const std::vector<std::string>& row = left.Work.Rows[i];
    if (sameCount && std::equal(row.begin(), row.end(), rows[i].begin(), rows[i].end())) continue;
    left.New.push_back(static_cast<int>(i) + 1);
    sameNames = sameNames && row[1] == rows[i][2];
  }
  if (!sameNames && left.Obstacle.empty())
    left.Obstacle = FilesText(left) + " has other specimens.";
}

/// The cells of some records.
EditGrid GridOf(const LeftWork& left) {
  EditGrid grid;
  for (const int record : left.New) {
    const std::vector<std::string>& cells = left.Work.Rows[static_cast<std::size_t>(record - 1)];
    grid.Rows.emplace_back();
    std::copy(cells.begin(), cells.end(), grid.Rows.back().begin());
  }
  return grid;
}

/// Puts rows into the records `numbers`, each by itself: one with a number that has no room keeps
/// what the file has. Gives what was refused.
std::vector<std::string> CommitRows(const EditGrid& grid, const std::vector<int>& numbers,
                                    RecordArray& records) {
  std::vector<std::string> refused;
  RecordArray one;
  one.Grow(1);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    one[1] = records[numbers[i]];
    try {
      CommitGrid({{grid.Rows[i]}, {}, 0}, one);
      records[numbers[i]] = one[1];
    } catch (const Fault& fault) {
      refused.push_back(FaultText(fault));
    }
  }
  return refused;
}

}  // namespace

std::string ReadLeftWork(const std::string& path, const Settings& settings, LeftWork& left) {
  try {
    auto read = AutosaveOfText(TextOfFile(path));
    if (!read || !IsWhole(*read)) return path + ": This file of unsaved data is damaged. It stays.";
    left.Work = std::move(*read);
  } catch (const Fault& fault) {
    return FaultText(fault);
  }
  for (const AutosavedFile& file : left.Work.Files)
    if (std::string why = ReadAgain(file, settings, left.Read); !why.empty())
      left.Obstacle = std::move(why);
  Renumber(left.Read.Records);
  Compare(left);
  return {};
}

std::string FilesText(const LeftWork& left) {
  const std::vector<AutosavedFile>& files = left.Work.Files;
  std::string text = FileNameOf(files.front().Path);
  if (files.size() > 1) text += " and " + std::to_string(files.size() - 1) + " more";
  return text;
}

LeftAnswer AskAboutLeft(Dialogs& dialogs, const LeftWork& left) {
  if (left.New.empty()) return LeftAnswer::Discard;
  const std::string count = PlainText(static_cast<int>(left.New.size())) + " of " +
                            PlainText(static_cast<int>(left.Work.Rows.size()));
  std::string text =
      "The program ended before orientation data were saved.\n\nFile: " + FilesText(left) +
      "\nSpecimens: " + count + "\nKept at: " + left.Work.Time + "\n\n";
  if (left.Obstacle.empty()) {
    text += "Restore opens the file with these data. Save them afterwards.";
    return static_cast<LeftAnswer>(
        dialogs.Ask(ProgramTitle, text, {"&Restore", "&Discard", "&Later"}));
  }
  text += left.Obstacle + " So the data cannot be restored.";
  const int button = dialogs.Ask(ProgramTitle, text, {"&Discard", "&Later"}, 1);
  return button == 0 ? LeftAnswer::Discard : LeftAnswer::Later;
}

RestoredWork RestoreLeftWork(Session& session, History& history, const Host& host, LeftWork& left) {
  std::vector<std::string> paths;
  for (const AutosavedFile& file : left.Work.Files) paths.push_back(file.Path);
  OpenReadFiles(session, history, host, paths, left.Read);
  HeldOrientations former = OrientationsOf(session);
  const EditGrid grid = GridOf(left);
  RestoredWork restored;
  restored.Refused = CommitRows(grid, left.New, session.Records);
  if (KeepChanged(session, former)) {
    Step step{"Restore orientation data", {ChangeVersion(session)}};
    step.Values.emplace_back(std::move(former));
    history.Add(session, std::move(step));
  }
  restored.Doubts = FindDoubts(grid, CodesOf(grid, CodeRoom(session.CurrentExt)));
  return restored;
}

}  // namespace velorix
