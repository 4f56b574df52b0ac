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

bool IsAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

/// Appends the cell and what parts it from the next one. An empty delimiter means print zones.
void AppendCell(const std::string& cell, std::string_view delimiter, bool stripBlanks,
                std::string& line) {
  const std::size_t start = line.size();
  line += IsAscii(cell) ? cell : ToCodePage(cell);
  if (stripBlanks)
    line.erase(std::remove(line.begin() + static_cast<std::ptrdiff_t>(start), line.end(), ' '),
               line.end());
  if (delimiter.empty()) {
    const std::size_t length = line.size() - start;
    // A text that fills its zone leaves no blank before the next value: this is wanted.
    const std::size_t zones = std::max<std::size_t>(1, (length + PrintZone - 1) / PrintZone);
    line.append(zones * PrintZone - length, ' ');
  } else {
    // Behind the last value too: this is wanted.
    line.append(1, ' ').append(delimiter);
  }
}

void WriteRows(const GridTexts& grid, const ExportForm& form, bool header, std::ostream& out) {
  std::string_view delimiter = form.Delimiter;
  if (StripBlanks(delimiter).empty()) delimiter = {};  // a tab is no blank
  std::string line;
  for (int row = header ? -form.HeaderRows : 0; row < grid.Rows; ++row) {
    if (row >= 0 && form.SelectedOnly && !grid.IsSelected(row)) continue;
    line.clear();
    for (int column = -grid.RowHeaderColumns; column < grid.Columns; ++column)
      AppendCell(grid.Cell(row, column), delimiter, form.StripBlanks, line);
    line += "\r\n";
    out.write(line.data(), static_cast<std::streamsize>(line.size()));
  }
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
  grid.Cell = [&session, record](int row, int column) {
    return row < 0 ? GridHeader(column + 2, session.Settings)
                   : GridCell(column + 2, record(row), session.ReImMode);
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
