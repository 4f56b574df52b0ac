#include "app/files/save.h"

#include <algorithm>
#include <filesystem>

#include "datafiles/ams_file.h"
#include "datafiles/ran_file.h"
#include "text/paths.h"

namespace velorix {
namespace {

constexpr char Title[] = "Save Record(s) As";
constexpr char SaveTitle[] = "Save";
constexpr char SelectedTitle[] = "Save Selected Record(s) As";

Outcome WriteAms(const std::string& path, const RecordArray& records, bool all) {
  return WithFileName(path, [&] { return WriteAmsFile(path, records, false, all); });
}

Outcome WriteRan(const std::string& path, const RecordArray& records, bool all) {
  return WithFileName(path, [&] { return WriteRanFile(path, records, false, all); });
}

struct SaveFilter {
  const char* Text;
  Outcome (*Write)(const std::string& path, const RecordArray& records, bool all);
};

// clang-format off
constexpr SaveFilter Filters[] = {
    {"AMS file (*.ams)|*.ams|", WriteAms},
    {"RAN file (*.ran)|*.ran|", WriteRan},
};
// clang-format on

/// Tells that the file is written, or what the writer refused, if it has something to say.
void Report(Velorix& velorix, const std::string& path, const Outcome& outcome) {
  if (outcome) return TellWritten(velorix, path);
  if (!outcome.Text.empty()) velorix.Dialogs.Ask(outcome.Title, outcome.Text, {"&OK"});
}

/// Whether there is something to save; the user hears it when there is not. Writers take the old
/// file away when they get nothing to write, so it must not come to that by an oversight.
bool HasRecords(Velorix& velorix, const char* title, bool all) {
  const RecordArray& records = velorix.Session.Records;
  if (std::any_of(records.begin(), records.end(),
                  [all](const SpecimenRecord& r) { return all || r.Selected; }))
    return true;
  velorix.Dialogs.Ask(title, all ? "There is no record to save." : "No record is selected.",
                      {"&OK"});
  return false;
}

void AskAndSave(Velorix& velorix, const char* title, bool all) {
  if (!HasRecords(velorix, title, all)) return;
  FileQuestion question = SaveQuestion(velorix.Session, title);
  for (const SaveFilter& filter : Filters) question.Filter += filter.Text;
  const auto answer = AskWhereToSave(velorix, question);
  if (!answer) return;
  const std::size_t filter = answer->FilterIndex == 2 ? 1 : 0;
  Report(velorix, answer->Filename,
         Filters[filter].Write(answer->Filename, velorix.Session.Records, all));
}

}  // namespace

FileQuestion SaveQuestion(const Session& session, const char* title) {
  FileQuestion question;
  question.Title = title;
  question.Folder = session.DataFolder;
  question.DefaultName = BaseName(session.CurrentFile);
  return question;
}

std::optional<FileAnswer> AskWhereToSave(Velorix& velorix, FileQuestion question) {
  for (;;) {
    auto answer = velorix.Dialogs.ShowSave(question);
    if (!answer || !HasFile(answer->Filename) ||
        velorix.Dialogs.Ask(question.Title, "This file already exists.\nOverwrite existing file?",
                            {"&Yes", "&No"}, 1) == 0)
      return answer;
    question.Again = answer;
  }
}

void TellWritten(Velorix& velorix, const std::string& path) {
  velorix.Views.ShowStatus("Written: " + path);
}

bool HasFile(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::exists(PathOf(path), unknown);
}

void SaveAs(Velorix& velorix) { AskAndSave(velorix, Title, true); }
void SaveSelectedAs(Velorix& velorix) { AskAndSave(velorix, SelectedTitle, false); }

void SaveFile(Velorix& velorix) {
  // A RAN file under whatever name the open file has, one that ends in ".ams" too: this is wanted.
  if (!HasRecords(velorix, SaveTitle, true)) return;
  const std::string& path = velorix.Session.CurrentFile;
  Report(velorix, path, WriteRan(path, velorix.Session.Records, true));
}

}  // namespace velorix
