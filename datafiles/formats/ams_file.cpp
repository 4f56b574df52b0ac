#include "datafiles/formats/ams_file.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

#include "base/rounding.h"
#include "datafiles/bytes/file_faults.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/formats/ams_layout.h"
#include "text/numbers.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

/// Records in a piece of a file: whole pages, and few enough to stay in the processor's cache.
constexpr int PieceRecords = 128;
constexpr std::size_t PieceSize = std::size_t{PieceRecords} * AmsRecordSize;

/// Calls the lines of a record into the processor's cache, ahead of their use: going through a full
/// store is otherwise a wait for memory.
void Prefetch([[maybe_unused]] const SpecimenRecord& record) {
#ifdef __GNUC__
  constexpr std::size_t CacheLine = 64;
  const char* const first = reinterpret_cast<const char*>(&record);
  for (std::size_t at = 0; at < sizeof record; at += CacheLine) __builtin_prefetch(first + at, 1);
#endif
}

bool IsZero(const Array1<Number, 6>& tensor) {
  return std::all_of(tensor.begin(), tensor.end(), [](double k) { return k == 0; });
}

/// Fields that have no place on disk, so that nothing of an earlier use of the memory stays.
void ResetRest(SpecimenRecord& r) {
  r.RecordNo = 0;
  r.CoorLevel = CoordinateSystem::None;
  SetUpperSystems(r.HasCoor, false);
  r.Selected = false;
  r.FoliDec = r.FoliInc = r.LineDec = r.LineInc = {};
  r.TensorRot = r.TensorRotIm = {};
  r.Dec = r.Inc = r.DecIm = r.IncIm = {};
  r.Fac = {};
  for (int slot = 4; slot <= 6; ++slot)
    r.K[slot] = r.KSD[slot] = r.KIm[slot] = r.KSDIm[slot] = Number();
}

/// The out-of-phase block takes the in-phase one's place, or just goes.
void TakeOneBlock(SpecimenRecord& r, bool useIm) {
  if (useIm) {
    r.Km = r.KmIm;
    r.KmSD = r.KmSDIm;
    r.K = r.KIm;
    r.KSD = r.KSDIm;
    r.Tensor = r.TensorIm;
    r.Vec = r.VecIm;
    r.E = r.EIm;
    r.E2 = r.E2Im;
    r.E3 = r.E3Im;
    r.FTest = r.FTestIm;
  }
  r.KmIm = r.KmSDIm = 0;
  r.KIm = r.KSDIm = r.TensorIm = {};
  r.VecIm = Array1<Array1<Number, 3>, 3>();
  r.EIm = r.E2Im = r.E3Im = {};
  r.FTestIm = {};
  r.HasIm = false;
  r.Active = !IsZero(r.Tensor);
}

bool HasImIn(const SpecimenRecord& r) { return !IsZero(r.TensorIm); }

/// The fields of a written record that are compared one by one: those that may be cut, and P4, by
/// which azimuths are read.
constexpr bool IsCompared(const AmsRow& row) {
  constexpr std::string_view Names[] = {
      "Name",          "OP[1..4]",       "FoliName[1..4]",  "FoliAz[1..4]",
      "FoliDip[1..4]", "LineName[1..4]", "LineTrend[1..4]", "LinePlunge[1..4]",
      "Site",          "Rock",           "Strat",           "Litho",
      "Regio"};
  return std::find(std::begin(Names), std::end(Names), row.Name) != std::end(Names);
}

template <auto IsOne>
void DecodeRows(const std::byte* bytes, SpecimenRecord& record) {
  ForEachAmsRowOf<IsOne>([&](const auto& row) { row.Load(bytes + row.Offset, record); });
}

/// The number of records in a file of `size` bytes; a refusal when there is none.
Outcome CheckSize(std::uintmax_t size, const std::string& path, int& count) {
  if (size == 0)
    return Outcome::Refused("Input error!", "File <<" + UpperCase(path) + ">> is empty!");
  count = AmsRecordCount(size);
  return count == 0 ? Outcome::Refused() : Outcome();
}

/// Decodes `n` records. `fetch(to, asked)` gives the next bytes, as many as there are;
/// `take(bytes)` gets those of one record.
template <class Fetch, class Take>
void DecodePieces(int n, Fetch fetch, Take take) {
  std::vector<std::byte> piece(std::min(n, PieceRecords) * std::size_t{AmsRecordSize});
  for (int left = n; left > 0; left -= PieceRecords) {
    const int count = std::min(left, PieceRecords);
    const std::size_t asked = static_cast<std::size_t>(count) * AmsRecordSize;
    const std::size_t got = fetch(piece.data(), asked);
    std::memset(piece.data() + got, 0, asked - got);
    for (int i = 0; i < count; ++i) take(piece.data() + i * AmsRecordSize);
  }
}

/// Reads the records of `size` bytes behind those that `records` has and hands each to `finish`.
/// After a failure `records` is as it was.
template <class Fetch, class Finish>
Outcome ReadRecords(std::uintmax_t size, const std::string& path, RecordArray& records, Fetch fetch,
                    Finish finish) {
  int n = 0;
  if (Outcome check = CheckSize(size, path, n); !check) return check;
  const int before = records.Count();
  int next = records.GrowStale(n);
  try {
    DecodePieces(n, fetch, [&](const std::byte* bytes) {
      if (next < records.Count()) Prefetch(records[next + 1]);
      DecodeAmsRecord(bytes, records[next]);
      finish(records[next++]);
    });
  } catch (...) {
    records.Truncate(before);
    throw;
  }
  return {};
}

/// Opens the file and gives what `read(size, fetch)` makes of it.
template <class Read>
Outcome WithFile(const std::string& path, Read read) {
  return OnFile(path, [&] {
    const fs::path file = PathOf(path);
    const std::uintmax_t size = fs::file_size(file);
    errno = 0;
    std::ifstream in(file, std::ios::binary);
    if (!in) FailOnFile(path);
    return read(size, [&](std::byte* to, std::size_t most) {
      errno = 0;
      in.read(reinterpret_cast<char*>(to), static_cast<std::streamsize>(most));
      if (in.bad()) FailOnFile(path);
      return static_cast<std::size_t>(in.gcount());
    });
  });
}

template <class Finish>
Outcome ReadFile(const std::string& path, RecordArray& records, Finish finish) {
  return WithFile(path, [&](std::uintmax_t size, auto fetch) {
    return ReadRecords(size, path, records, fetch, finish);
  });
}

/// What an existing file keeps when `more` records go behind it: whole records, a broken one filled
/// up or left out as its length rounds. "Overflow" when there would be more than a file holds.
std::vector<char> BytesToKeep(const std::string& path, int more) {
  const fs::path file = PathOf(path);
  std::vector<char> kept;
  if (!fs::exists(file)) return kept;
  const std::uintmax_t size = fs::file_size(file);
  const int n = AmsRecordCount(size);
  if (n > RecordArray::Limit - more) FailOverflow();
  kept.resize(size);
  errno = 0;
  std::ifstream in(file, std::ios::binary);
  if (!in || !in.read(kept.data(), static_cast<std::streamsize>(kept.size()))) FailOnFile(path);
  kept.resize(static_cast<std::size_t>(n) * AmsRecordSize);
  return kept;
}

/// Collects encoded records and writes them piece by piece.
class PieceWriter {
 public:
  explicit PieceWriter(std::ostream& out) : out_(out) {}

  void Add(const SpecimenRecord& record) {
    if (used_ == piece_.size()) Flush();
    EncodeAmsRecord(record, piece_.data() + used_);
    used_ += AmsRecordSize;
  }
  void Flush() {
    out_.write(reinterpret_cast<const char*>(piece_.data()), static_cast<std::streamsize>(used_));
    used_ = 0;
  }

 private:
  std::ostream& out_;
  std::vector<std::byte> piece_ = std::vector<std::byte>(PieceSize);
  std::size_t used_ = 0;
};

}  // namespace

int AmsRecordCount(std::uintmax_t size) {
  return ToShort(static_cast<double>(size) / AmsRecordSize);
}

void DecodeAmsRecord(const std::byte* bytes, SpecimenRecord& record) {
  ResetRest(record);
  ForEachAmsRow([&](const auto& row) { row.Load(bytes + row.Offset, record); });
  record.Active = true;
  record.FreqIndex = DigitsOfText(record.FreqName);
  for (int slot = 1; slot <= 2; ++slot)
    if (!record.FoliName[slot].empty() || !record.LineName[slot].empty())
      SetUpperSystems(record.HasCoor, true);
  record.HasIm = HasImIn(record);
}

void EncodeAmsRecord(const SpecimenRecord& record, std::byte* bytes) {
  std::memset(bytes, 0, AmsRecordSize);
  ForEachAmsRow([&](const auto& row) { row.Store(bytes + row.Offset, record); });
}

Outcome ReadAmsFile(const std::string& path, RecordArray& records) {
  return ReadFile(path, records, [](SpecimenRecord&) {});
}

Outcome ReadAmsBytes(std::span<const std::byte> bytes, const std::string& path,
                     RecordArray& records) {
  const std::size_t size = bytes.size();
  const auto fetch = [&](std::byte* to, std::size_t asked) {
    const std::size_t got = std::min(asked, bytes.size());
    std::copy_n(bytes.data(), got, to);
    bytes = bytes.subspan(got);
    return got;
  };
  return ReadRecords(size, path, records, fetch, [](SpecimenRecord&) {});
}

Outcome VisitHeldAms(const std::string& path, const VisitHeld& visit, Unwritten& ofFile) {
  return WithFile(path, [&](std::uintmax_t size, auto fetch) {
    int n = 0;
    if (Outcome check = CheckSize(size, path, n); !check) return check;
    SpecimenRecord record;
    HeldRecord held;
    DecodePieces(n, fetch, [&](const std::byte* bytes) {
      if (visit.StandsAgain && visit.StandsAgain(AmsSum(bytes))) return;
      AmsHeld(bytes, record, held);
      visit.Visit(held);
    });
    const auto read = static_cast<std::uintmax_t>(n) * AmsRecordSize;
    if (size > read) ofFile.Rest += static_cast<int>(size - read);
    return Outcome();
  });
}

Outcome ReloadAmsFile(const std::string& path, RecordArray& records, bool useIm) {
  return ReadFile(path, records, [useIm](SpecimenRecord& r) { TakeOneBlock(r, useIm); });
}

namespace {

Outcome WriteAms(const std::string& path, const RecordArray& records, bool append, bool all,
                 FormerFile former) {
  const auto isWanted = [all](const SpecimenRecord& r) { return all || r.Selected; };
  const auto count = std::count_if(records.begin(), records.end(), isWanted);
  if (count == 0) {
    // Kept for agreement with published results: the old file is removed although there is nothing
    // to write.
    if (!append && fs::is_regular_file(PathOf(path))) fs::remove(PathOf(path));
    return records.Empty() ? Outcome::Refused() : Outcome();
  }
  const auto kept = append ? BytesToKeep(path, static_cast<int>(count)) : std::vector<char>();
  const auto write = [&](std::ostream& out) {
    out.write(kept.data(), static_cast<std::streamsize>(kept.size()));
    PieceWriter writer(out);
    for (int i = 1; i <= records.Count(); ++i) {
      if (i < records.Count()) Prefetch(records[i + 1]);
      if (isWanted(records[i])) writer.Add(records[i]);
    }
    writer.Flush();
  };
  SafeWrite(path, write, former);
  return {};
}

}  // namespace

Outcome WriteAmsFile(const std::string& path, const RecordArray& records, bool append, bool all,
                     FormerFile former) {
  return OnFile(path, [&] { return WriteAms(path, records, append, all, former); });
}

void VisitStoredAms(
    const RecordArray& records, bool all,
    const std::function<void(const SpecimenRecord& record, const SpecimenRecord& stored,
                             const StoredForm& form)>& visit) {
  std::byte bytes[AmsRecordSize];
  SpecimenRecord stored;
  for (int i = 1; i <= records.Count(); ++i) {
    if (i < records.Count()) Prefetch(records[i + 1]);
    if (!all && !records[i].Selected) continue;
    EncodeAmsRecord(records[i], bytes);
    DecodeRows<IsCompared>(bytes, stored);
    visit(records[i], stored, {AmsSum(bytes)});
  }
}

Outcome WriteAmsRecord(const std::string& path, const SpecimenRecord& record) {
  RecordArray one;
  one.Add(record);
  return WriteAmsFile(path, one, true, true);
}

}  // namespace velorix
