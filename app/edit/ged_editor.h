#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/edit/cell_doubts.h"
#include "app/state/dialogs.h"
#include "store/session.h"

namespace velorix {

// The editor of geological files: a sheet of texts that is filled from files and saved into one.

/// A column of the grid, counted from 0.
struct GedColumn {
  const char* Caption;
  const AngleRange* Range;  // of a number; null for a text
  int Characters;           // that may be typed
};
inline constexpr int GedColumnCount = 15;
const GedColumn& GedColumnAt(int column);

/// One sample, the text of each cell.
struct GedRow {
  std::array<std::string, GedColumnCount> Cells;
  bool TakenOut = false;  // not in view and not saved
  bool operator==(const GedRow&) const = default;
};

/// What the head of a file says of all samples.
struct GedSite {
  std::string Site, Lon, Lat, Rock, Strat, Litho, Regio;
  Array1<std::int16_t, 4> OP;
  bool operator==(const GedSite&) const = default;
};

/// What the window shows.
struct GedSheet {
  GedSite Site;
  std::vector<GedRow> Rows;
  std::string Path;        // that the caption names; empty for a new file
  std::string Base;        // name proposed when saving
  bool OfSeveral = false;  // files that were opened together
  int ReadCount = 0;
  bool operator==(const GedSheet&) const = default;
};

/// An empty sheet with the orientation parameters of the settings.
GedSheet NewGedSheet(const Settings& settings);

/// The text that a cell has after `text` was typed into it: for a number its plain form, or empty
/// for blanks; a text that is no number stays, to be marked. Nothing when the number that it is
/// read as is outside the column's limits.
std::optional<std::string> AcceptedGedText(int column, const std::string& text);
/// Shows that a number was outside the limits.
void RefuseGedCell(Dialogs& dialogs);

/// The codes in the rows that are not taken out.
SheetCodes CodesOf(const GedSheet& sheet);
/// What is doubtful in a cell, row and column from 0, or nothing.
std::string GedCellDoubt(const GedSheet& sheet, int row, int column, const SheetCodes& codes);
/// The doubtful cells of the rows to be saved.
SheetDoubts FindDoubts(const GedSheet& sheet, const SheetCodes& codes);

/// Asks for files, reads them all and fills the sheet: the site from the first sample, a row for
/// each sample. The session's geological records are those of the sheet then. False, with the sheet
/// and the session as they were, on cancel or when a file can't be read.
bool OpenGedFiles(Session& session, Dialogs& dialogs, GedSheet& sheet);

/// Asks for a name and writes the rows that are not taken out there, rows without any text left
/// out; they become the session's geological records. False when nothing was written.
bool SaveGedFile(Session& session, Dialogs& dialogs, const GedSheet& sheet);

/// The window's caption; a path has `room` characters.
std::string GedCaption(const GedSheet& sheet, int room);

}  // namespace velorix
