#include "app/files/open_flow.h"

#include "app/display/display.h"
#include "app/files/content_check.h"
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

/// Reads files, each by the reader of its filter, into one array, in their order. False, with the
/// reader's message shown, when one refuses.
bool ReadAll(Session& session, Dialogs& dialogs, FileReader FileKind::*reader,
             const std::vector<std::string>& paths, const std::vector<int>& filters,
             ReadFiles& read) {
  std::swap(read.Records, session.Spare);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const FileStamp stamp = StampOf(paths[i]);
    const int before = read.Records.Count();
    const FileKind& kind = KindOfFilter(filters[i]);
    const Outcome outcome = (kind.*reader)(paths[i], read.Records, session.Settings);
    if (!outcome) {
      Show(dialogs, outcome);
      return false;
    }
    read.Opened.push_back({filters[i], read.Records.Count() - before, stamp});
  }
  return true;
}

/// Puts what was read in the store; `step` has the names that the session had, and gets the store.
void Replace(Session& session, History& history, Step step, ReadFiles& read) {
  step.Values.emplace_back(TakeStore(session));
  ReplaceStore(session, read.Records);
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

/// The names of the session for freshly chosen files; `opened` is empty when they were not read.
void NameFiles(Session& session, const Host& host, const FileList& list, int filter,
               std::vector<OpenedFile> opened) {
  session.OpenFiles = list.Paths();
  session.Opened = std::move(opened);
  session.CurrentFile = list.FirstPath();
  session.CurrentFilter = static_cast<std::int16_t>(filter);
  session.CurrentExt = ExtensionOf(session.CurrentFile);
  session.DataFolder = list.Folder;
  ListFolderFiles(session, host);
}

bool ReadAndReplace(Session& session, History& history, Dialogs& dialogs, const Host& host,
                    const FileList& list, const std::vector<int>& filters) {
  ReadFiles read;
  if (!ReadAll(session, dialogs, &FileKind::Read, list.Paths(), filters, read)) return false;
  Replace(session, history, {"Open " + list.FirstName, {NamesOf(session)}}, read);
  NameFiles(session, host, list, filters.front(), std::move(read.Opened));
  return true;
}

/// Reads the open files again; `step` has the names that the session had.
void Reread(Session& session, History& history, Dialogs& dialogs, Step step) {
  ReadFiles read;
  const std::vector<std::string>& paths = session.OpenFiles;
  // Files that were dropped together may be of several kinds.
  std::vector<int> filters(paths.size(), session.CurrentFilter);
  if (paths.size() > 1 && paths.size() == session.Opened.size())
    for (std::size_t i = 0; i < paths.size(); ++i) filters[i] = session.Opened[i].Filter;
  if (!ReadAll(session, dialogs, &FileKind::Reload, paths, filters, read)) return;
  Replace(session, history, std::move(step), read);
  session.Opened = std::move(read.Opened);
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
  session.Opened.clear();  // until this one is read, which may fail
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
    return ReadAndReplace(session, history, dialogs, host, chosen->List,
                          std::vector<int>(chosen->List.Names.size(), chosen->Filter));
  history.Add(session, {"New " + chosen->List.FirstName, {NamesOf(session)}});
  NameFiles(session, host, chosen->List, chosen->Filter, {});
  return true;
}

bool OpenDroppedFiles(Session& session, History& history, Dialogs& dialogs, const Host& host,
                      const std::vector<std::string>& paths) {
  if (paths.empty()) return false;
  const FileList first = SplitFileList(paths.front());
  FileList list{first.Folder, first.FirstName, {}};
  std::vector<int> filters;
  for (const std::string& path : paths) {
    const FileList one = SplitFileList(path);
    std::string why;
    filters.push_back(FilterOfContent(path, session.Settings, why));
    if (filters.back() == 0) {
      dialogs.Ask(DataFileQuestion(session, FileAction::Open).Title,
                  one.FirstName + "\nThis file cannot be opened here. " + why, {"&OK"});
      return false;
    }
    list.Names.push_back(one.Folder == first.Folder ? one.FirstName : path);
  }
  return ReadAndReplace(session, history, dialogs, host, list, filters);
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
  session.Opened.clear();
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
