#pragma once

#include <functional>
#include <string>

#include "app/state/debug_log.h"
#include "app/state/dialogs.h"
#include "app/state/views.h"
#include "base/outcome.h"
#include "store/session.h"

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
/// not depend on the number of rows. Refused when the file could not be written, which then is as
/// it was; the text has path and reason.
Outcome ExportGrid(const GridTexts& grid, const std::string& path, const ExportForm& form);

/// A choice of the export dialog.
struct ExportKind {
  const char* Word;  // of the console: "comma"
  const char* Caption;
  const char* Extension;
  const char* Delimiter;
};
inline constexpr ExportKind ExportKinds[] = {
    {"comma", "Comma-delimited text file", "csv", ","},
    {"space", "Space-delimited text file", "txt", " "},
    {"semicolon", "Semicolon-delimited text file", "txt", ";"},
    {"tab", "Tab-delimited text file", "txt", "\t"},
};

/// Asks for a file and writes the record grid there. A file that can't be written is reported in
/// the status line and the log.
void ExportData(const Session& session, Dialogs& dialogs, Views& views, DebugLog& log);

}  // namespace velorix
