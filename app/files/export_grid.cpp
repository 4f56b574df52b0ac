#include "app/files/export_grid.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "app/files/save.h"
#include "app/tables/record_grid.h"
#include "datafiles/safe_write.h"
#include "text/code_page.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

constexpr char Title[] = "Export Data";
constexpr std::size_t PrintZone = 14;
constexpr std::size_t BlockSize = 1u << 16;  // bytes that are written at a time

/// Brings the cell that begins at `start` into the code page, and without its blanks if told.
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

/// Fills the print zones that a value of `length` characters takes. One that fills its zone has no
/// blank before the next value: this is wanted.
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
        block += cellEnd;  // behind the last value too: this is wanted
    }
    block += "\r\n";
    if (block.size() >= BlockSize) write();
  }
  write();
}

/// All of a file; less is a failure of `out`.
void CopyFile(const fs::path& path, std::ostream& out) {
  std::ifstream in(path, std::ios::binary);
  out << in.rdbuf();
  if (static_cast<std::uintmax_t>(out.tellp()) != fs::file_size(path))
    out.setstate(std::ios::failbit);
}

}  // namespace

GridTexts RecordGridTexts(const Session& session) {
  GridTexts grid;
  grid.Rows = session.RecordCount();
  grid.RowHeaderColumns = 1;
  grid.Columns = static_cast<int>(GridColumns.size()) - 1;
  grid.AppendCell = [&session](std::string& text, int row, int column) {
    const Column key = GridColumns[static_cast<std::size_t>(column + 1)];
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

bool ExportGrid(const GridTexts& grid, const std::string& path, const ExportForm& form) {
  try {
    const fs::path old = PathOf(path);
    const bool goesOn = form.Append && fs::is_regular_file(old) && fs::file_size(old) > 0;
    SafeWrite(path, [&](std::ostream& out) {
      if (goesOn) CopyFile(old, out);
      WriteRows(grid, form, !goesOn, out);
    });
    return true;
  } catch (const fs::filesystem_error&) {
    return false;
  }
}

void ExportData(Velorix& velorix) {
  enum Choice { Append, Overwrite, Cancel };
  FileQuestion question = SaveQuestion(velorix.Session, Title);
  for (const ExportFilter& filter : ExportFilters) question.Filter += filter.Text;
  for (;;) {
    const auto answer = velorix.Dialogs.ShowSave(question);
    if (!answer) return;
    question.Again = answer;
    ExportForm form;
    const int filter = std::clamp<int>(answer->FilterIndex, 1, std::ssize(ExportFilters));
    form.Delimiter = ExportFilters[filter - 1].Delimiter;
    if (HasFile(answer->Filename)) {
      const int choice =
          velorix.Dialogs.Ask(Title, answer->Filename + "\n\nThis file already exists.",
                              {"&Append", "&Overwrite", "&Cancel"}, Append);
      if (choice == Cancel) continue;
      form.Append = choice == Append;
    }
    // A file that can't be written ends the command without a word: this is wanted.
    if (ExportGrid(RecordGridTexts(velorix.Session), answer->Filename, form))
      return TellWritten(velorix, answer->Filename);
    return velorix.Log.DebugPrint("Export failed: " + answer->Filename);
  }
}

}  // namespace velorix
