#pragma once

#include <functional>
#include <string>

#include "app/state/velorix.h"

namespace velorix {

/// What a grid shows, by rows and columns from 0; header rows and row-header columns have negative
/// numbers.
struct GridTexts {
  int Rows = 0, Columns = 0, RowHeaderColumns = 0;
  /// Puts a cell behind `text`.
  std::function<void(std::string& text, int row, int column)> AppendCell = {};
  std::function<bool(int row)> IsSelected = {};
  std::function<bool(int row)> IsHidden = [](int) { return false; };
};

/// The record grid as it stands: a row for each record, hidden where the record is out of view,
/// under one header row, "ID" as the header of the rows, column -1. It looks into the session.
GridTexts RecordGridTexts(const Session& session);

/// How a grid becomes text.
struct ExportForm {
  std::string Delimiter = ",";
  int HeaderRows = 1;
  bool SelectedOnly = false;
  bool StripBlanks = true;  // each cell loses all its blanks, those within too
  bool Append = true;       // what the file holds stays in front
};

/// Writes the grid into a text file in Windows-1252, lines ended by CR LF. Behind every value come
/// one blank and the delimiter; where the delimiter is nothing but blanks, the value fills fields
/// of 14 characters. The header rows go only into a file without content. The memory it takes does
/// not depend on the number of rows. False when the file could not be written, which then is as it
/// was; nobody is told.
bool ExportGrid(const GridTexts& grid, const std::string& path, const ExportForm& form);

/// A choice of the export dialog.
struct ExportFilter {
  const char* Text;
  const char* Delimiter;
};
inline constexpr ExportFilter ExportFilters[] = {
    {"Comma-delimited text file (*.csv)|*.csv|", ","},
    {"Space-delimited text file (*.txt)|*.txt|", " "},
    {"Semicolon-delimited text file (*.txt)|*.txt|", ";"},
    {"Tab-delimited text file (*.txt)|*.txt|", "\t"},
};

/// Asks for a file and writes the record grid there.
void ExportData(Velorix& velorix);

}  // namespace velorix
