#include <algorithm>
#include <cmath>

#include "datafiles/bytes/text_file.h"
#include "datafiles/formats/ged_file.h"
#include "datafiles/formats/holdings.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace velorix {
namespace {

/// Adds what is lost of a field with `text` when `again` is what the program writes for it.
void CompareField(std::string_view name, std::string_view text, std::string_view again,
                  Unwritten& lost) {
  const auto letters = [](std::string_view codes) {
    return std::count_if(codes.begin(), codes.end(), [](char c) { return c != '0' && c != ' '; });
  };
  int count = 0;
  if (name == "count") return;  // made from the number of samples
  if (name == "two blanks") {
    lost.UnknownBytes += static_cast<int>(letters(text));
    return;
  }
  if (name.starts_with("codes"))
    count = static_cast<int>(std::max<std::ptrdiff_t>(0, letters(text) - letters(again)));
  else if (!IsNumberText(text) || !IsNumberText(again))
    count = text != again;
  else if (text != again && std::fabs(NumberOf(text) - NumberOf(again)) > 1e-3)
    ++lost.Rounded;
  if (count == 0) return;
  lost.Values += count;
  lost.Names.insert(std::string(name.substr(0, name.find('['))));
}

Unwritten LineUnwritten(std::span<const GedField> fields, std::string_view line,
                        std::string_view again) {
  Unwritten lost;
  const auto part = [](std::string_view from, const GedField& field) {
    return StripBlanks(
        from.substr(static_cast<std::size_t>(field.Offset), static_cast<std::size_t>(field.Width)));
  };
  if (line == again) return lost;
  for (const GedField& field : fields) {
    const std::string_view name = field.Name;
    if (name.ends_with("coordinate")) continue;
    CompareField(name, part(line, field), part(again, field), lost);
  }
  return lost;
}

/// Coordinates change places; one that is no number is lost.
void CompareCoordinates(std::string_view header, Unwritten& lost) {
  for (const GedField& field : GedHeaderFields()) {
    if (!std::string_view(field.Name).ends_with("coordinate")) continue;
    const std::string_view text = StripBlanks(header.substr(static_cast<std::size_t>(field.Offset),
                                                            static_cast<std::size_t>(field.Width)));
    if (IsNumberText(text)) continue;
    ++lost.Values;
    lost.Names.insert("coordinates");
  }
}

}  // namespace

Outcome VisitHeldGed(const std::string& path, const VisitHeld& visit, Unwritten& ofFile) {
  const std::string text = TextOfFile(path);
  RecordArray samples;
  Outcome outcome = ReadGedText(path, text, samples);
  if (!outcome) return outcome;
  const std::string written = GedText(samples);
  TextLines lines{text}, again{written};
  const std::string_view header = lines.Next();
  ofFile.Add(LineUnwritten(GedHeaderFields(), header, again.Next()));
  CompareCoordinates(header, ofFile);
  for (const SpecimenRecord& sample : samples)
    visit.Visit({sample.Name, 0, LineUnwritten(GedSampleFields(), lines.Next(), again.Next())});
  return outcome;
}

}  // namespace velorix
