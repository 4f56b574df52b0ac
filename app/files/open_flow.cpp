#include "app/files/open_flow.h"

#include "app/files/content_check.h"
#include "app/files/file_kinds.h"
#include "app/files/file_stamp.h"
#include "text/paths.h"

namespace velorix {
namespace {

/// Reads files, each by the reader of its filter, into one array, in their order. False, with the
/// reader's message shown, when one refuses.
bool ReadAll(Session& session, Dialogs& dialogs, bool reload, const std::vector<std::string>& paths,
             const std::vector<int>& filters, ReadFiles& read) {
  std::swap(read.Records, session.Spare);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const Outcome outcome = ReadDataFile(paths[i], filters[i], reload, session.Settings, read);
    if (!outcome) {
      ShowRefusal(dialogs, outcome);
      return false;
    }
  }
  return true;
}

/// Files, from different folders maybe, as a dialog gives them.
FileList ListOf(const std::vector<std::string>& paths) {
  const FileList first = SplitFileList(paths.front());
  FileList list{first.Folder, first.FirstName, {}};
  for (const std::string& path : paths) {
    const FileList one = SplitFileList(path);
    list.Names.push_back(one.Folder == first.Folder ? one.FirstName : path);
  }
  return list;
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

/// Puts files that were read into the session.
void PutFiles(Session& session, History& history, const Host& host, const FileList& list,
              ReadFiles& read) {
  Replace(session, history, {"Open " + list.FirstName, {NamesOf(session)}}, read);
  const int filter = read.Opened.front().Filter;
  NameFiles(session, host, list, filter, std::move(read.Opened));
}

bool ReadAndReplace(Session& session, History& history, Dialogs& dialogs, const Host& host,
                    const FileList& list, const std::vector<int>& filters) {
  ReadFiles read;
  if (!ReadAll(session, dialogs, false, list.Paths(), filters, read)) return false;
  PutFiles(session, history, host, list, read);
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
  if (!ReadAll(session, dialogs, true, paths, filters, read)) return;
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

Outcome ReadDataFile(const std::string& path, int filter, bool reload, const Settings& settings,
                     ReadFiles& read) {
  const FileStamp stamp = StampOf(path);
  const int before = read.Records.Count();
  const FileKind& kind = KindOfFilter(filter);
  Outcome outcome = (reload ? kind.Reload : kind.Read)(path, read.Records, settings);
  if (outcome) read.Opened.push_back({filter, read.Records.Count() - before, reload, stamp});
  return outcome;
}

void OpenReadFiles(Session& session, History& history, const Host& host,
                   const std::vector<std::string>& paths, ReadFiles& read) {
  PutFiles(session, history, host, ListOf(paths), read);
}

bool OpenDataFiles(Session& session, History& history, Dialogs& dialogs, const Host& host,
                   FileAction action) {
  FileQuestion question = DataFileQuestion(session, action);
  question.Filter = OpenFilters();
  const auto takesMissing = [&](const std::string& name) {
    if (action != FileAction::Open) return true;
    Refuse(dialogs, question.Title, name + "\nThis file does not exist.", "&Retry");
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
  std::vector<int> filters;
  for (const std::string& path : paths) {
    std::string why;
    filters.push_back(FilterOfContent(path, session.Settings, why));
    if (filters.back() == 0) {
      Refuse(dialogs, DataFileQuestion(session, FileAction::Open).Title,
             SplitFileList(path).FirstName + "\nThis file cannot be opened here. " + why);
      return false;
    }
  }
  return ReadAndReplace(session, history, dialogs, host, ListOf(paths), filters);
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

}  // namespace velorix
