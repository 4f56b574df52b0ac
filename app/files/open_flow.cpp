#include "app/files/open_flow.h"

#include "app/display/display.h"
#include "app/files/file_kinds.h"
#include "app/files/file_stamp.h"
#include "text/paths.h"

namespace velorix {
namespace {

/// What several files hold together, and what each of them gave.
struct ReadFiles {
  RecordArray Records;
  std::vector<OpenedFile> Opened;
};

/// Runs one of the readers over all files into one array, in the order of the files. False, with
/// the reader's message shown, when one refuses.
bool ReadAll(Session& session, Dialogs& dialogs, FileReader reader,
             const std::vector<std::string>& paths, ReadFiles& read) {
  std::swap(read.Records, session.Spare);
  for (const std::string& path : paths) {
    const FileStamp stamp = StampOf(path);
    const int before = read.Records.Count();
    const Outcome outcome = reader(path, read.Records, session.Settings);
    if (!outcome) {
      Show(dialogs, outcome);
      return false;
    }
    read.Opened.push_back({read.Records.Count() - before, stamp});
  }
  return true;
}

std::string FileNameOf(const std::string& path) { return Utf8Of(PathOf(path).filename()); }

/// Puts what was read in the store; `step` has the names that the session had, and gets the store.
void Replace(Session& session, History& history, Step step, ReadFiles& read) {
  step.Values.emplace_back(TakeStore(session));
  ReplaceStore(session, read.Records);
  session.Opened = std::move(read.Opened);
  history.Add(session, std::move(step));
}

void ListFolderFiles(Session& session, const Host& host) {
  session.FolderFiles = host.ListFolder(session.DataFolder + PathSeparator, session.CurrentExt);
  const std::string base = BaseName(session.CurrentFile);
  int position = 0;
  for (const std::string& name : session.FolderFiles) {
    ++position;
    if (BaseName(name) == base) session.FolderFilePos = position;
  }
}

/// The names of the session for freshly chosen files.
void NameFiles(Session& session, const Host& host, const FileList& list, int filter) {
  session.OpenFiles = list.Paths();
  session.CurrentFile = list.FirstPath();
  session.CurrentFilter = static_cast<std::int16_t>(filter);
  session.CurrentExt = ExtensionOf(session.CurrentFile);
  session.DataFolder = list.Folder;
  ListFolderFiles(session, host);
}

bool ReadAndReplace(Session& session, History& history, Dialogs& dialogs, const Host& host,
                    const FileList& list, int filter) {
  ReadFiles read;
  if (!ReadAll(session, dialogs, KindOfFilter(filter).Read, list.Paths(), read)) return false;
  Replace(session, history, {"Open " + list.FirstName, {NamesOf(session)}}, read);
  NameFiles(session, host, list, filter);
  return true;
}

/// Reads the open files again; `step` has the names that the session had.
void Reread(Session& session, History& history, Dialogs& dialogs, Step step) {
  ReadFiles read;
  const std::vector<std::string>& paths = session.OpenFiles;
  if (!paths.empty() &&
      !ReadAll(session, dialogs, KindOfFilter(session.CurrentFilter).Reload, paths, read))
    return;
  Replace(session, history, std::move(step), read);
}

void OpenNeighbour(Session& session, History& history, Dialogs& dialogs, int way) {
  const int count = static_cast<int>(session.FolderFiles.size());
  if (count == 0) return;
  Step step{{}, {NamesOf(session)}};
  session.FolderFilePos += way;
  if (session.FolderFilePos < 1) session.FolderFilePos = count;
  if (session.FolderFilePos > count) session.FolderFilePos = 1;
  const std::string& name =
      session.FolderFiles[static_cast<std::size_t>(session.FolderFilePos - 1)];
  session.CurrentFile = InFolder(session.DataFolder, name);
  session.OpenFiles = {session.CurrentFile};
  step.Text = "Open " + name;
  Reread(session, history, dialogs, std::move(step));
}

}  // namespace

bool OpenDataFiles(Session& session, History& history, Dialogs& dialogs, const Host& host,
                   FileAction action) {
  FileQuestion question = DataFileQuestion(session, action);
  question.Filter = OpenFilters();
  const auto takesMissing = [&](const std::string& name) {
    if (action != FileAction::Open) return true;
    dialogs.Ask(question.Title, name + "\nThis file does not exist.", {"&Retry"});
    return false;
  };
  const auto chosen = AskForDataFiles(dialogs, action, question, takesMissing);
  if (!chosen) return false;
  if (chosen->Exists)
    return ReadAndReplace(session, history, dialogs, host, chosen->List, chosen->Filter);
  history.Add(session, {"New " + chosen->List.FirstName, {NamesOf(session)}});
  NameFiles(session, host, chosen->List, chosen->Filter);
  return true;
}

bool OpenDroppedFiles(Session& session, History& history, Dialogs& dialogs, const Host& host,
                      const std::vector<std::string>& paths) {
  if (paths.empty()) return false;
  const FileList first = SplitFileList(paths.front());
  const int filter = FilterOfExtension(ExtensionOf(first.FirstName));
  if (filter == 0) {
    dialogs.Ask(DataFileQuestion(session, FileAction::Open).Title,
                first.FirstName + "\nFiles of this type cannot be opened here.", {"&OK"});
    return false;
  }
  FileList list{first.Folder, first.FirstName, {}};
  for (const std::string& path : paths) {
    const FileList one = SplitFileList(path);
    list.Names.push_back(one.Folder == first.Folder ? one.FirstName : path);
  }
  return ReadAndReplace(session, history, dialogs, host, list, filter);
}

void OpenPrevious(Session& session, History& history, Dialogs& dialogs) {
  OpenNeighbour(session, history, dialogs, -1);
}
void OpenNext(Session& session, History& history, Dialogs& dialogs) {
  OpenNeighbour(session, history, dialogs, +1);
}

void ReloadFile(Session& session, History& history, Dialogs& dialogs) {
  Reread(session, history, dialogs,
         {"Reload " + FileNameOf(session.CurrentFile), {NamesOf(session)}});
}

Step CloseStep(Session& session, const std::string& text) {
  Step step{text, {NamesOf(session)}};
  step.Values.emplace_back(TakeStore(session));
  session.CurrentFile.clear();
  session.OpenFiles.clear();
  NoteDataChange(session);
  NoteSaved(session);
  return step;
}

void CloseFile(Velorix& velorix) {
  Session& session = velorix.Session;
  if (!session.CurrentFile.empty() || !session.Records.Empty())
    velorix.History.Add(session, CloseStep(session, "Close " + FileNameOf(session.CurrentFile)));
  DisplayFormCaption(velorix);
  DisplayData(velorix, true);
}

}  // namespace velorix
