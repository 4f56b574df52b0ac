#include "app/files/ask_file.h"

#include <algorithm>
#include <filesystem>

#include "text/paths.h"

namespace velorix {
namespace {

std::string TitleOf(FileAction action) {
  switch (action) {
    case FileAction::New:
      return "New File";
    case FileAction::Save:
      return "Save Data";
    default:
      return "Open File(s)";
  }
}

}  // namespace

std::string FileList::FirstPath() const { return InFolder(Folder, FirstName); }

std::vector<std::string> FileList::Paths() const {
  std::vector<std::string> paths;
  for (const std::string& name : Names) paths.push_back(InFolder(Folder, name));
  return paths;
}

FileList SplitFileList(const std::string& list) {
  FileList result;
  const std::size_t zero = list.find('\0');
  if (zero == std::string::npos || zero + 1 == list.size()) {
    const std::string path = list.substr(0, zero);
    const std::size_t cut = path.find_last_of(PathSeparator == '\\' ? "/\\" : "/");
    std::error_code ignored;
    result.Folder = cut == std::string::npos ? Utf8Of(std::filesystem::current_path(ignored))
                                             : path.substr(0, cut);
    result.Names = {path.substr(cut + 1)};  // npos + 1 is the whole
  } else {
    result.Folder = list.substr(0, zero);
    for (std::size_t from = zero + 1; from < list.size();) {
      const std::size_t to = std::min(list.find('\0', from), list.size());
      if (to > from) result.Names.push_back(list.substr(from, to - from));
      from = to + 1;
    }
    if (!result.Folder.empty() && result.Folder.back() == PathSeparator) result.Folder.pop_back();
  }
  if (!result.Names.empty()) result.FirstName = result.Names.front();
  return result;
}

std::string InFolder(const std::string& folder, const std::string& name) {
  return PathOf(name).is_absolute() ? name : folder + PathSeparator + name;
}

bool FileExists(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(PathOf(path), error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string FilterText(const std::string& caption, const std::string& extension) {
  const std::string pattern = "*." + extension;
  return caption + " (" + pattern + ")|" + pattern + "|";
}

std::optional<FileAnswer> AskForFile(Dialogs& dialogs, FileAction action, FileQuestion question,
                                     const std::function<bool(const FileAnswer&)>& accepts) {
  for (;;) {
    auto answer =
        action == FileAction::Save ? dialogs.ShowSave(question) : dialogs.ShowOpen(question);
    if (!answer || accepts(*answer)) return answer;
    question.Again = std::move(answer);
  }
}

FileQuestion DataFileQuestion(const Session& session, FileAction action) {
  FileQuestion question;
  question.Title = TitleOf(action);
  question.Folder = session.DataFolder;
  question.Multi = action == FileAction::Open;
  question.MaxFileSize = question.Multi ? 32767 : 2048;
  return question;
}

std::optional<ChosenFiles> AskForDataFiles(
    Dialogs& dialogs, FileAction action, const FileQuestion& question,
    const std::function<bool(const std::string& name)>& takesMissing) {
  ChosenFiles chosen;
  const auto accepts = [&](const FileAnswer& answer) {
    chosen.List = SplitFileList(answer.Filename);
    chosen.Filter = answer.FilterIndex;
    const std::string& name = chosen.List.FirstName;
    chosen.Exists = FileExists(chosen.List.FirstPath());
    if (!chosen.Exists) return takesMissing(name);
    return action == FileAction::Open ||
           dialogs.AskYesNo(question.Title,
                            name + "\nThis file already exists.\nAppend to existing file?");
  };
  if (!AskForFile(dialogs, action, question, accepts)) return std::nullopt;
  return chosen;
}

FileQuestion SaveQuestion(const Session& session, const char* title) {
  FileQuestion question;
  question.Title = title;
  question.Folder = session.DataFolder;
  question.DefaultName = BaseName(session.CurrentFile);
  return question;
}

std::optional<FileAnswer> AskWhereToSave(Dialogs& dialogs, const FileQuestion& question) {
  return AskForFile(dialogs, FileAction::Save, question, [&](const FileAnswer& answer) {
    return !FileExists(answer.Filename) ||
           dialogs.AskYesNo(question.Title, "This file already exists.\nOverwrite existing file?");
  });
}

void ShowWritten(Views& views, const std::string& path) { views.ShowStatus("Written: " + path); }

}  // namespace velorix
