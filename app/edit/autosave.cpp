#include "app/edit/autosave.h"

#include <filesystem>
#include <utility>

#include "app/state/refusals.h"
#include "base/timer.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/settings/autosave_file.h"
#include "text/paths.h"

namespace velorix {
namespace {

bool IsUnsaved(const Session& session, const OrientationEditor* editor) {
  // While "SAVE" asks its question, the records have the cells already, so cells are not compared.
  return session.IsUnsaved() || (editor && editor->Grid.Done > 0);
}

/// The work without its time; no rows where the files are not known that they belong to.
AutosavedWork WorkOf(const Session& session, const OrientationEditor* editor) {
  AutosavedWork work;
  const std::vector<EditRow> rows = editor ? editor->Grid.Rows : RowsOf(session.Records);
  std::size_t read = 0;
  for (const OpenedFile& file : session.Opened) read += static_cast<std::size_t>(file.Records);
  if (read != rows.size() || session.Opened.size() != session.OpenFiles.size()) return work;
  for (std::size_t i = 0; i < session.Opened.size(); ++i)
    work.Files.push_back({session.OpenFiles[i], session.Opened[i]});
  for (const EditRow& row : rows) work.Rows.emplace_back(row.begin(), row.end());
  return work;
}

}  // namespace

void Autosave::Update(const Session& session, const OrientationEditor* editor, Views& views,
                      DebugLog& log) {
  if (!IsUnsaved(session, editor)) return Remove();
  try {
    Write(session, editor);
    refused_ = false;
  } catch (const Fault& fault) {
    if (!std::exchange(refused_, true))
      ReportRefusal(views, log, "Unsaved data could not be kept: " + FaultText(fault));
  }
}

void Autosave::Write(const Session& session, const OrientationEditor* editor) {
  AutosavedWork work = WorkOf(session, editor);
  if (work.Rows.empty()) return;
  std::string text = AutosaveText(work);
  if (text == written_) return;
  work.Time = DateAndTime();
  SafeWrite(path_, [&work](std::ostream& out) { out << AutosaveText(work); });
  written_ = std::move(text);
}

void Autosave::Remove() {
  if (IsKept()) RemoveAutosave(path_);
  written_.clear();
}

void RemoveAutosave(const std::string& path) {
  std::error_code ignored;
  std::filesystem::remove(PathOf(path), ignored);
}

}  // namespace velorix
