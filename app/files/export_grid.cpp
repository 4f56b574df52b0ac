#include "app/files/export_grid.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "app/files/ask_file.h"
#include "app/state/refusals.h"
#include "app/tables/record_grid.h"
#include "datafiles/bytes/file_faults.h"
#include "datafiles/bytes/safe_write.h"
#include "text/code_page.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

constexpr char Title[] = "Export Data";
constexpr std::size_t PrintZone = 14;
constexpr std::size_t BlockSize = 1u << 16;  // bytes that are written at a time

/// Brings the cell that begins at `start` into the code page; `stripBlanks` removes its blanks.
void PutInForm(std::string& text, std::size_t start, bool stripBlanks) {
  bool plain = true;  // as nearly every cell: no blank, and nothing that the code page changes
  for (const char c : std::string_view(text).substr(start))
    plain &= static_cast<signed char>(c) > ' ';
  if (plain) return;
  text.replace(start, text.npos, ToCodePage(std::string_view(text).substr(start)));
  if (stripBlanks)
    text.erase(std::remove(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), ' '),
               text.end());
}

/// Fills the print zones that a value of `length` characters takes. Kept for agreement with
/// published results: one that fills its zone has no blank before the next value.
void FillZone(std::string& text, std::size_t length) {
  const std::size_t zones = std::max<std::size_t>(1, (length + PrintZone - 1) / PrintZone);
  text.append(zones * PrintZone - length, ' ');
}

void WriteRows(const GridTexts& grid, const ExportForm& form, bool header, std::ostream& out) {
  const bool inZones = StripBlanks(form.Delimiter).empty();  // a tab is no blank
  const std::string cellEnd = ' ' + form.Delimiter;
  std::string block;
  block.reserve(2 * BlockSize);
  const auto write = [&] {
    out.write(block.data(), static_cast<std::streamsize>(block.size()));
    block.clear();
  };
  for (int row = header ? -form.HeaderRows : 0; row < grid.Rows; ++row) {
    if (row >= 0 && (grid.IsHidden(row) || (form.SelectedOnly && !grid.IsSelected(row)))) continue;
    for (int column = -grid.RowHeaderColumns; column < grid.Columns; ++column) {
      const std::size_t start = block.size();
      grid.AppendCell(block, row, column);
      PutInForm(block, start, form.StripBlanks);
      if (inZones)
        FillZone(block, block.size() - start);
      else
        block += cellEnd;  // kept for agreement with published results: behind the last value too
    }
    block += "\r\n";
    if (block.size() >= BlockSize) write();
  }
  write();
}

/// The size of a regular file, 0 for anything else.
std::uintmax_t SizeOf(const std::string& path) {
  return OnFile(path, [&path]() -> std::uintmax_t {
    const fs::path file = PathOf(path);
    return fs::is_regular_file(file) ? fs::file_size(file) : 0;
  });
}

/// All `size` bytes of a file; less is a failure of `out`.
void CopyFile(const std::string& path, std::uintmax_t size, std::ostream& out) {
  std::ifstream in(PathOf(path), std::ios::binary);
  out << in.rdbuf();
  if (static_cast<std::uintmax_t>(out.tellp()) != size) out.setstate(std::ios::failbit);
}

}  // namespace

GridTexts RecordGridTexts(const Session& session) {
  GridTexts grid;
  grid.Rows = session.RecordCount();
  grid.RowHeaderColumns = 1;
  grid.Columns = static_cast<int>(GridColumns.size()) - 1;
  grid.AppendCell = [&session](std::string& text, int row, int column) {
    const int place = column + 1;  // -1: the row's header
    const Column key = GridColumns[static_cast<std::size_t>(place)];
    if (row < 0)
      text += ColumnName(key, session.Settings);
    else
      AppendGridCell(text, key, session.Records[row + 1], session.ReImMode);
  };
  grid.IsSelected = [&session](int row) { return session.Records[row + 1].Selected; };
  grid.IsHidden = [&session](int row) {
    return !IsShown(session.Records[row + 1], session.CoorSys, session.ReImMode);
  };
  return grid;
}

Outcome ExportGrid(const GridTexts& grid, const std::string& path, const ExportForm& form) {
  try {
    const std::uintmax_t kept = form.Append ? SizeOf(path) : 0;
    SafeWrite(path, [&](std::ostream& out) {
      if (kept > 0) CopyFile(path, kept, out);
      WriteRows(grid, form, kept == 0, out);
    });
    return {};
  } catch (const FileFault& fault) {
    return Outcome::Refused(Title, path + "\nThis file could not be written: " + fault.what());
  }
}

void ExportData(const Session& session, Dialogs& dialogs, Views& views, DebugLog& log) {
  enum Choice { Append, Overwrite, Cancel };
  FileQuestion question = SaveQuestion(session, Title);
  for (const ExportKind& kind : ExportKinds)
    question.Filter += FilterText(kind.Caption, kind.Extension);
  ExportForm form;
  const auto accepts = [&](const FileAnswer& answer) {
    if (!FileExists(answer.Filename)) return true;
    const int choice = dialogs.Ask(Title, answer.Filename + "\n\nThis file already exists.",
                                   {"&Append", "&Overwrite", "&Cancel"}, Append);
    form.Append = choice == Append;
    return choice != Cancel;
  };
  const auto answer = AskForFile(dialogs, FileAction::Save, question, accepts);
  if (!answer) return;
  const int kind = std::clamp<int>(answer->FilterIndex, 1, std::ssize(ExportKinds));
  form.Delimiter = ExportKinds[kind - 1].Delimiter;
  const Outcome outcome = ExportGrid(RecordGridTexts(session), answer->Filename, form);
  if (outcome) return ShowWritten(views, answer->Filename);
  // Kept for agreement with published results: no box says so.
  ReportRefusal(views, log, outcome.Text);
}

}  // namespace velorix
