#include "app/files/export_groups.h"

#include <functional>
#include <ostream>

#include "app/files/ask_file.h"
#include "app/state/refusals.h"
#include "app/tables/groups_csv.h"
#include "base/fault.h"
#include "datafiles/bytes/safe_write.h"

namespace velorix {

namespace {

void ExportCsv(const Session& session, Dialogs& dialogs, Views& views, DebugLog& log,
               const char* title, const std::function<void(std::ostream&)>& write) {
  FileQuestion question = SaveQuestion(session, title);
  question.Filter = FilterText("Comma-delimited text file", "csv");
  const auto answer = AskWhereToSave(dialogs, question);
  if (!answer) return;
  try {
    SafeWrite(answer->Filename, write);
    ShowWritten(views, answer->Filename);
  } catch (const FileFault& fault) {
    ReportRefusal(views, log,
                  answer->Filename + "\nThis file could not be written: " + fault.what());
  }
}

}  // namespace

void ExportGroups(const Session& session, Dialogs& dialogs, Views& views, DebugLog& log,
                  const std::vector<const GroupRow*>& rows,
                  const std::optional<StudyOrigin>& origin) {
  ExportCsv(session, dialogs, views, log, "Export groups", [&](std::ostream& out) {
    out << GroupsCsvHeader(session.Settings, origin);
    for (const GroupRow* row : rows) out << GroupsCsvRow(*row, origin);
  });
}

void ExportComparisons(const Session& session, Dialogs& dialogs, Views& views, DebugLog& log,
                       std::span<const ComparedPair* const> pairs,
                       std::span<const std::string> names, const StudyOrigin& origin) {
  ExportCsv(session, dialogs, views, log, "Export comparisons", [&](std::ostream& out) {
    out << ComparisonCsvHeader();
    for (const ComparedPair* pair : pairs) out << ComparisonCsvRow(*pair, names, origin);
  });
}

}  // namespace velorix
