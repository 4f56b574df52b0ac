#include "datafiles/formats/ged_file.h"

#include <array>

#include "base/rounding.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/bytes/text_file.h"
#include "text/code_page.h"
#include "text/numbers.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

// Places in the tables below.
enum Header {
  Count,
  SiteName,
  First,
  Second,
  RockName,
  StratName,
  LithoName,
  RegioName,
  P1,
  P4 = P1 + 3
};
enum Sample {
  SampleName,
  Azimuth,
  Inclination,
  Codes1,
  Angles1,
  Codes2 = Angles1 + 4,
  Angles2,
  SampleEnd = Angles2 + 4
};
constexpr int AnglesOfSlot[] = {Angles1, Angles2}, CodesOfSlot[] = {Codes1, Codes2};

// clang-format off
constexpr GedField HeaderFields[] = {
    {"count",             0,  4}, {"Site",              4, 16},
    {"first coordinate", 20,  7}, {"second coordinate", 27, 7},
    {"Rock",             34,  4}, {"Strat",            38,  4}, {"Litho", 42, 4}, {"Regio", 46, 4},
    {"P1",               50,  3}, {"P2",               53,  3}, {"P3",    56, 3}, {"P4",    59, 3},
};
constexpr GedField SampleFields[] = {
    {"sample name",       0, 12}, {"OrientAz",         12,  4}, {"OrientInc", 16, 4},
    {"codes 1",          20,  4}, {"FoliAz[1]",        24,  4}, {"FoliDip[1]", 28, 4}, {"LineTrend[1]", 32, 4}, {"LinePlunge[1]", 36, 4},
    {"codes 2",          40,  4}, {"FoliAz[2]",        44,  4}, {"FoliDip[2]", 48, 4}, {"LineTrend[2]", 52, 4}, {"LinePlunge[2]", 56, 4},
    {"two blanks",       60,  2},
};
// clang-format on

std::string_view Cut(std::string_view line, const GedField& field) {
  return StripBlanks(
      line.substr(static_cast<std::size_t>(field.Offset), static_cast<std::size_t>(field.Width)));
}

std::string TextIn(std::string_view line, const GedField& field) {
  std::string text;
  FromCodePage(Cut(line, field), text);
  return text;
}

bool IsNumberIn(std::string_view line, const GedField& field) {
  return IsNumberText(Cut(line, field));
}

std::int16_t ShortIn(std::string_view line, const GedField& field) {
  return ToShort(NumberOf(Cut(line, field)));
}

bool HeaderIsNumeric(std::string_view line) {
  bool numeric = IsNumberIn(line, HeaderFields[Count]);
  for (int i = P1; i <= P4; ++i) numeric = numeric && IsNumberIn(line, HeaderFields[i]);
  return numeric;
}

bool SampleIsNumeric(std::string_view line) {
  for (int i = Azimuth; i < SampleEnd; ++i)
    if (i != Codes1 && i != Codes2 && !IsNumberIn(line, SampleFields[i])) return false;
  return true;
}

/// A record with the header's fields, which hold for every sample.
SpecimenRecord RecordOfHeader(std::string_view line) {
  SpecimenRecord r;
  r.Site = TextIn(line, HeaderFields[SiteName]);
  r.Rock = TextIn(line, HeaderFields[RockName]);
  r.Strat = TextIn(line, HeaderFields[StratName]);
  r.Litho = TextIn(line, HeaderFields[LithoName]);
  r.Regio = TextIn(line, HeaderFields[RegioName]);
  // Kept for agreement with published results: the writer puts them the other way round, so that
  // they come back exchanged.
  r.Lon = SingleOf(Cut(line, HeaderFields[First]));
  r.Lat = SingleOf(Cut(line, HeaderFields[Second]));
  for (int i = 1; i <= 4; ++i) r.OP[i] = ShortIn(line, HeaderFields[P1 + i - 1]);
  return r;
}

void LoadSample(std::string_view line, SpecimenRecord& r) {
  r.Name = TextIn(line, SampleFields[SampleName]);
  r.OrientAz = ShortIn(line, SampleFields[Azimuth]);
  r.OrientInc = ShortIn(line, SampleFields[Inclination]);
  for (int slot = 1; slot <= 2; ++slot) {
    const GedField* angle = &SampleFields[AnglesOfSlot[slot - 1]];
    r.FoliAz[slot] = ShortIn(line, angle[0]);
    r.FoliDip[slot] = ShortIn(line, angle[1]);
    r.LineTrend[slot] = ShortIn(line, angle[2]);
    r.LinePlunge[slot] = ShortIn(line, angle[3]);
    const std::string_view codes = Cut(line, SampleFields[CodesOfSlot[slot - 1]]);
    if (codes.empty()) continue;
    FromCodePage(codes.substr(0, 1), r.FoliName[slot]);
    FromCodePage(codes.substr(codes.size() - 1), r.LineName[slot]);
  }
}

Outcome RefuseLine(const std::string& path, int line) {
  return Outcome::Refused("Error in reading file!", "Error in file: " + UpperCase(path) +
                                                        "\n\nIn line: " + std::to_string(line));
}

std::string OpeningTitle(const std::string& path) {
  return "Error in opening file: <<" + LowerCase(FileNameOf(path)) + ">>";
}

/// A line of blanks that texts are put into, cut at the width of their field.
class GedLine {
 public:
  explicit GedLine(std::span<const GedField> fields) : fields_(fields) {}

  void Put(int field, std::string_view text) {
    const GedField& f = fields_[static_cast<std::size_t>(field)];
    const std::string bytes = ToCodePage(text).substr(0, static_cast<std::size_t>(f.Width));
    text_.replace(static_cast<std::size_t>(f.Offset), bytes.size(), bytes);
  }
  std::string Text() const { return text_ + "\r\n"; }

 private:
  std::span<const GedField> fields_;
  std::string text_ = std::string(GedLineLength, ' ');
};

std::string CodeOrZero(const std::string& code) { return code.empty() ? "0" : code; }

std::string HeaderText(const SpecimenRecord& r, int count) {
  GedLine line(HeaderFields);
  line.Put(Count, PlainText(count + 2));
  line.Put(SiteName, r.Site);
  line.Put(First, PlainText(r.Lat));
  line.Put(Second, PlainText(r.Lon));
  line.Put(RockName, r.Rock);
  line.Put(StratName, r.Strat);
  line.Put(LithoName, r.Litho);
  line.Put(RegioName, r.Regio);
  for (int i = 1; i <= 4; ++i) line.Put(P1 + i - 1, PlainText(static_cast<int>(r.OP[i])));
  return line.Text();
}

std::string SampleText(const SpecimenRecord& r) {
  GedLine line(SampleFields);
  line.Put(SampleName, r.Name);
  line.Put(Azimuth, PlainText(r.OrientAz));
  line.Put(Inclination, PlainText(r.OrientInc));
  for (int slot = 1; slot <= 2; ++slot) {
    const int angle = AnglesOfSlot[slot - 1];
    line.Put(CodesOfSlot[slot - 1], CodeOrZero(r.FoliName[slot]) + CodeOrZero(r.LineName[slot]));
    line.Put(angle, PlainText(r.FoliAz[slot]));
    line.Put(angle + 1, PlainText(r.FoliDip[slot]));
    line.Put(angle + 2, PlainText(r.LineTrend[slot]));
    line.Put(angle + 3, PlainText(r.LinePlunge[slot]));
  }
  return line.Text();
}

}  // namespace

std::span<const GedField> GedHeaderFields() { return HeaderFields; }
std::span<const GedField> GedSampleFields() { return SampleFields; }

Outcome CheckNotEmpty(const std::string& path, std::string_view text) {
  if (!text.empty()) return {};
  return Outcome::Warning(OpeningTitle(path), "File is empty!");
}

Outcome CheckGedLines(const std::string& path, std::string_view text, int length) {
  constexpr int MostListed = 100;  // a box with more helps nobody
  std::string list;
  int bad = 0;
  for (TextLines lines{text}; !lines.AtEnd();) {
    if (lines.Next().size() == static_cast<std::size_t>(length)) continue;
    if (++bad <= MostListed) list += "Error in line: " + std::to_string(lines.Line) + "\n";
  }
  if (bad == 0) return {};
  if (bad > MostListed) list += "and " + std::to_string(bad - MostListed) + " more lines\n";
  return Outcome::Warning(OpeningTitle(path), list);
}

Outcome ReadGedText(const std::string& path, std::string_view text, RecordArray& records) {
  if (Outcome check = CheckNotEmpty(path, text); !check) return check;
  if (Outcome check = CheckGedLines(path, text, GedLineLength); !check) return check;
  TextLines lines{text};
  const std::string_view header = lines.Next();
  if (lines.AtEnd()) return Outcome::Refused();
  if (!HeaderIsNumeric(header)) return RefuseLine(path, 1);
  const int before = records.Count();
  try {
    const SpecimenRecord site = RecordOfHeader(header);
    while (!lines.AtEnd()) {
      const std::string_view line = lines.Next();
      if (!SampleIsNumeric(line)) {
        records.Truncate(before);
        return RefuseLine(path, lines.Line);
      }
      SpecimenRecord& sample = records[records.GrowStale(1)];
      sample = site;
      LoadSample(line, sample);
    }
  } catch (const Fault& fault) {
    records.Truncate(before);
    throw FaultInLine(fault, path, lines.Line);
  }
  return {};
}

Outcome ReadGedFile(const std::string& path, RecordArray& records) {
  return ReadGedText(path, TextOfFile(path), records);
}

std::string GedText(const RecordArray& records) {
  std::string text;
  if (records.Count() == 0) return text;
  text.reserve(static_cast<std::size_t>(records.Count() + 1) * (GedLineLength + 2));
  text = HeaderText(records[1], records.Count());
  for (const SpecimenRecord& record : records) text += SampleText(record);
  return text;
}

Outcome WriteGedFile(const std::string& path, const RecordArray& records, FormerFile former) {
  if (records.Count() == 0) return Outcome::Refused();
  SafeWrite(
      path, [&](std::ostream& out) { out << GedText(records); }, former);
  return {};
}

}  // namespace velorix
