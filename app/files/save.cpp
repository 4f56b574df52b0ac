#include "app/files/save.h"

#include <algorithm>

#include "app/files/ask_file.h"
#include "app/files/file_kinds.h"

namespace velorix {
namespace {

/// Shows that the file is written, or why it was refused.
void Report(Dialogs& dialogs, Views& views, const std::string& path, const Outcome& outcome) {
  if (outcome)
    ShowWritten(views, path);
  else
    Show(dialogs, outcome);
}

/// Whether there is something to save; a box says when there is not. Writers take the old file away
/// when they get nothing to write, which must not happen by an oversight.
bool HasRecords(const RecordArray& records, Dialogs& dialogs, const char* title, bool all) {
  if (std::any_of(records.begin(), records.end(),
                  [all](const SpecimenRecord& r) { return all || r.Selected; }))
    return true;
  dialogs.Ask(title, all ? "There is no record to save." : "No record is selected.", {"&OK"});
  return false;
}

void AskAndSave(const Session& session, Dialogs& dialogs, Views& views, const char* title,
                bool all) {
  if (!HasRecords(session.Records, dialogs, title, all)) return;
  FileQuestion question = SaveQuestion(session, title);
  question.Filter = SaveFilters();
  const auto answer = AskWhereToSave(dialogs, question);
  if (!answer) return;
  Report(dialogs, views, answer->Filename,
         KindToSave(answer->FilterIndex).Write(answer->Filename, session.Records, all));
}

}  // namespace

void SaveAs(const Session& session, Dialogs& dialogs, Views& views) {
  AskAndSave(session, dialogs, views, "Save Record(s) As", true);
}

void SaveSelectedAs(const Session& session, Dialogs& dialogs, Views& views) {
  AskAndSave(session, dialogs, views, "Save Selected Record(s) As", false);
}

void SaveFile(const Session& session, Dialogs& dialogs, Views& views) {
  // Kept for agreement with published results: a RAN file under whatever name the open file has,
  // one that ends in ".ams" too.
  if (!HasRecords(session.Records, dialogs, "Save", true)) return;
  Report(dialogs, views, session.CurrentFile,
         WriterOf("ran")(session.CurrentFile, session.Records, true));
}

}  // namespace velorix
