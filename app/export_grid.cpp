#include "app/export_grid.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "app/data_table.h"
#include "app/record_grid.h"
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

/// Brings the cell that begins at `start` into the file's form and appends what parts it from the
/// next one. An empty delimiter means print zones.
void EndCell(std::string& text, std::size_t start, std::string_view delimiter, bool stripBlanks) {
  const std::string_view cell = std::string_view(text).substr(start);
  if (std::any_of(cell.begin(), cell.end(), [](char c) { return (c & 0x80) != 0; }))
    text.replace(start, text.npos, ToCodePage(cell));
  if (stripBlanks)
    text.erase(std::remove(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), ' '),
               text.end());
  if (delimiter.empty()) {
    const std::size_t length = text.size() - start;
    // A text that fills its zone leaves no blank before the next value: this is wanted.
    const std::size_t zones = std::max<std::size_t>(1, (length + PrintZone - 1) / PrintZone);
    text.append(zones * PrintZone - length, ' ');
  } else {
    // Behind the last value too: this is wanted.
    text.append(1, ' ').append(delimiter);
  }
}

void WriteRows(const GridTexts& grid, const ExportForm& form, bool header, std::ostream& out) {
  std::string_view delimiter = form.Delimiter;
  if (StripBlanks(delimiter).empty()) delimiter = {};  // a tab is no blank
  std::string block;
  const auto write = [&] {
    out.write(block.data(), static_cast<std::streamsize>(block.size()));
    block.clear();
  };
  for (int row = header ? -form.HeaderRows : 0; row < grid.Rows; ++row) {
    if (row >= 0 && form.SelectedOnly && !grid.IsSelected(row)) continue;
    for (int column = -grid.RowHeaderColumns; column < grid.Columns; ++column) {
      const std::size_t start = block.size();
      grid.AppendCell(block, row, column);
      EndCell(block, start, delimiter, form.StripBlanks);
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
  const auto rows = std::make_shared<const std::vector<int>>(DataTableRows(session));
  const auto record = [&session, rows](int row) -> const SpecimenRecord& {
    return session.Records[(*rows)[static_cast<std::size_t>(row)]];
  };
  grid.Rows = static_cast<int>(rows->size());
  grid.RowHeaderColumns = 1;
  grid.Columns = GridColumns - 1;
  grid.AppendCell = [&session, record](std::string& text, int row, int column) {
    if (row < 0)
      text += GridHeader(column + 2, session.Settings);
    else
      AppendGridCell(text, column + 2, record(row), session.ReImMode);
  };
  grid.IsSelected = [record](int row) { return record(row).Selected; };
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
  FileQuestion question;
  question.Title = Title;
  question.Folder = velorix.Session.DataFolder;
  question.DefaultName = BaseName(velorix.Session.CurrentFile);
  for (const ExportFilter& filter : ExportFilters) question.Filter += filter.Text;
  for (;;) {
    const auto answer = velorix.Dialogs.ShowSave(question);
    if (!answer) return;
    ExportForm form;
    const int filter = std::clamp<int>(answer->FilterIndex, 1, std::ssize(ExportFilters));
    form.Delimiter = ExportFilters[filter - 1].Delimiter;
    if (fs::exists(PathOf(answer->Filename))) {
      const int choice =
          velorix.Dialogs.Ask(Title, answer->Filename + "\n\nThis file already exists.",
                              {"&Append", "&Overwrite", "&Cancel"}, Append);
      if (choice == Cancel) continue;
      form.Append = choice == Append;
    }
    // A file that can't be written ends the command without a word: this is wanted.
    if (!ExportGrid(RecordGridTexts(velorix.Session), answer->Filename, form))
      velorix.Log.DebugPrint("Export failed: " + answer->Filename);
    return;
  }
}

}  // namespace velorix
