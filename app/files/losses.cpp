#include "app/files/losses.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <unordered_set>

#include "app/files/ask_file.h"
#include "app/files/content_check.h"
#include "app/files/file_stamp.h"
#include "base/fault.h"
#include "datafiles/bytes/file_faults.h"
#include "datafiles/formats/ams_layout.h"
#include "datafiles/formats/ged_file.h"
#include "text/code_page.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

/// What of a record that will stand in the file is compared with what stands there.
struct Holdings {
  std::string Name;
  StoredForm Form;
  const SpecimenRecord* Given = nullptr;

  AmsRows Rows() const { return Form.Sum ? AmsRowsOf(*Given) : Form.Rows; }
};

constexpr AmsRows RowsNamed(std::initializer_list<std::string_view> starts) {
  return AmsRowBits([&](const AmsRow& row) {
    return std::any_of(starts.begin(), starts.end(), [&row](std::string_view start) {
      return std::string_view(row.Name).starts_with(start);
    });
  });
}
constexpr AmsRows TensorIm = RowsNamed({"TensorIm"}), Coordinates = RowsNamed({"Lon", "Lat"});
constexpr AmsRows OutOfPhaseBlock = RowsNamed(
    {"KmIm", "KmSDIm", "KIm", "KSDIm", "TensorIm", "VecIm", "EIm", "E2Im", "E3Im", "FTestIm"});
// Of the block in view, and made again from the tensor.
constexpr AmsRows Derived = RowsNamed({"K[", "Vec["});
// What the editors change, so that the open file is given it knowingly.
constexpr AmsRows Editable =
    RowsNamed({"OP", "HasCoor", "OrientAz", "OrientInc", "FoliName", "FoliAz", "FoliDip",
               "LineName", "LineTrend", "LinePlunge"});
// Neither a value nor ever written.
constexpr AmsRows NotCounted = Derived | RowsNamed({"KSD[", "KSDIm[", "not HasCoor"});

/// Goes through the records of a file and finds for each its like among those that will stand
/// there: the record at the same place when it has the same name, else the next one of this name.
class Counterparts {
 public:
  explicit Counterparts(const std::vector<Holdings>& stored)
      : stored_(stored), taken_(stored.size()) {}

  /// The record at the same place, when it has this sum.
  bool TakeSame(std::uint64_t sum) {
    if (place_ >= stored_.size() || taken_[place_] || stored_[place_].Form.Sum != sum) return false;
    Take(place_++);
    return true;
  }
  const Holdings* Of(const std::string& name) {
    const std::size_t place = place_++;
    if (place < stored_.size() && !taken_[place] && stored_[place].Name == name) return Take(place);
    if (places_.empty())
      for (std::size_t i = stored_.size(); i-- > 0;) places_[stored_[i].Name].push_back(i);
    const auto found = places_.find(name);
    if (found == places_.end()) return nullptr;
    auto& places = found->second;  // the first one at the end
    while (!places.empty() && taken_[places.back()]) places.pop_back();
    return places.empty() ? nullptr : Take(places.back());
  }

 private:
  const Holdings* Take(std::size_t place) {
    taken_[place] = 1;
    return &stored_[place];
  }

  const std::vector<Holdings>& stored_;
  std::vector<char> taken_;
  std::unordered_map<std::string_view, std::vector<std::size_t>> places_;
  std::size_t place_ = 0;
};

/// What a record of the file has and its like among the new ones, which may be missing, lacks, but
/// for the rows in `passed`.
void CompareHoldings(const HeldRecord& record, const Holdings* has, AmsRows passed,
                     Losses& losses) {
  if (!has) {
    ++losses.Vanishing;
    return;
  }
  losses.Never.Add(record.Lost);
  const AmsRows rows = has->Rows();
  AmsRows missing = record.Rows & ~rows & ~passed & ~NotCounted;
  if (missing & TensorIm) {
    ++losses.Tensors;
    losses.Never.DeviationsIm -= record.Lost.DeviationsIm;
    missing &= ~OutOfPhaseBlock;
  }
  if (rows & Coordinates) missing &= ~Coordinates;  // RAN files exchange them
  losses.Values += std::popcount(missing);
  for (; missing != 0; missing &= missing - 1)
    losses.Missing.insert(AmsRowName(std::countr_zero(missing)));
}

/// Counts a text that does not come back from the file.
void CompareText(const std::string& given, const std::string& stored, Losses& losses) {
  if (given == stored) return;
  const std::string text(StripBlanks(given)), back(StripBlanks(stored));
  if (text == back) return;
  if (FromCodePage(ToCodePage(text)) != text)
    ++losses.Letters;
  else if (text.size() > back.size())
    ++losses.Cut;
}

/// Counts angles that do not come back; `coded`: an angle without a code is none.
void CompareAngle(float given, float stored, bool coded, Losses& losses) {
  constexpr float Turned = 1e-3f;  // strikes are turned to and fro in 32 bits
  if (coded && std::fabs(given - stored) > Turned) ++losses.Cut;
}

void CompareSlots(const SpecimenRecord& given, const SpecimenRecord& stored, Losses& losses) {
  for (int slot = 1; slot <= 2; ++slot) {
    CompareText(given.FoliName[slot], stored.FoliName[slot], losses);
    CompareText(given.LineName[slot], stored.LineName[slot], losses);
    const bool foliation = !given.FoliName[slot].empty(), lineation = !given.LineName[slot].empty();
    CompareAngle(given.FoliAz[slot], stored.FoliAz[slot], foliation, losses);
    CompareAngle(given.FoliDip[slot], stored.FoliDip[slot], foliation, losses);
    CompareAngle(given.LineTrend[slot], stored.LineTrend[slot], lineation, losses);
    CompareAngle(given.LinePlunge[slot], stored.LinePlunge[slot], lineation, losses);
  }
}

/// Counts what of the record's own does not come back from the file; `first` is the first record of
/// the file, which lends its site data where the format has them once.
void CompareRecord(const SpecimenRecord& given, const SpecimenRecord& stored,
                   const SpecimenRecord& first, Losses& losses) {
  CompareText(given.Name, stored.Name, losses);
  CompareSlots(given, stored, losses);
  constexpr std::string SpecimenRecord::*SiteTexts[] = {
      &SpecimenRecord::Site, &SpecimenRecord::Rock, &SpecimenRecord::Strat, &SpecimenRecord::Litho,
      &SpecimenRecord::Regio};
  bool common = false;
  for (const auto text : SiteTexts)
    if (given.*text != first.*text && stored.*text != given.*text)
      common = true;
    else
      CompareText(given.*text, stored.*text, losses);
  losses.Common += common;
}

/// Compares what would be written, one record after the other.
class WrittenRecords {
 public:
  WrittenRecords(Losses& losses, int atMost) : losses_(losses) {
    Stored.reserve(static_cast<std::size_t>(atMost));
  }

  void Add(const SpecimenRecord& given, const SpecimenRecord& stored, const StoredForm& form) {
    if (!first_) first_ = &given;
    CompareRecord(given, stored, *first_, losses_);
    Stored.push_back({stored.Name, form, &given});
  }

  std::vector<Holdings> Stored;  // in the order of the records

 private:
  Losses& losses_;
  const SpecimenRecord* first_ = nullptr;
};

/// Compares the records of the file, which `visit` goes through, with those that will stand there,
/// but for the rows in `passed`.
template <class Visit>
void CompareWithOld(Visit visit, const WrittenRecords& written, AmsRows passed, Losses& losses) {
  Losses found = losses;
  Counterparts counterparts(written.Stored);
  try {
    const VisitHeld compare = {[&](const HeldRecord& record) {
                                 CompareHoldings(record, counterparts.Of(record.Name), passed,
                                                 found);
                               },
                               [&](std::uint64_t sum) { return counterparts.TakeSame(sum); }};
    found.Unreadable = !visit(compare, found.Never);
  } catch (const Fault&) {  // nor can it be read
    found.Unreadable = true;
  }
  if (found.Unreadable)
    losses.Unreadable = true;
  else
    losses = found;
}

/// An empty file has nothing to lose.
bool IsEmptyFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::file_size(PathOf(path), error) == 0 && !error;
}

/// What the session knows of the file when it is one of those that are open.
void CompareWithOpen(const Session& session, const std::string& path, const RecordArray& records,
                     bool all, Losses& losses) {
  const std::size_t file = PositionOfOpen(session, path);
  if (file >= session.Opened.size()) return;
  losses.Changed = !IsUnchanged(path, session.Opened[file].Stamp);
  if (session.Opened.size() < 2) return;
  for (const SpecimenRecord& record : records)
    losses.Foreign += (all || record.Selected) && FileOfRecord(session, record.RecordNo) != file;
}

/// Names with commas; of many the first ones.
std::string Listed(const std::set<std::string>& names) {
  constexpr int Most = 6;
  std::string list;
  int count = 0;
  for (const std::string& name : names) {
    if (++count > Most) return list + " and others";
    list += (list.empty() ? "" : ", ") + name;
  }
  return list;
}

}  // namespace

Losses FindLosses(const Session& session, const std::string& path, const FileKind& kind,
                  const RecordArray& records, bool all) {
  Losses losses;
  if (!FileExists(path)) return losses;
  const int filter = FilterOfExtension(ExtensionOf(path));
  // A file of this kind under another one's extension: SI2B files are "AMS" in capitals.
  const bool isOfKind =
      filter == 0 || (IsPlainlyOther(path, KindOfFilter(filter)) && !IsPlainlyOther(path, kind));
  const FileKind& present = isOfKind ? kind : KindOfFilter(filter);
  WrittenRecords written(losses, records.Count());
  const auto add = [&](const SpecimenRecord& given, const SpecimenRecord& stored,
                       const StoredForm& form) { written.Add(given, stored, form); };
  OnFile(path, [&] { kind.ForEachStored(records, all, session.Settings, add); });
  const auto visit = [&](const VisitHeld& compare, Unwritten& ofFile) {
    return !IsPlainlyOther(path, present) &&
           present.Visit(path, session.Settings, compare, ofFile).Done;
  };
  const bool isOpen = PositionOfOpen(session, path) < session.Opened.size();
  CompareWithOld(visit, written, isOpen ? Editable : 0, losses);
  if (IsEmptyFile(path)) losses.Unreadable = false;
  CompareWithOpen(session, path, records, all, losses);
  return losses;
}

Losses FindGedLosses(const Session& session, const std::string& path, const RecordArray& samples,
                     bool ofSeveral) {
  Losses losses;
  if (!FileExists(path)) return losses;
  WrittenRecords written(losses, samples.Count());
  RecordArray stored;
  if (ReadGedText(path, GedText(samples), stored))
    for (int i = 1; i <= samples.Count(); ++i) {
      written.Add(samples[i], stored[i], {});
      CompareAngle(samples[i].OrientAz, stored[i].OrientAz, true, losses);
      CompareAngle(samples[i].OrientInc, stored[i].OrientInc, true, losses);
    }
  std::unordered_set<std::string> present;
  const auto visit = [&](const VisitHeld& compare, Unwritten& ofFile) {
    const auto both = [&](const HeldRecord& sample) {
      present.insert(sample.Name);
      compare.Visit(sample);
    };
    return VisitHeldGed(path, {both}, ofFile).Done;
  };
  CompareWithOld(visit, written, 0, losses);
  if (IsEmptyFile(path)) losses.Unreadable = false;
  if (ofSeveral && !losses.Unreadable)
    for (const Holdings& sample : written.Stored)
      losses.Foreign += !present.contains(std::string(sample.Name));
  if (path == session.GeoFile) losses.Changed = !IsUnchanged(path, session.GeoStamp);
  return losses;
}

std::vector<std::string> LossLines(const Losses& losses) {
  std::vector<std::string> lines;
  const auto add = [&lines](int count, const char* one, const char* many, const char* end) {
    if (count > 0) lines.push_back(PlainText(count) + " " + (count == 1 ? one : many) + end);
  };
  const Unwritten& never = losses.Never;
  const std::string missing = " lost (not in memory: " + Listed(losses.Missing) + ")",
                    unwritten = " lost (never written: " + Listed(never.Names) + ")";
  // clang-format off
  add(losses.Tensors, "out-of-phase tensor", "out-of-phase tensors", " lost (not in memory)");
  add(losses.Values, "value", "values", missing.c_str());
  add(never.Deviations + never.DeviationsIm, "standard deviation", "standard deviations", " lost (never written)");
  add(never.FurtherSlots, "code or angle", "codes and angles", " of third and fourth planes and lineations lost (never written)");
  add(never.Values, "value", "values", unwritten.c_str());
  add(never.UnknownBytes, "byte", "bytes", " lost that no field of the format has");
  add(never.Rest, "byte", "bytes", " lost behind the last record");
  add(never.Rounded, "number", "numbers", " rounded to whole ones");
  add(losses.Vanishing, "record", "records", " lost (not among those to be saved)");
  add(losses.Foreign, "record of another open file", "records of other open files", " put in");
  add(losses.Letters, "text", "texts", " with letters that the file cannot hold");
  add(losses.Cut, "value cut to the width of its field", "values cut to the width of their fields", "");
  add(losses.Common, "record", "records", " given the site data of the first");
  // clang-format on
  if (losses.Unreadable) lines.emplace_back("Content lost that is no data file of this kind");
  if (losses.Changed) lines.emplace_back("Changes lost that were made since the file was read");
  return lines;
}

LossAnswer AskAboutLosses(Dialogs& dialogs, const std::string& title, const std::string& path,
                          const Losses& losses) {
  if (!losses.Any()) return LossAnswer::Save;
  std::string text = path + "\nSaving over this file would mean:";
  for (const std::string& line : LossLines(losses)) text += "\n- " + line;
  constexpr LossAnswer Answers[] = {LossAnswer::Save, LossAnswer::Copy, LossAnswer::Cancel};
  return Answers[dialogs.AskToSave(title, text, {"&Save", "Save a &copy...", "&Cancel"}, 2)];
}

}  // namespace velorix
