#include "platform/batch/json.h"

#include <cmath>
#include <string_view>

#include "platform/batch/json_writer.h"

namespace velorix {
namespace {

Json ToJson(double value) { return std::isfinite(value) ? Json(value) : Json(); }
Json ToJson(float value) { return ToJson(static_cast<double>(value)); }
Json ToJson(int value) { return value; }
Json ToJson(const Number& value) { return ToJson(static_cast<double>(value)); }
Json ToJson(std::int16_t value) { return value; }
Json ToJson(bool value) { return value; }
Json ToJson(CoordinateSystem value) { return static_cast<int>(value); }
Json ToJson(TensorBlock value) { return static_cast<int>(value); }
Json ToJson(const std::string& value) { return value; }
Json ToJson(const ShortDirection& d) { return Json::array({ToJson(d.Dec), ToJson(d.Inc)}); }

Json ToJson(Factor factor) { return ToJson(factor.Shown()); }

/// Bytes as hexadecimal text in file order.
template <std::size_t N>
Json ToJson(const std::array<std::uint8_t, N>& bytes) {
  std::string text;
  for (std::uint8_t byte : bytes) {
    text += "0123456789abcdef"[byte >> 4];
    text += "0123456789abcdef"[byte & 15];
  }
  return text;
}

Json ToJson(const std::vector<ShortDirection>& directions) {
  Json list = Json::array();
  for (const ShortDirection& d : directions) list.push_back(ToJson(d));
  return list;
}

template <class T, int Lo, int Hi>
Json ToJson(const Slots<T, Lo, Hi>& slots) {
  Json list = Json::array();
  for (const T& element : slots) list.push_back(ToJson(element));
  return list;
}

Json ToJson(const Matrix<3, 3>& matrix) {
  Json rows = Json::array();
  for (int i = 1; i <= 3; ++i)
    rows.push_back(Json::array({ToJson(matrix(i, 1)), ToJson(matrix(i, 2)), ToJson(matrix(i, 3))}));
  return rows;
}

/// The fields of `record` for whose names `isWritten` holds.
template <class IsWritten>
void WriteRecord(std::ostream& out, const SpecimenRecord& record, IsWritten isWritten) {
  ObjectWriter object(out, 2);
  ForEachField(record, [&](std::string_view name, const auto& field) {
    if (isWritten(name)) object.Add(name, ToJson(field));
  });
  object.End();
}

/// `Add`s the records as a list, and calls `tell` with the number written so far.
template <class IsWritten, class Tell>
void AddRecords(ObjectWriter& object, std::ostream& out, const char* name,
                const RecordArray& records, IsWritten isWritten, Tell tell) {
  object.AddList(name, records.Count(), [&](int i) {
    WriteRecord(out, records[i + 1], isWritten);
    tell(i + 1);
  });
}

/// A list of the slots for which `shown` holds, null for the others; one null when none does.
template <class Slots, class Shown>
Json SlotsJson(const Slots& slots, Shown shown) {
  Json list = Json::array();
  bool any = false;
  for (int i = 1; i <= Slots::Last; ++i) {
    any = any || shown(i);
    list.push_back(shown(i) ? ToJson(slots[i]) : Json());
  }
  return any ? list : Json();
}

/// Every key stands, null where Hext's statistics are not defined.
Json HextJson(const std::optional<HextStats>& hext) {
  const HextStats h = hext.value_or(HextStats());
  const std::pair<const char*, Json> fields[] = {
      {"Nf", h.Nf},
      {"Sigma", ToJson(h.Sigma)},
      {"F", ToJson(h.F)},
      {"FCritical", ToJson(h.FCritical)},
      {"F12", ToJson(h.F12)},
      {"F23", ToJson(h.F23)},
      {"F12Critical", ToJson(h.F12Critical)},
      {"E12", ToJson(h.E12)},
      {"E23", ToJson(h.E23)},
      {"E13", ToJson(h.E13)},
  };
  Json object;
  for (const auto& [name, value] : fields) object[name] = hext ? value : Json();
  return object;
}

Json ToJson(const BootLimits& limits) {
  return {{"Lower", ToJson(limits.Lower)}, {"Upper", ToJson(limits.Upper)}};
}

/// Each factor's interval; null for a factor that a replicate lacks.
Json ToJson(const FactorIntervals& intervals) {
  Json object;
  for (int i = 1; i <= FactorIntervals::Size; ++i)
    object[BootFactorList[i - 1].Name] =
        intervals[i] ? Json::array({ToJson(intervals[i]->Lower), ToJson(intervals[i]->Upper)})
                     : Json();
  return object;
}

/// Without a bootstrap there are no replicates, without a seed the numbers are those of the table.
Json ToJson(const BootChoice& choice) {
  const bool any = choice.Method != BootMethod::None;
  return {{"Method", WordOf(choice.Method)},
          {"Replicates", any ? Json(choice.Replicates) : Json()},
          {"Seed", any && choice.Seed ? Json(*choice.Seed) : Json()}};
}

}  // namespace

void WriteRecordsJson(std::ostream& out, const Session& session,
                      const std::function<void(int)>& tell) {
  ObjectWriter object(out, 0);
  object.Add("CurrentFile", ToJson(session.CurrentFile));
  object.Add("RecordCount", ToJson(session.RecordCount()));
  object.Add("CoorSys", ToJson(session.CoorSys));
  object.Add("ReImMode", ToJson(session.ReImMode));
  object.Add("FoliCode", ToJson(session.FoliCode));
  object.Add("LineCode", ToJson(session.LineCode));
  const auto all = [](std::string_view) { return true; };
  AddRecords(object, out, "Records", session.Records, all, tell);
  object.End();
  out << '\n';
}

void WriteGeoJson(std::ostream& out, const RecordArray& geoRecords) {
  bool geological = false;  // the fields from Site to LineInc
  const auto isWritten = [&](std::string_view name) {
    geological = geological ? name != "Km" : name == "Site";
    return geological || name == "Name";
  };
  ObjectWriter object(out, 0);
  object.Add("GeoRecordCount", ToJson(geoRecords.Count()));
  AddRecords(object, out, "GeoRecords", geoRecords, isWritten, [](int) {});
  object.End();
  out << '\n';
}

void AddBootstrap(ObjectWriter& object, const BootChoice& boot) {
  object.Add("Bootstrap", ToJson(boot));
}

void AddStats(ObjectWriter& object, const GroupStats& stats, const Settings& settings,
              ErrorLevel level) {
  const auto when = [](bool shown, const auto& field) { return shown ? ToJson(field) : Json(); };
  const bool mean = ShowsMean(stats), boot = ShowsBootstrap(stats);
  const bool at95 = ShowsErrorsAt95(stats), deviations = ShowsDeviations(stats);
  const auto error = [&](int k) { return ShowsErrors(stats, k); };
  const auto meanFac = [&](int slot) { return ShowsMeanFac(stats, slot); };
  const auto avgFac = [&](int slot) { return ShowsAvgFac(stats, slot); };
  const auto sdFac = [&](int slot) { return deviations && avgFac(slot); };
  object.Add("GroupN", ToJson(stats.GroupN));
  object.Add("MeanK", when(mean, stats.MeanK));
  object.Add("MeanVec", when(mean, stats.MeanVec));
  object.Add("MeanDec", when(mean, stats.MeanDec));
  object.Add("MeanInc", when(mean, stats.MeanInc));
  object.Add("MeanE1", SlotsJson(stats.MeanE1, error));
  object.Add("MeanE2", SlotsJson(stats.MeanE2, error));
  object.Add("MeanRot", SlotsJson(stats.MeanRot, error));
  object.Add("MeanFac", SlotsJson(stats.MeanFac, meanFac));
  object.Add("AvgKm", when(ShowsAvgKm(stats), stats.AvgKm));
  object.Add("AvgFac", SlotsJson(stats.AvgFac, avgFac));
  object.Add("SdKm", when(deviations && ShowsAvgKm(stats), stats.SdKm));
  object.Add("SdFac", SlotsJson(stats.SdFac, sdFac));
  object.Add("BootE1", when(boot, stats.BootE1));
  object.Add("BootE2", when(boot, stats.BootE2));
  object.Add("BootContour", when(boot, stats.BootContour));
  object.Add("BootPoints", when(boot, stats.BootPoints));
  object.Add("FacName", ToJson(settings.FacName));
  object.Add("Jelinek95",
             {{"E1", when(at95, stats.MeanE1At95)}, {"E2", when(at95, stats.MeanE2At95)}});
  object.Add("Hext", HextJson(stats.Hext));
  object.Add("BootLimits", when(boot, stats.BootLimits));
  object.Add("BootFactors", when(boot, stats.BootFactors));
  object.Add("Level", NamesOf(level).Word);
  AddBootstrap(object, stats.BootBy);
}

void WriteStatsJson(std::ostream& out, const GroupStats& stats, const Settings& settings,
                    ErrorLevel level, const std::string& heading) {
  ObjectWriter object(out, 0);
  AddStats(object, stats, settings, level);
  object.Add("Heading", heading);
  object.End();
  out << '\n';
}

}  // namespace velorix
