#include "app/files/save.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "app/files/ask_file.h"
#include "app/files/file_kinds.h"
#include "app/files/file_stamp.h"
#include "app/files/losses.h"
#include "text/paths.h"

namespace velorix {
namespace {

/// Writes the file and shows that it is written, or why it was refused.
bool Write(Session& session, Dialogs& dialogs, Views& views, const std::string& path,
           const FileKind& kind, bool all) {
  const Outcome outcome = kind.Write(path, session.Records, all, FormerOf(session));
  if (!outcome) {
    ShowRefusal(dialogs, outcome);
    return false;
  }
  NoteWritten(session, path);
  if (all) NoteSaved(session);
  ShowWritten(views, path);
  return true;
}

/// Whether there is something to save; a box says when there is not. Writers take the old file away
/// when they get nothing to write, which must not happen by an oversight.
bool HasRecords(const RecordArray& records, Dialogs& dialogs, const char* title, bool all) {
  if (std::any_of(records.begin(), records.end(),
                  [all](const SpecimenRecord& r) { return all || r.Selected; }))
    return true;
  Refuse(dialogs, title, all ? "There is no record to save." : "No record is selected.");
  return false;
}

/// The answer with the name of a copy: "granite copy.ams".
FileAnswer CopyOf(FileAnswer answer) {
  const std::size_t end = answer.Filename.size() - ExtensionOf(answer.Filename).size() - 1;
  answer.Filename.insert(std::min(end, answer.Filename.size()), " copy");
  return answer;
}

constexpr char SaveAllTitle[] = "Save Record(s) As";

/// `proposed` is what the dialog shows first.
bool AskAndSave(Session& session, Dialogs& dialogs, Views& views, const char* title, bool all,
                std::optional<FileAnswer> proposed = {}) {
  if (!HasRecords(session.Records, dialogs, title, all)) return false;
  FileQuestion question = SaveQuestion(session, title);
  question.Filter = SaveFilters();
  question.Again = std::move(proposed);
  for (;;) {
    const auto answer = AskWhereToSave(dialogs, question);
    if (!answer) return false;
    const std::string& path = answer->Filename;
    const FileKind& kind = KindToSave(answer->FilterIndex);
    const Losses losses = FindLosses(session, path, kind, session.Records, all);
    switch (AskAboutLosses(dialogs, title, path, losses)) {
      case LossAnswer::Save:
        return Write(session, dialogs, views, path, kind, all);
      case LossAnswer::Copy:  // under another name
        question.Again = CopyOf(*answer);
        break;
      case LossAnswer::Cancel:
        return false;
    }
  }
}

}  // namespace

FormerFile FormerOf(const Session& session) {
  return session.Preferences.KeepFormerFile ? FormerFile::Stays : FormerFile::Goes;
}

bool SaveAs(Session& session, Dialogs& dialogs, Views& views) {
  return AskAndSave(session, dialogs, views, SaveAllTitle, true);
}

bool SaveCopy(Session& session, Dialogs& dialogs, Views& views) {
  std::optional<FileAnswer> copy;
  if (const int filter = SaveFilterOf(session.CurrentFile); filter != 0)
    copy = CopyOf({session.CurrentFile, filter});
  return AskAndSave(session, dialogs, views, SaveAllTitle, true, std::move(copy));
}

bool SaveSelectedAs(Session& session, Dialogs& dialogs, Views& views) {
  return AskAndSave(session, dialogs, views, "Save Selected Record(s) As", false);
}

bool SaveFile(Session& session, Dialogs& dialogs, Views& views) {
  // Kept for agreement with published results: a RAN file under whatever name the open file has,
  // one that ends in ".ams" too.
  constexpr char Title[] = "Save";
  if (!HasRecords(session.Records, dialogs, Title, true)) return false;
  const FileKind& kind = *KindToWrite("ran");
  const Losses losses = FindLosses(session, session.CurrentFile, kind, session.Records, true);
  switch (AskAboutLosses(dialogs, Title, session.CurrentFile, losses)) {
    case LossAnswer::Save:
      return Write(session, dialogs, views, session.CurrentFile, kind, true);
    case LossAnswer::Copy:
      return SaveCopy(session, dialogs, views);
    default:
      return false;
  }
}

}  // namespace velorix
