#include "app/edit/assign_ged.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "store/strike.h"
#include "text/numbers.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

constexpr std::size_t NamesInLine = 12;
constexpr int CellsOfSample = 2 + 2 * 6;  // at most: the orientation, and two slots of two pairs

bool HasCode(const EditRow& row, int slot) {
  return !row[FoliationColumn(slot)].empty() || !row[LineationColumn(slot)].empty();
}

/// Turns the strikes of a sample's foliations that have a code into dip directions; gives how many.
int TurnStrikes(SpecimenRecord& sample) {
  int turned = 0;
  for (int slot = 1; slot <= 2; ++slot) {
    if (sample.OP[4] != StrikeAndDip || SampleCode(sample.FoliName[slot]).empty()) continue;
    sample.FoliAz[slot] = DipDirectionOfStrike(sample.FoliAz[slot]);
    ++turned;
  }
  return turned;
}

/// What a sample puts into the row of a record.
void PutSample(const SpecimenRecord& sample, int row, std::vector<CellText>& texts) {
  EditRow cells = RowOfSample(sample, row);
  const auto put = [&](int first, int count) {
    for (int column = first; column < first + count; ++column)
      texts.push_back({row, column, std::move(cells[column])});
  };
  if (sample.OrientAz != 0 || sample.OrientInc != 0) put(OrientationColumn, 2);
  for (int slot = 1; slot <= 2; ++slot)
    if (HasCode(cells, slot)) put(FoliationColumn(slot), 6);
}

/// Those of the names that samples have in other cases of letters.
std::vector<std::string> InOtherCases(const std::vector<std::string>& names,
                                      const RecordArray& samples) {
  std::vector<std::string> found;
  if (names.empty()) return found;
  std::unordered_set<std::string> upperNames;
  for (const SpecimenRecord& sample : samples) upperNames.insert(UpperCase(sample.Name));
  for (const std::string& name : names)
    if (upperNames.contains(UpperCase(name))) found.push_back(name);
  return found;
}

}  // namespace

std::string ListedNames(const std::vector<std::string>& names, std::size_t limit,
                        const char* between) {
  std::string text;
  for (std::size_t i = 0; i < std::min(names.size(), limit); ++i)
    text += (i == 0 ? "" : between) + names[i];
  if (names.size() > limit)
    text += between + ("and " + std::to_string(names.size() - limit) + " more");
  return text;
}

GedMatches AssignGed(EditGrid& grid, const RecordArray& records, const RecordArray& samples) {
  GedMatches matches;
  std::unordered_map<std::string_view, int> firstOf;
  firstOf.reserve(static_cast<std::size_t>(samples.Count()));
  for (int i = 1; i <= samples.Count(); ++i) {
    const std::string& name = samples[i].Name;
    if (!firstOf.emplace(name, i).second) matches.Repeated.push_back(name);
  }
  const int rows = std::min(grid.RowCount(), records.Count());
  matches.Rows.resize(static_cast<std::size_t>(grid.RowCount()));
  std::vector<CellText> texts;
  texts.reserve(std::size_t{CellsOfSample} *
                static_cast<std::size_t>(std::min(rows, samples.Count())));
  for (int row = 1; row <= rows; ++row) {
    const std::string& name = records[row].Name;
    const auto found = firstOf.find(name);
    if (found == firstOf.end()) {
      matches.Without.push_back(name);
      continue;
    }
    matches.Rows[static_cast<std::size_t>(row - 1)] = 1;
    ++matches.Count;
    SpecimenRecord sample = samples[found->second];
    matches.Strikes += TurnStrikes(sample);
    PutSample(sample, row, texts);
  }
  matches.CaseDiffers = InOtherCases(matches.Without, samples);
  ChangeCells(grid, std::move(texts));
  return matches;
}

std::string MatchLine(const GedMatches& matches) {
  const std::size_t records = static_cast<std::size_t>(matches.Count) + matches.Without.size();
  std::string line =
      PlainText(matches.Count) + " of " + std::to_string(records) + " record(s) matched.";
  if (matches.Strikes > 0)
    line += " " + PlainText(matches.Strikes) + " strike(s) entered as dip directions.";
  const auto add = [&line](const char* what, const std::vector<std::string>& names) {
    if (!names.empty()) line += what + ListedNames(names, NamesInLine, ", ") + ".";
  };
  add(" Without a sample: ", matches.Without);
  add(" Only the case of letters differs: ", matches.CaseDiffers);
  add(" Repeated samples, of which the first counts: ", matches.Repeated);
  return line;
}

GedMatches AssignGedToStore(RecordArray& records, const RecordArray& samples) {
  EditGrid grid;
  FillGrid(grid, RowsOf(records));
  GedMatches matches = AssignGed(grid, records, samples);
  CommitGrid(grid, records);
  return matches;
}

}  // namespace velorix
