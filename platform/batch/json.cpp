#include "platform/batch/json.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <string_view>

namespace velorix {
namespace {

using Json = nlohmann::ordered_json;

Json ToJson(double value) { return std::isfinite(value) ? Json(value) : Json(); }
Json ToJson(float value) { return ToJson(static_cast<double>(value)); }
Json ToJson(const Number& value) { return ToJson(static_cast<double>(value)); }
Json ToJson(std::int16_t value) { return value; }
Json ToJson(bool value) { return value; }
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

Json RecordJson(const SpecimenRecord& record) {
  Json json = Json::object();
  ForEachField(record, [&json](std::string_view name, const auto& field) {
    if (name != "PlotX" && name != "PlotY") json[std::string(name)] = ToJson(field);
  });
  return json;
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

std::string Text(const Json& json) {
  return json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string RecordsJson(const Session& session) {
  Json json = {{"CurrentFile", session.CurrentFile}, {"RecordCount", session.RecordCount()},
               {"CoorSys", session.CoorSys},         {"ReImMode", session.ReImMode},
               {"FoliCode", session.FoliCode},       {"LineCode", session.LineCode}};
  json["Records"] = Json::array();
  for (const SpecimenRecord& record : session.Records)
    json["Records"].push_back(RecordJson(record));
  return Text(json);
}

std::string StatsJson(const GroupStats& stats, const Settings& settings) {
  const auto when = [](bool shown, const auto& field) { return shown ? ToJson(field) : Json(); };
  const bool mean = ShowsMean(stats), boot = ShowsBootstrap(stats);
  const bool deviations = ShowsDeviations(stats);
  const auto error = [&](int k) { return ShowsErrors(stats, k); };
  const auto meanFac = [&](int slot) { return ShowsMeanFac(stats, slot); };
  const auto avgFac = [&](int slot) { return ShowsAvgFac(stats, slot); };
  const auto sdFac = [&](int slot) { return deviations && avgFac(slot); };
  Json json = Json::object();
  json["GroupN"] = stats.GroupN;
  json["MeanK"] = when(mean, stats.MeanK);
  json["MeanVec"] = when(mean, stats.MeanVec);
  json["MeanDec"] = when(mean, stats.MeanDec);
  json["MeanInc"] = when(mean, stats.MeanInc);
  json["MeanE1"] = SlotsJson(stats.MeanE1, error);
  json["MeanE2"] = SlotsJson(stats.MeanE2, error);
  json["MeanRot"] = SlotsJson(stats.MeanRot, error);
  json["MeanFac"] = SlotsJson(stats.MeanFac, meanFac);
  json["AvgKm"] = when(ShowsAvgKm(stats), stats.AvgKm);
  json["AvgFac"] = SlotsJson(stats.AvgFac, avgFac);
  json["SdKm"] = when(deviations && ShowsAvgKm(stats), stats.SdKm);
  json["SdFac"] = SlotsJson(stats.SdFac, sdFac);
  json["BootE1"] = when(boot, stats.BootE1);
  json["BootE2"] = when(boot, stats.BootE2);
  json["BootContour"] = when(boot, stats.BootContour);
  json["BootPoints"] = boot ? PointsJson(stats) : Json();
  json["FacName"] = ToJson(settings.FacName);
  return Text(json);
}

}  // namespace velorix
