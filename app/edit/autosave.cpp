#include "app/edit/autosave.h"

#include <algorithm>
#include <utility>

#include "app/display/display.h"
#include "app/files/file_kinds.h"
#include "app/files/file_stamp.h"
#include "app/files/open_flow.h"
#include "app/state/refusals.h"
#include "base/timer.h"
#include "datafiles/autosave_file.h"
#include "datafiles/safe_write.h"
#include "datafiles/text_file.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

void RemoveFile(const std::string& path) {
  std::error_code ignored;
  std::filesystem::remove(PathOf(path), ignored);
}

bool IsUnsaved(const Session& session, const OrientationEditor* editor) {
  // While "SAVE" asks its question, the records have the cells already, so cells are not compared.
  return session.IsUnsaved() || (editor && editor->Grid.Done > 0);
}

/// The work without its time; no rows where the files are not known that they belong to.
AutosavedWork WorkOf(const Session& session, const OrientationEditor* editor) {
  AutosavedWork work;
  const std::vector<EditRow> rows = editor ? editor->Grid.Rows : RowsOf(session.Records);
  std::size_t read = 0;
  for (const OpenedFile& file : session.Opened) read += static_cast<std::size_t>(file.Records);
  if (read != rows.size() || session.Opened.size() != session.OpenFiles.size()) return work;
  for (std::size_t i = 0; i < session.Opened.size(); ++i)
    work.Files.push_back({session.OpenFiles[i], session.Opened[i]});
  for (const EditRow& row : rows) work.Rows.emplace_back(row.begin(), row.end());
  return work;
}

std::string FilesText(const AutosavedWork& work) {
  std::string text = FileNameOf(work.Files.front().Path);
  if (work.Files.size() > 1) text += " and " + std::to_string(work.Files.size() - 1) + " more";
  return text;
}

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

/// Reads an autosave; says why it cannot be restored, or nothing.
std::string ReadWork(const std::string& path, AutosavedWork& work) {
  try {
    auto read = AutosaveOfText(TextOfFile(path));
    if (!read || !IsWhole(*read)) return path + ": This file of unsaved data is damaged. It stays.";
    work = std::move(*read);
    return {};
  } catch (const Fault& fault) {
    return FaultText(fault);
  }
}

/// What an earlier run left, beside what its data files have now.
struct LeftWork {
  AutosavedWork Work;
  ReadFiles Read;
  std::string Obstacle;  // why nothing can be restored; else empty
  std::vector<int> New;  // numbers of the records that the files have otherwise
};

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
    left.Obstacle = FilesText(left.Work) + " has other specimens.";
}

LeftWork Examine(AutosavedWork work, const Settings& settings) {
  LeftWork left;
  left.Work = std::move(work);
  for (const AutosavedFile& file : left.Work.Files)
    if (std::string why = ReadAgain(file, settings, left.Read); !why.empty())
      left.Obstacle = std::move(why);
  Renumber(left.Read.Records);
  Compare(left);
  return left;
}

enum class LeftAnswer { Restore, Discard, Later };

LeftAnswer AskAboutLeft(Dialogs& dialogs, const LeftWork& left) {
  const std::string count = PlainText(static_cast<int>(left.New.size())) + " of " +
                            PlainText(static_cast<int>(left.Work.Rows.size()));
  std::string text =
      "The program ended before orientation data were saved.\n\nFile: " + FilesText(left.Work) +
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

/// Opens the files and puts the rows in. Gives what was refused.
std::vector<std::string> Restore(Velorix& velorix, LeftWork& left, const EditGrid& grid) {
  Session& session = velorix.Session;
  std::vector<std::string> paths;
  for (const AutosavedFile& file : left.Work.Files) paths.push_back(file.Path);
  OpenReadFiles(session, velorix.History, velorix.Host, paths, left.Read);
  HeldOrientations former = OrientationsOf(session);
  std::vector<std::string> refused = CommitRows(grid, left.New, session.Records);
  if (KeepChanged(session, former)) {
    Step step{"Restore orientation data", {ChangeVersion(session)}};
    step.Values.emplace_back(std::move(former));
    velorix.History.Add(session, std::move(step));
  }
  return refused;
}

/// Lists the cells that were not read as they stood: from here on they are numbers.
void SayDoubts(Dialogs& dialogs, const SheetDoubts& doubts) {
  if (doubts.Count == 0) return;
  std::string list = "Doubtful cells among the restored ones: " + PlainText(doubts.Count) + "\n";
  for (const SheetDoubts::Cell& cell : doubts.First) list += "\n" + cell.Text;
  dialogs.Ask(ProgramTitle, list, {"&OK"});
}

}  // namespace

void Autosave::Update(const Session& session, const OrientationEditor* editor, Views& views,
                      DebugLog& log) {
  if (!IsUnsaved(session, editor)) return Remove();
  try {
    Write(session, editor);
    refused_ = false;
  } catch (const Fault& fault) {
    if (!std::exchange(refused_, true))
      ReportRefusal(views, log, "Unsaved data could not be kept: " + FaultText(fault));
  }
}

void Autosave::Write(const Session& session, const OrientationEditor* editor) {
  AutosavedWork work = WorkOf(session, editor);
  if (work.Rows.empty()) return;
  std::string text = AutosaveText(work);
  if (text == written_) return;
  work.Time = DateAndTime();
  SafeWrite(path_, [&work](std::ostream& out) { out << AutosaveText(work); });
  written_ = std::move(text);
}

void Autosave::Remove() {
  if (IsKept()) RemoveFile(path_);
  written_.clear();
}

bool OfferAutosave(Velorix& velorix, const std::string& path, Autosave& own) {
  AutosavedWork work;
  if (const std::string why = ReadWork(path, work); !why.empty()) {
    ReportRefusal(velorix.Views, velorix.Log, why);
    return false;
  }
  LeftWork left = Examine(std::move(work), velorix.Session.Settings);
  const LeftAnswer answer =
      left.New.empty() ? LeftAnswer::Discard : AskAboutLeft(velorix.Dialogs, left);
  if (answer == LeftAnswer::Discard) RemoveFile(path);
  if (answer != LeftAnswer::Restore) return false;

  const EditGrid grid = GridOf(left);
  const std::vector<std::string> refused = Restore(velorix, left, grid);
  own.Update(velorix.Session, nullptr, velorix.Views, velorix.Log);
  const bool covered = own.IsKept() || !velorix.Session.IsUnsaved();
  if (covered && refused.empty()) RemoveFile(path);
  DisplayFormCaption(velorix);
  SayDoubts(velorix.Dialogs, FindDoubts(grid, CodesOf(grid, CodeRoom(velorix.Session.CurrentExt))));
  DisplayData(velorix, true);
  velorix.Views.ShowStatus("Restored: " + FilesText(left.Work) + ", which is not saved yet.");
  const std::string stays = ". The cell keeps its value; " + path + " stays.";
  for (const std::string& cell : refused) ReportRefusal(velorix.Views, velorix.Log, cell + stays);
  return true;
}

}  // namespace velorix
