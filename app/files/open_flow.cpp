#include "app/files/open_flow.h"

#include "app/display/display.h"
#include "app/files/file_kinds.h"
#include "text/paths.h"

namespace velorix {
namespace {

/// Runs one of the readers over all files into one array, in the order of the files. False, with
/// the reader's message shown, when one refuses.
bool ReadAll(Session& session, Dialogs& dialogs, FileReader reader,
             const std::vector<std::string>& paths, RecordArray& records) {
  std::swap(records, session.Spare);
  for (const std::string& path : paths) {
    const Outcome outcome = reader(path, records, session.Settings);
    if (outcome) continue;
    Show(dialogs, outcome);
    return false;
  }
  return true;
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

bool ReadAndReplace(Session& session, Dialogs& dialogs, const Host& host, const FileList& list,
                    int filter) {
  RecordArray records;
  if (!ReadAll(session, dialogs, KindOfFilter(filter).Read, list.Paths(), records)) return false;
  ReplaceStore(session, records);
  NameFiles(session, host, list, filter);
  return true;
}

void OpenNeighbour(Session& session, Dialogs& dialogs, int step) {
  const int count = static_cast<int>(session.FolderFiles.size());
  if (count == 0) return;
  session.FolderFilePos += step;
  if (session.FolderFilePos < 1) session.FolderFilePos = count;
  if (session.FolderFilePos > count) session.FolderFilePos = 1;
  const std::string& name =
      session.FolderFiles[static_cast<std::size_t>(session.FolderFilePos - 1)];
  session.CurrentFile = InFolder(session.DataFolder, name);
  session.OpenFiles = {session.CurrentFile};
  ReloadFile(session, dialogs);
}

}  // namespace

bool OpenDataFiles(Session& session, Dialogs& dialogs, const Host& host, FileAction action) {
  FileQuestion question = DataFileQuestion(session, action);
  question.Filter = OpenFilters();
  const auto takesMissing = [&](const std::string& name) {
    if (action != FileAction::Open) return true;
    dialogs.Ask(question.Title, name + "\nThis file does not exist.", {"&Retry"});
    return false;
  };
  const auto chosen = AskForDataFiles(dialogs, action, question, takesMissing);
  if (!chosen) return false;
  if (chosen->Exists) return ReadAndReplace(session, dialogs, host, chosen->List, chosen->Filter);
  NameFiles(session, host, chosen->List, chosen->Filter);
  return true;
}

bool OpenDroppedFiles(Session& session, Dialogs& dialogs, const Host& host,
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
  return ReadAndReplace(session, dialogs, host, list, filter);
}

void OpenPrevious(Session& session, Dialogs& dialogs) { OpenNeighbour(session, dialogs, -1); }
void OpenNext(Session& session, Dialogs& dialogs) { OpenNeighbour(session, dialogs, +1); }

void ReloadFile(Session& session, Dialogs& dialogs) {
  RecordArray records;
  const std::vector<std::string>& paths = session.OpenFiles;
  if (!paths.empty() &&
      !ReadAll(session, dialogs, KindOfFilter(session.CurrentFilter).Reload, paths, records))
    return;
  ReplaceStore(session, records);
}

void CloseFile(Velorix& velorix) {
  velorix.Session.CurrentFile.clear();
  ClearStore(velorix.Session);
  velorix.Session.OpenFiles.clear();
  DisplayFormCaption(velorix);
  DisplayData(velorix, true);
}

}  // namespace velorix
