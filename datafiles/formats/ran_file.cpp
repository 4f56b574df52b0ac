#include "datafiles/formats/ran_file.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <utility>
#include <vector>

#include "base/narrowing.h"
#include "base/rounding.h"
#include "datafiles/bytes/file_faults.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/formats/ran_layout.h"
#include "tensor/derivation.h"
#include "text/float_chars.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

/// The first `size` bytes of a file, as many as there are.
std::vector<std::byte> BytesOfFile(const std::string& path, std::uintmax_t size) {
  std::vector<std::byte> bytes(static_cast<std::size_t>(size));
  errno = 0;
  std::ifstream in(PathOf(path), std::ios::binary);
  if (!in) FailOnFile(path);
  in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (in.bad()) FailOnFile(path);
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  return bytes;
}

// ---- Reading

/// The value of a text that must be a number as a whole; a blank one is 0.
float CoordinateOf(std::string_view text) {
  text = StripBlanks(text);
  if (text.empty()) return 0;
  std::string_view digits = text;
  if (digits.front() == '+' || digits.front() == '-') digits.remove_prefix(1);
  if (digits.empty() ||
      !(digits.front() == '.' || (digits.front() >= '0' && digits.front() <= '9')))
    FailType();
  double ignored;
  const char* const end = digits.data() + digits.size();
  if (FromChars(digits.data(), end, ignored).ptr != end) FailType();
  return ToSingle(NumberOf(text));
}

/// A record with the header's fields, which hold for each specimen.
SpecimenRecord RecordOfHeader(const RanHeader& header, const Settings& settings) {
  SpecimenRecord r;
  const std::string_view site = header.Site;
  r.Site = StripBlanks(site.substr(0, site.find('\0')));
  r.Rock = StripBlanks(header.Rock);
  r.Strat = StripBlanks(header.Strat);
  r.Litho = StripBlanks(header.Litho);
  r.Regio = StripBlanks(header.Regio);
  // Kept for agreement with published results: longitude from the second place, though the
  // writer puts it into the first. A file of our own comes back with the two exchanged.
  if (!header.Coordinate2.empty() && static_cast<unsigned char>(header.Coordinate2.front()) >= 34) {
    r.Lon = CoordinateOf(header.Coordinate2);
    r.Lat = CoordinateOf(header.Coordinate1);
  }
  int j = 0;
  for (const std::string* text : {&header.P1, &header.P2, &header.P3, &header.P4}) {
    const double value = NumberOf(*text);
    ++j;
    r.OP[j] = value != 0 ? ToShort(value) : settings.P[j];
  }
  r.OP[4] = 0;  // Kept for agreement with published results: whatever the header says
  r.SourceProgram = "Marlo";
  r.Active = true;
  return r;
}

/// The instrument, from the file's extension and the two numbers of a specimen.
const char* InstrumentOf(bool isAre, double A, double B) {
  if (isAre) return "PW-6";
  if (std::fabs(std::fabs(A) - std::fabs(B)) <= 0.5) return "TQB-3";
  return A >= 1000 ? "NVR1" : "TQB-4";
}

/// Field and frequency of the multi-frequency instrument: the first character of A's text is the
/// index of the frequency, the last three are the field.
void UnpackFrequency(float A, SpecimenRecord& r) {
  const std::string text = PlainText(A);
  r.FreqIndex = ToShort(NumberOf(std::string_view(text).substr(0, 1)));
  r.FreqName = PlainText(r.FreqIndex) + "F";
  r.Field = static_cast<float>(NumberOf(text.size() < 3 ? "" : text.substr(text.size() - 3)));
  constexpr float Frequencies[] = {0, 976, 3904, 15616};
  r.Frequency = r.FreqIndex <= 3 ? Frequencies[r.FreqIndex] : 0;
}

void UnpackField(float A, SpecimenRecord& r) {
  const auto fixed = [&r](double field, const char* freqName, float frequency) {
    r.Field = ToSingle(field);
    r.FreqName = freqName;
    r.Frequency = frequency;
  };
  if (r.Instrument == "TQB-2") fixed(423, "F0", 920);  // no numbers lead to it
  if (r.Instrument == "TQB-3") fixed(423, "F0", 875);
  if (r.Instrument == "TQB-4") fixed(RoundHalfEven(double{A} * 1.41), "F0", 875);
  if (r.Instrument == "PW-6") fixed(RoundHalfEven(A), "N/A", 0);
  if (r.Instrument == "NVR1") UnpackFrequency(A, r);
}

/// A character of a code pair; there is none below "1" in the character table.
std::string CodeOf(char character) {
  if (static_cast<unsigned char>(character) < '1') return {};
  return UpperCase(FromCodePage({&character, 1}));
}

void UnpackSlot(const CodePair& codes, const RanAngles& angles, int slot, SpecimenRecord& r) {
  r.FoliName[slot] = CodeOf(codes[0]);
  r.LineName[slot] = CodeOf(codes[1]);
  // Kept for agreement with published results: a lineation alone does not give the two upper
  // systems.
  if (!r.FoliName[slot].empty()) SetUpperSystems(r.HasCoor, true);
  r.FoliAz[slot] = angles[1];
  r.FoliDip[slot] = angles[2];
  r.LineTrend[slot] = angles[3];
  r.LinePlunge[slot] = angles[4];
}

void UnpackSpecimen(const RanSpecimen& s, bool isAre, SpecimenRecord& r) {
  r.Name = StripBlanks(StripControls(s.Name));
  r.Instrument = InstrumentOf(isAre, s.A, s.B);
  UnpackField(s.A, r);
  for (int i = 1; i <= 6; ++i) r.Tensor[i] = s.Tensor[i];
  const double sum = double{s.Tensor[1]} + s.Tensor[2] + s.Tensor[3];
  r.Km = sum * s.B / 3 / 1000000;
  if (s.Codes1 == CodePair{'S', 'S'}) {
    r.HasCoor[1] = true;
    return;
  }
  r.HasCoor[2] = true;
  UnpackSlot(s.Codes1, s.Angles1, 1, r);
  UnpackSlot(s.Codes2, s.Angles2, 2, r);
  for (int i = 1; i <= 3; ++i) r.E[i] = r.E2[i] = r.E3[i] = 0.0f;
  for (int i = 0; i <= 3; ++i) r.FTest[i] = 0.0f;
}

// ---- Writing

RanHeader HeaderOf(const SpecimenRecord& r) {
  return {0,
          r.Site,
          PlainText(r.Lon),
          PlainText(r.Lat),
          r.Rock,
          r.Strat,
          r.Litho,
          r.Regio,
          PlainText(r.OP[1]),
          PlainText(r.OP[2]),
          PlainText(r.OP[3]),
          PlainText(r.OP[4])};
}

/// Two characters of both codes one behind the other. Kept for agreement with published results: a
/// foliation code of two characters leaves no place for the lineation's.
CodePair PairOf(const std::string& foliation, const std::string& lineation) {
  const std::string codes =
      ToCodePage((foliation.empty() ? "0" : foliation) + (lineation.empty() ? "0" : lineation));
  return {codes[0], codes[1]};
}

RanAngles AnglesOf(const SpecimenRecord& r, int slot) {
  return {ToShort(r.FoliAz[slot]), ToShort(r.FoliDip[slot]), ToShort(r.LineTrend[slot]),
          ToShort(r.LinePlunge[slot])};
}

RanSpecimen SpecimenOf(const SpecimenRecord& r, const std::string& suffix) {
  RanSpecimen s;
  s.Name = r.Name + suffix;
  s.A = ToSingle(r.FreqIndex * 1000.0 + r.Field);
  s.B = ToSingle(std::fabs(r.Km * 1000000));
  View view;
  view.CoorSys = r.HasCoor[2] ? Geographic : Specimen;
  const Vector<6> tensor = RotatedTensor(r, view);
  for (int i = 1; i <= 6; ++i) s.Tensor[i] = ToSingle(tensor[i]);
  if (!r.HasCoor[2]) {
    s.Codes1 = {'S', 'S'};
    return s;
  }
  // Kept for agreement with published results: a foliation "S" with a lineation "S" is read as
  // the specimen system.
  s.Codes1 = PairOf(r.FoliName[1], r.LineName[1]);
  s.Codes2 = PairOf(r.FoliName[2], r.LineName[2]);
  s.Angles1 = AnglesOf(r, 1);
  s.Angles2 = AnglesOf(r, 2);
  return s;
}

/// What an existing file keeps when records go behind it: whole records of 64 bytes, a broken one
/// filled up or left out as its length rounds.
std::vector<std::byte> BytesToKeep(const std::string& path) {
  const fs::path file = PathOf(path);
  if (!fs::exists(file)) return {};
  const std::uintmax_t size = fs::file_size(file);
  const int n = ToShort(static_cast<double>(size) / RanRecordSize);
  std::vector<std::byte> kept = BytesOfFile(path, size);
  kept.resize(static_cast<std::size_t>(n) * RanRecordSize);
  return kept;
}

}  // namespace

int RanSpecimenCount(std::uintmax_t size) {
  return std::max<int>(ToShort(static_cast<double>(size) / RanRecordSize - 1), 0);
}

Outcome ReadRanBytes(std::span<const std::byte> bytes, const std::string& path,
                     RecordArray& records, const Settings& settings) {
  if (bytes.empty())
    return Outcome::Refused("Input error!", "File <<" + UpperCase(path) + ">> is empty!");
  const int n = RanSpecimenCount(bytes.size());
  if (n == 0) return Outcome::Refused();
  RanHeader header;
  LoadRanRecord(RanHeaderLayout, bytes.data(), header);
  const SpecimenRecord common = RecordOfHeader(header, settings);
  const bool isAre = ExtensionOf(path) == "are";  // "ARE" is read as a RAN file
  const int before = records.Count();
  int next = records.GrowStale(n);
  try {
    RanSpecimen specimen;
    for (int i = 1; i <= n; ++i, ++next) {
      const auto rest = bytes.subspan(static_cast<std::size_t>(i) * RanRecordSize);
      std::byte filled[RanRecordSize] = {};
      if (rest.size() < RanRecordSize) std::copy(rest.begin(), rest.end(), filled);
      LoadRanRecord(RanSpecimenLayout, rest.size() < RanRecordSize ? filled : rest.data(),
                    specimen);
      records[next] = common;
      UnpackSpecimen(specimen, isAre, records[next]);
    }
  } catch (...) {
    records.Truncate(before);
    throw;
  }
  return {};
}

Outcome ReadRanFile(const std::string& path, RecordArray& records, const Settings& settings) {
  return OnFile(path, [&] {
    const std::uintmax_t size = fs::file_size(PathOf(path));
    (void)RanSpecimenCount(size);  // before the memory is asked for
    return ReadRanBytes(BytesOfFile(path, size), path, records, settings);
  });
}

std::vector<std::byte> RanBytes(std::vector<std::byte> kept, const RecordArray& records, bool all,
                                const std::string& suffix) {
  const auto isWanted = [all](const SpecimenRecord& r) { return all || r.Selected; };
  const auto count = std::count_if(records.begin(), records.end(), isWanted);
  const bool keepsHeader = kept.size() > RanRecordSize;  // a header alone gives way
  std::size_t end = std::max<std::size_t>(kept.size(), RanRecordSize);
  const std::size_t size = end + static_cast<std::size_t>(count) * RanRecordSize;
  const std::size_t blocks = size / RanRecordSize;
  const std::int16_t headerCount = ToShort(static_cast<double>(blocks + 1));
  std::vector<std::byte> bytes = std::move(kept);
  bytes.resize(size);
  for (const SpecimenRecord& r : records) {
    if (!isWanted(r)) continue;
    if (end == RanRecordSize && !keepsHeader)
      StoreRanRecord(RanHeaderLayout, HeaderOf(r), bytes.data());
    StoreRanRecord(RanSpecimenLayout, SpecimenOf(r, suffix), bytes.data() + end);
    end += RanRecordSize;
  }
  StoreLittle(bytes.data(), headerCount);
  return bytes;
}

namespace {

Outcome WriteRan(const std::string& path, const RecordArray& records, bool append, bool all,
                 const std::string& suffix, FormerFile former) {
  const bool isSome = std::any_of(records.begin(), records.end(),
                                  [all](const SpecimenRecord& r) { return all || r.Selected; });
  if (!isSome) {
    // Kept for agreement with published results: the old file is removed although there is nothing
    // to write.
    if (!append && fs::is_regular_file(PathOf(path))) fs::remove(PathOf(path));
    return records.Empty() ? Outcome::Refused() : Outcome();
  }
  const std::vector<std::byte> bytes =
      RanBytes(append ? BytesToKeep(path) : std::vector<std::byte>(), records, all, suffix);
  const auto write = [&](std::ostream& out) {
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
  };
  SafeWrite(path, write, former);
  return {};
}

}  // namespace

Outcome WriteRanFile(const std::string& path, const RecordArray& records, bool append, bool all,
                     const std::string& suffix, FormerFile former) {
  return OnFile(path, [&] { return WriteRan(path, records, append, all, suffix, former); });
}

Outcome WriteRanRecord(const std::string& path, const SpecimenRecord& record,
                       const std::string& suffix) {
  RecordArray one;
  one.Add(record);
  return WriteRanFile(path, one, true, true, suffix);
}

}  // namespace velorix
