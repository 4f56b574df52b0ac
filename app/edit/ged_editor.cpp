#include "app/edit/ged_editor.h"

#include <algorithm>

#include "app/files/file_stamp.h"
#include "app/files/geo_files.h"
#include "app/files/losses.h"
#include "app/files/save.h"
#include "datafiles/bytes/text_file.h"
#include "datafiles/formats/ged_file.h"
#include "text/numbers.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

constexpr char Title[] = "Geological file editor";
constexpr char SaveTitle[] = "Save geological file";
constexpr int MaxFileSize = 32767;

// clang-format off
constexpr GedColumn Columns[GedColumnCount] = {
    // caption, range of a number, characters typed (a text: what the file has room for)
    {"Sample name", nullptr,       12},
    {"Orientation", &AzimuthRange, 16},
    {"Inc",         &PlungeRange,  16},
    {"Foliation1",  nullptr,        1},
    {"Azimuth",     &AzimuthRange, 16},
    {"Dip",         &DipRange,     16},
    {"Lineation1",  nullptr,        1},
    {"Trend",       &AzimuthRange, 16},
    {"Plunge",      &PlungeRange,  16},
    {"Foliation2",  nullptr,        1},
    {"Azimuth",     &AzimuthRange, 16},
    {"Dip",         &DipRange,     16},
    {"Lineation2",  nullptr,        1},
    {"Trend",       &AzimuthRange, 16},
    {"Plunge",      &PlungeRange,  16},
};
// clang-format on

/// Calls `visit(column, field)` for the field of each column; it is a std::string or a float.
template <class Record, class Visit>
void ForEachCell(Record& r, Visit visit) {
  int column = 0;
  visit(column++, r.Name);
  visit(column++, r.OrientAz);
  visit(column++, r.OrientInc);
  for (int s = 1; s <= 2; ++s) {
    visit(column++, r.FoliName[s]);
    visit(column++, r.FoliAz[s]);
    visit(column++, r.FoliDip[s]);
    visit(column++, r.LineName[s]);
    visit(column++, r.LineTrend[s]);
    visit(column++, r.LinePlunge[s]);
  }
}

std::string TextOf(const std::string& text) { return text; }
std::string TextOf(float value) { return PlainText(value); }

void Take(const std::string& text, std::string& field) { field = StripBlanks(text); }
void Take(const std::string& text, float& field) { field = SingleOf(text); }

GedRow RowOf(const SpecimenRecord& record) {
  GedRow row;
  ForEachCell(record, [&row](int column, const auto& field) {
    row.Cells[static_cast<std::size_t>(column)] = TextOf(field);
  });
  return row;
}

GedSite SiteOf(const SpecimenRecord& r) {
  return {r.Site, PlainText(r.Lon), PlainText(r.Lat), r.Rock, r.Strat, r.Litho, r.Regio, r.OP};
}

SpecimenRecord RecordOf(const GedRow& row, const GedSite& site) {
  SpecimenRecord r;
  ForEachCell(r, [&row](int column, auto& field) {
    Take(row.Cells[static_cast<std::size_t>(column)], field);
  });
  Take(site.Site, r.Site);
  Take(site.Lon, r.Lon);
  Take(site.Lat, r.Lat);
  Take(site.Rock, r.Rock);
  Take(site.Strat, r.Strat);
  Take(site.Litho, r.Litho);
  Take(site.Regio, r.Regio);
  r.OP = site.OP;
  return r;
}

bool IsToBeSaved(const GedRow& row) {
  return !row.TakenOut &&
         std::any_of(row.Cells.begin(), row.Cells.end(),
                     [](const std::string& cell) { return !StripBlanks(cell).empty(); });
}

constexpr int FirstCodeColumn = 3;

/// Codes begin the triples of columns; every other one is a lineation's.
bool IsCode(int column) { return column >= FirstCodeColumn && column % 3 == 0; }
bool IsLineation(int column) { return column % 6 == 0; }

/// "Foliation1 Dip"; an orientation's columns and the codes have no group.
std::string ColumnName(int column) {
  const std::string caption = Columns[column].Caption;
  const bool inGroup = column >= FirstCodeColumn && !IsCode(column);
  return inGroup ? std::string(Columns[column - column % 3].Caption) + " " + caption : caption;
}

/// The one filter of the dialogs, which ends without a bar.
std::string Filter() {
  std::string filter = GedFilter();
  filter.pop_back();
  return filter;
}

/// The files that the user chose, all of which exist; none on cancel.
FileList AskForFiles(const Session& session, Dialogs& dialogs) {
  FileQuestion question;
  question.Title = "Open GED file(s)";
  question.Filter = Filter();
  question.Folder = session.DataFolder;
  question.Multi = true;
  question.MaxFileSize = MaxFileSize;
  FileList list;
  const auto allExist = [&](const FileAnswer& answer) {
    list = SplitFileList(answer.Filename);
    for (const std::string& name : list.Names) {
      if (FileExists(InFolder(list.Folder, name))) continue;
      dialogs.Ask(question.Title, name + "\nThis file does not exist.\nCreate new file?",
                  {"&Retry"});
      return false;
    }
    return true;
  };
  return AskForFile(dialogs, FileAction::Open, question, allExist) ? list : FileList();
}

/// The rows as records. "Overflow" when they are too many or a coordinate is too great.
RecordArray RecordsOf(const GedSheet& sheet) {
  RecordArray records;
  for (const GedRow& row : sheet.Rows)
    if (IsToBeSaved(row)) records.Add(RecordOf(row, sheet.Site));
  return records;
}

}  // namespace

const GedColumn& GedColumnAt(int column) {
  if (column < 0 || column >= GedColumnCount) FailSubscript();
  return Columns[column];
}

GedSheet NewGedSheet(const Settings& settings) {
  GedSheet sheet;
  sheet.Site.OP = settings.P;
  return sheet;
}

std::optional<std::string> AcceptedGedText(int column, const std::string& text) {
  const GedColumn& rule = GedColumnAt(column);
  const std::string stripped(StripBlanks(text));
  if (!rule.Range || stripped.empty()) return stripped;
  const double value = NumberOf(stripped);
  if (value < 0 || value > rule.Range->Highest) return std::nullopt;
  return IsNumberText(stripped) ? PlainText(static_cast<float>(value)) : stripped;
}

void RefuseGedCell(Dialogs& dialogs) { dialogs.Ask("Edit aniso", "Input out of limits!", {"OK"}); }

SheetCodes CodesOf(const GedSheet& sheet) {
  SheetCodes codes;
  codes.Room = GedCodeLetters;
  for (const GedRow& row : sheet.Rows)
    for (int column = FirstCodeColumn; column < GedColumnCount && !row.TakenOut; column += 3)
      (IsLineation(column) ? codes.Lineations : codes.Foliations)
          .Add(row.Cells[static_cast<std::size_t>(column)]);
  return codes;
}

std::string GedCellDoubt(const GedSheet& sheet, int row, int column, const SheetCodes& codes) {
  const std::string& text =
      sheet.Rows[static_cast<std::size_t>(row)].Cells[static_cast<std::size_t>(column)];
  if (const AngleRange* range = GedColumnAt(column).Range) return AngleDoubt(text, *range);
  if (!IsCode(column)) return {};
  return CodeDoubt(text, codes, IsLineation(column) ? codes.Lineations : codes.Foliations);
}

SheetDoubts FindDoubts(const GedSheet& sheet, const SheetCodes& codes) {
  SheetDoubts doubts;
  for (int row = 0; row < static_cast<int>(sheet.Rows.size()); ++row) {
    const GedRow& cells = sheet.Rows[static_cast<std::size_t>(row)];
    for (int column = 0; column < GedColumnCount && !cells.TakenOut; ++column)
      if (const std::string doubt = GedCellDoubt(sheet, row, column, codes); !doubt.empty())
        doubts.Add(row + 1, column + 1,
                   "Row " + std::to_string(row + 1) + ", " + ColumnName(column),
                   cells.Cells[static_cast<std::size_t>(column)], doubt);
  }
  return doubts;
}

bool OpenGedFiles(Session& session, Dialogs& dialogs, GedSheet& sheet) {
  const FileList list = AskForFiles(session, dialogs);
  if (list.Names.empty()) return false;
  if (!ReadGeoFiles(session, dialogs, list)) return false;
  const RecordArray& records = session.GeoRecords;
  GedSheet read;
  read.Site = SiteOf(records[1]);
  for (const SpecimenRecord& record : records) read.Rows.push_back(RowOf(record));
  const bool one = list.Names.size() == 1;
  read.Path = one ? session.GeoFile : list.Folder + "\\MULTIPLE FILES";
  if (one) read.Base = BaseName(list.FirstName);
  read.OfSeveral = !one;
  read.ReadCount = records.Count();
  sheet = std::move(read);
  return true;
}

bool SaveGedFile(Session& session, Dialogs& dialogs, const GedSheet& sheet) {
  RecordArray records = RecordsOf(sheet);
  if (records.Empty()) {
    Refuse(dialogs, SaveTitle, "There is no sample to save.");
    return false;
  }
  FileQuestion question;
  question.Title = SaveTitle;
  question.Filter = Filter();
  question.Folder = session.DataFolder;
  question.DefaultName = sheet.Base;
  bool cancelled = false;
  const auto accepts = [&](const FileAnswer& answer) {
    const std::string& path = answer.Filename;
    if (!FileExists(path)) return true;
    if (!dialogs.AskYesNo(UpperCase(SaveTitle), "Overwrite existing file?")) return false;
    const LossAnswer loss = AskAboutLosses(dialogs, SaveTitle, path,
                                           FindGedLosses(session, path, records, sheet.OfSeveral));
    cancelled = loss == LossAnswer::Cancel;
    return loss != LossAnswer::Copy;
  };
  const auto answer = AskForFile(dialogs, FileAction::Save, question, accepts);
  if (!answer || cancelled) return false;
  if (!WriteGedFile(answer->Filename, records, FormerOf(session))) return false;
  session.GeoRecords = std::move(records);
  session.GeoFile = answer->Filename;
  session.GeoStamp = StampOf(session.GeoFile);
  return true;
}

std::string GedCaption(const GedSheet& sheet, int room) {
  if (sheet.Path.empty()) return Title;
  return std::string(Title) + " - [" + CompactPath(sheet.Path, room) +
         "] (N = " + std::to_string(sheet.ReadCount) + ")";
}

}  // namespace velorix
