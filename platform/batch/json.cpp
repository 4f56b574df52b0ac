#include "platform/batch/json.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <string_view>

namespace velorix {
namespace {

using Json = nlohmann::ordered_json;

Json ToJson(double value) { return std::isfinite(value) ? Json(value) : Json(); }
Json ToJson(float value) { return ToJson(static_cast<double>(value)); }
Json ToJson(const Json& value) { return value; }
Json ToJson(int value) { return value; }
Json ToJson(const Number& value) { return ToJson(static_cast<double>(value)); }
Json ToJson(std::int16_t value) { return value; }
Json ToJson(bool value) { return value; }
Json ToJson(CoordinateSystem value) { return static_cast<int>(value); }
Json ToJson(TensorBlock value) { return static_cast<int>(value); }
Json ToJson(const std::string& value) { return value; }
Json ToJson(const ShortDirection& d) { return Json::array({ToJson(d.Dec), ToJson(d.Inc)}); }

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

/// Writes an object as it comes, a field a line: a full store's JSON is far larger than the store.
class ObjectWriter {
 public:
  ObjectWriter(std::ostream& out, int depth) : out_(out), depth_(depth) { out_ << '{'; }

  /// Begins a field; its value is written next.
  std::ostream& Field(std::string_view name) {
    NextLine(empty_ ? "" : ",", depth_ + 1);
    empty_ = false;
    return out_ << Text(std::string(name)) << ": ";
  }
  template <class T>
  void Add(std::string_view name, const T& value) {
    Field(name) << Text(ToJson(value));
  }
  void End() {
    NextLine("", depth_);
    out_ << '}';
  }

 private:
  static std::string Text(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
  }
  void NextLine(const char* before, int indent) {
    out_ << before << '\n' << std::string(static_cast<std::size_t>(indent), ' ');
  }

  std::ostream& out_;
  int depth_;
  bool empty_ = true;
};

/// The fields of `record` for whose names `wanted` holds.
template <class Wanted>
void WriteRecord(std::ostream& out, const SpecimenRecord& record, Wanted wanted) {
  ObjectWriter object(out, 2);
  ForEachField(record, [&](std::string_view name, const auto& field) {
    if (wanted(name)) object.Add(name, field);
  });
  object.End();
}

bool IsNoPlace(std::string_view name) { return name != "PlotX" && name != "PlotY"; }

/// `Add`s the records as a list, and calls `tell` with the number written so far.
template <class Wanted, class Tell>
void AddRecords(ObjectWriter& object, std::ostream& out, const char* name,
                const RecordArray& records, Wanted wanted, Tell tell) {
  object.Field(name) << '[';
  int done = 0;
  for (const SpecimenRecord& record : records) {
    out << (done == 0 ? "\n  " : ",\n  ");
    WriteRecord(out, record, wanted);
    tell(++done);
  }
  out << (done == 0 ? "]" : "\n ]");
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

/// The first 500 directions of each cloud: the others are never filled.
Json PointsJson(const GroupStats& stats) {
  Json clouds = Json::array();
  for (int k = 1; k <= 3; ++k) {
    Json cloud = Json::array();
    for (int j = 1; j <= BootReplicates; ++j) cloud.push_back(ToJson(stats.BootPoints[k][j]));
    clouds.push_back(cloud);
  }
  return clouds;
}

}  // namespace

void WriteRecordsJson(std::ostream& out, const Session& session,
                      const std::function<void(int)>& tell) {
  ObjectWriter object(out, 0);
  object.Add("CurrentFile", session.CurrentFile);
  object.Add("RecordCount", session.RecordCount());
  object.Add("CoorSys", session.CoorSys);
  object.Add("ReImMode", session.ReImMode);
  object.Add("FoliCode", session.FoliCode);
  object.Add("LineCode", session.LineCode);
  AddRecords(object, out, "Records", session.Records, IsNoPlace, tell);
  object.End();
  out << '\n';
}

void WriteGeoJson(std::ostream& out, const RecordArray& geoRecords) {
  bool geological = false;  // the fields from Site to LineInc
  const auto wanted = [&](std::string_view name) {
    geological = geological ? name != "Km" : name == "Site";
    return geological || name == "Name";
  };
  ObjectWriter object(out, 0);
  object.Add("GeoRecordCount", geoRecords.Count());
  AddRecords(object, out, "GeoRecords", geoRecords, wanted, [](int) {});
  object.End();
  out << '\n';
}

void WriteStatsJson(std::ostream& out, const GroupStats& stats, const Settings& settings) {
  const auto when = [](bool shown, const auto& field) { return shown ? ToJson(field) : Json(); };
  const bool mean = ShowsMean(stats), boot = ShowsBootstrap(stats);
  const bool deviations = ShowsDeviations(stats);
  const auto error = [&](int k) { return ShowsErrors(stats, k); };
  const auto meanFac = [&](int slot) { return ShowsMeanFac(stats, slot); };
  const auto avgFac = [&](int slot) { return ShowsAvgFac(stats, slot); };
  const auto sdFac = [&](int slot) { return deviations && avgFac(slot); };
  ObjectWriter object(out, 0);
  object.Add("GroupN", stats.GroupN);
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
  object.Add("BootPoints", boot ? PointsJson(stats) : Json());
  object.Add("FacName", settings.FacName);
  object.End();
  out << '\n';
}

}  // namespace velorix
