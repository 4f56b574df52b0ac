#include "datafiles/bytes/text_file.h"
#include "datafiles/formats/holdings.h"
#include "datafiles/formats/ran_file.h"
#include "datafiles/formats/ran_layout.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace velorix {
namespace {

/// How many elements of a field have something in them, by the kind of its row.
template <class Row>
int ElementsSet(const Row& row, const std::byte* record) {
  const std::byte* const at = record + row.Offset;
  const auto nonZero = [at](int width, int step) {
    int count = 0;
    for (int i = 0; i < width; i += step) {
      bool set = false;
      for (int j = 0; j < step; ++j) set = set || at[i + j] != std::byte{0};
      count += set;
    }
    return count;
  };
  const std::string_view kind = Row::Kind;
  const std::string_view text(reinterpret_cast<const char*>(at),
                              static_cast<std::size_t>(row.Width));
  if (kind == "decimal text") return NumberOf(StripBlanks(text)) != 0;
  if (kind == "text") return fixed_text::TrimmedLength(at, row.Width) > 0;
  if (kind == "2 characters") {  // "0", a blank and a zero byte are no codes
    int codes = 0;
    for (const char c : text) codes += c != '0' && c != ' ' && c != '\0';
    return codes;
  }
  if (kind.starts_with("16-bit")) return nonZero(row.Width, 2);
  return nonZero(row.Width, kind.starts_with("zero") ? 1 : 4);
}

/// What is lost of a record of 64 bytes when `again` is what the program writes for it.
template <class Layout>
Unwritten RanUnwritten(const Layout& layout, const std::byte* bytes, const std::byte* again) {
  Unwritten lost;
  int coordinates = 0;
  ForEachRanRow(layout, [&](const auto& row) {
    const std::string_view name = row.Name;
    const int count = ElementsSet(row, bytes) - ElementsSet(row, again);
    if (name.ends_with("coordinate"))  // the two change places
      coordinates += count;
    else if (name.empty())
      lost.UnknownBytes += std::max(0, count);
    else if (name != "HeaderCount" && count > 0) {
      lost.Values += count;
      lost.Names.insert(std::string(name.substr(0, name.find('['))));
    }
  });
  if (coordinates > 0) {
    lost.Values += coordinates;
    lost.Names.insert("coordinates");
  }
  return lost;
}

}  // namespace

Outcome VisitHeldRan(const std::string& path, const Settings& settings, const VisitHeld& visit,
                     Unwritten& ofFile) {
  const std::string text = TextOfFile(path);
  const auto bytes = std::as_bytes(std::span(text));
  RecordArray records;
  Outcome outcome = ReadRanBytes(bytes, path, records, settings);
  if (!outcome) return outcome;
  std::vector<std::byte> again;
  try {
    again = RanBytes({}, records, true);
  } catch (const Fault&) {  // a number that grows by being read does not fit any more
  }
  std::size_t end = RanRecordSize;
  if (!again.empty()) ofFile.Add(RanUnwritten(RanHeaderLayout, bytes.data(), again.data()));
  for (const SpecimenRecord& record : records) {
    HeldRecord held{record.Name, AmsRowsOf(record), {}};
    if (!again.empty() && end + RanRecordSize <= bytes.size())
      held.Lost = RanUnwritten(RanSpecimenLayout, bytes.data() + end, again.data() + end);
    end += RanRecordSize;
    visit.Visit(held);
  }
  if (bytes.size() > end) ofFile.Rest += static_cast<int>(bytes.size() - end);
  return outcome;
}

}  // namespace velorix
