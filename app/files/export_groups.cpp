#include "app/files/export_groups.h"

#include "app/files/ask_file.h"
#include "app/state/refusals.h"
#include "app/tables/groups_csv.h"
#include "base/fault.h"
#include "datafiles/safe_write.h"

namespace velorix {

void ExportGroups(const Session& session, Dialogs& dialogs, Views& views, DebugLog& log,
                  const std::vector<const GroupRow*>& rows) {
  FileQuestion question = SaveQuestion(session, "Export groups");
  question.Filter = FilterText("Comma-delimited text file", "csv");
  const auto answer = AskWhereToSave(dialogs, question);
  if (!answer) return;
  try {
    SafeWrite(answer->Filename, [&](std::ostream& out) {
      out << GroupsCsvHeader(session.Settings);
      for (const GroupRow* row : rows) out << GroupsCsvRow(*row);
    });
    ShowWritten(views, answer->Filename);
  } catch (const FileFault& fault) {
    ReportRefusal(views, log,
                  answer->Filename + "\nThis file could not be written: " + fault.what());
  }
}

}  // namespace velorix
