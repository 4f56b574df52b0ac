#include "app/files/open_flow.h"

#include <algorithm>
#include <filesystem>

#include "app/display/display.h"
#include "datafiles/ams_file.h"
#include "datafiles/asc_file.h"
#include "datafiles/ran_file.h"
#include "datafiles/si2b_file.h"
#include "datafiles/spin_file.h"
#include "text/paths.h"

namespace velorix {
namespace {

constexpr char Separator = static_cast<char>(std::filesystem::path::preferred_separator);

/// A reader whose files leave nothing to the settings.
template <Outcome (*Read)(const std::string&, RecordArray&)>
Outcome Plain(const std::string& path, RecordArray& records, const Settings&) {
  return Read(path, records);
}

Outcome ReloadAmsInPhase(const std::string& path, RecordArray& records, const Settings&) {
  return ReloadAmsFile(path, records, false);
}

// clang-format off
constexpr OpenFilter Filters[] = {
    {"ams",  "ams", "AMS-file(s) (*.ams)|*.ams|",      Plain<ReadAmsFile>, ReloadAmsInPhase},
    {"ran",  "ran", "RAN-file(s) (*.ran)|*.ran|",      ReadRanFile,        ReadRanFile},
    {"are",  "are", "ARE-file(s) (*.are)|*.are|",      ReadRanFile,        ReadRanFile},
    {"asc",  "asc", "ASC-file(s) (*.asc)|*.asc|",      Plain<ReadAscFile>, Plain<ReadAscFile>},
    {"si2b", "AMS", "SI2B AMS-file(s) (*.AMS)|*.AMS|", ReadSi2bFile,       ReadSi2bFile},
    {"spin", "txt", "AMSSpin-file(s) (*.txt)|*.txt",   ReadSpinFile,       ReadSpinFile},
};
// clang-format on

const OpenFilter& FilterAt(int index) {
  if (index < 1 || index > static_cast<int>(std::size(Filters))) FailSubscript();
  return Filters[index - 1];
}

bool FileExists(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(PathOf(path), error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

/// `name` in `folder`; a name that is a full path stays as it is. The folder has no separator at
/// its end and is empty for the root.
std::string InFolder(const std::string& folder, const std::string& name) {
  return PathOf(name).is_absolute() ? name : folder + Separator + name;
}

/// One file by one of the readers. A fault comes with the file's name, since many files may be
/// open.
Outcome ReadOne(FileReader reader, const std::string& path, RecordArray& records,
                const Settings& settings) {
  return WithFileName(path, [&] { return reader(path, records, settings); });
}

/// Runs one of the readers over all files into one array, in the order of the files. False, with
/// the reader's message shown, when one refuses.
bool ReadAll(Velorix& velorix, FileReader reader, const std::vector<std::string>& paths,
             RecordArray& records) {
  std::swap(records, velorix.Session.Spare);
  for (const std::string& path : paths) {
    const Outcome outcome = ReadOne(reader, path, records, velorix.Session.Settings);
    if (outcome) continue;
    if (!outcome.Text.empty()) velorix.Dialogs.Ask(outcome.Title, outcome.Text, {"&OK"});
    return false;
  }
  return true;
}

void ListFolderFiles(Velorix& velorix) {
  Session& session = velorix.Session;
  session.FolderFiles = velorix.Host.ListFolder(session.DataFolder + Separator, session.CurrentExt);
  const std::string base = BaseName(session.CurrentFile);
  int position = 0;
  for (const std::string& name : session.FolderFiles) {
    ++position;
    if (BaseName(name) == base) session.FolderFilePos = position;
  }
}

/// The names of the session for freshly chosen files.
void NameFiles(Velorix& velorix, const FileList& list, int filter) {
  Session& session = velorix.Session;
  session.OpenFiles.clear();
  for (const std::string& name : list.Names)
    session.OpenFiles.push_back(InFolder(list.Folder, name));
  session.CurrentFile = InFolder(list.Folder, list.FirstName);
  session.CurrentFileBase = InFolder(list.Folder, BaseName(list.FirstName));
  session.CurrentFilter = static_cast<std::int16_t>(filter);
  session.CurrentExt = ExtensionOf(session.CurrentFile);
  session.DataFolder = list.Folder;
  ListFolderFiles(velorix);
}

bool ReadAndReplace(Velorix& velorix, const FileList& list, int filter) {
  std::vector<std::string> paths;
  for (const std::string& name : list.Names) paths.push_back(InFolder(list.Folder, name));
  RecordArray records;
  if (!ReadAll(velorix, FilterAt(filter).Read, paths, records)) return false;
  ReplaceStore(velorix.Session, records);
  NameFiles(velorix, list, filter);
  return true;
}

void OpenNeighbour(Velorix& velorix, int step) {
  Session& session = velorix.Session;
  const int count = static_cast<int>(session.FolderFiles.size());
  if (count == 0) return;
  session.FolderFilePos += step;
  if (session.FolderFilePos < 1) session.FolderFilePos = count;
  if (session.FolderFilePos > count) session.FolderFilePos = 1;
  const std::string& name =
      session.FolderFiles[static_cast<std::size_t>(session.FolderFilePos - 1)];
  session.CurrentFile = InFolder(session.DataFolder, name);
  session.CurrentFileBase = InFolder(session.DataFolder, BaseName(name));
  session.OpenFiles = {session.CurrentFile};
  ReloadFile(velorix);
}

std::string TitleOf(const std::string& action) {
  if (action == "New") return "New File";
  return action == "Save" ? "Save Data" : "Open File(s)";
}

enum class Answer { Again, NameOnly, Read };

/// What to do with the chosen name, going by whether its file exists and what the user says then.
Answer JudgeName(Velorix& velorix, const std::string& action, const FileList& list) {
  const std::string title = TitleOf(action);
  if (FileExists(InFolder(list.Folder, list.FirstName))) {
    if (action == "Open") return Answer::Read;
    const int answer = velorix.Dialogs.Ask(
        title, list.FirstName + "\nThis file already exists.\nAppend to existing file?",
        {"&Yes", "&No"}, 1);
    return answer == 0 ? Answer::Read : Answer::Again;
  }
  if (action != "Open") return Answer::NameOnly;
  velorix.Dialogs.Ask(title, list.FirstName + "\nThis file does not exist.", {"&Retry"});
  return Answer::Again;
}

}  // namespace

std::span<const OpenFilter> OpenFilters() { return Filters; }

int FilterOfExtension(const std::string& extension) {
  if (extension == "AMS") return 5;
  std::string lower = extension;
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  for (int index = 1; index <= static_cast<int>(std::size(Filters)); ++index)
    if (lower == Filters[index - 1].Extension) return index;
  return 0;
}

FileList SplitFileList(const std::string& list) {
  FileList result;
  const std::size_t zero = list.find('\0');
  if (zero == std::string::npos || zero + 1 == list.size()) {
    const std::string path = list.substr(0, zero);
    const std::size_t cut = path.find_last_of(Separator == '\\' ? "/\\" : "/");
    result.Folder =
        cut == std::string::npos ? Utf8Of(std::filesystem::current_path()) : path.substr(0, cut);
    result.Names = {path.substr(cut + 1)};  // npos + 1 is the whole
  } else {
    result.Folder = list.substr(0, zero);
    for (std::size_t from = zero + 1; from < list.size();) {
      const std::size_t to = std::min(list.find('\0', from), list.size());
      if (to > from) result.Names.push_back(list.substr(from, to - from));
      from = to + 1;
    }
    if (!result.Folder.empty() && result.Folder.back() == Separator) result.Folder.pop_back();
  }
  if (!result.Names.empty()) result.FirstName = result.Names.front();
  return result;
}

bool OpenDataFiles(Velorix& velorix, const std::string& action, bool multi) {
  FileQuestion question;
  question.Title = TitleOf(action);
  question.Multi = action == "Open" && multi;
  question.MaxFileSize = question.Multi ? 32767 : 2048;
  for (const OpenFilter& filter : Filters) question.Filter += filter.Text;
  for (;;) {
    question.Folder = velorix.Session.DataFolder;
    const auto answer =
        action == "Save" ? velorix.Dialogs.ShowSave(question) : velorix.Dialogs.ShowOpen(question);
    if (!answer) return false;
    const FileList list = SplitFileList(answer->Filename);
    switch (JudgeName(velorix, action, list)) {
      case Answer::Again:
        question.Again = answer;
        continue;
      case Answer::NameOnly:
        NameFiles(velorix, list, answer->FilterIndex);
        return true;
      case Answer::Read:
        return ReadAndReplace(velorix, list, answer->FilterIndex);
    }
  }
}

bool OpenDroppedFiles(Velorix& velorix, const std::vector<std::string>& paths) {
  if (paths.empty()) return false;
  const FileList first = SplitFileList(paths.front());
  const int filter = FilterOfExtension(ExtensionOf(first.FirstName));
  if (filter == 0) {
    velorix.Dialogs.Ask(TitleOf("Open"),
                        first.FirstName + "\nFiles of this type cannot be opened here.", {"&OK"});
    return false;
  }
  FileList list{first.Folder, first.FirstName, {}};
  for (const std::string& path : paths) {
    const FileList one = SplitFileList(path);
    list.Names.push_back(one.Folder == first.Folder ? one.FirstName : path);
  }
  return ReadAndReplace(velorix, list, filter);
}

void OpenPrevious(Velorix& velorix) { OpenNeighbour(velorix, -1); }
void OpenNext(Velorix& velorix) { OpenNeighbour(velorix, +1); }

void ReloadFile(Velorix& velorix) {
  RecordArray records;
  const std::vector<std::string>& paths = velorix.Session.OpenFiles;
  if (!paths.empty() &&
      !ReadAll(velorix, FilterAt(velorix.Session.CurrentFilter).Reload, paths, records))
    return;
  ReplaceStore(velorix.Session, records);
}

void CloseFile(Velorix& velorix) {
  velorix.Session.CurrentFile.clear();
  velorix.Session.CurrentFileBase.clear();
  ClearStore(velorix.Session);
  velorix.Session.OpenFiles.clear();
  DisplayFormCaption(velorix);
  DisplayData(velorix, true);
}

}  // namespace velorix
