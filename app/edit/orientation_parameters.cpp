#include "app/edit/orientation_parameters.h"

#include "app/files/open_flow.h"

namespace velorix {
namespace {

constexpr std::int16_t ClockValues[] = {3, 6, 9, 12};
constexpr std::int16_t AngleValues[] = {0, 90};

bool IsClock(int parameter) { return parameter == 1 || parameter == 3; }

/// Closes the files that were read with the former parameters, as a part of `step`.
void CloseReadFiles(Session& session, Dialogs& dialogs, Step& step) {
  dialogs.Ask("Anisotropy settings",
              "Orientation parameters were changed!\nCurrently open data file is closed.", {"&OK"});
  step.Values.emplace_back(TakeGeology(session));
  Step closed = CloseStep(session, {});
  for (HeldValues& values : closed.Values) step.Values.push_back(std::move(values));
}

}  // namespace

std::span<const std::int16_t> OrientationValues(int parameter) {
  if (IsClock(parameter)) return ClockValues;
  return AngleValues;
}

std::string OrientationMeaning(int parameter) {
  switch (parameter) {
    case 1:
      return "Clock value of orientation of the arrow drawn on the frontal side of specimen (X "
             "axis "
             "of the specimen)";
    case 2:
      return "0 - Dip of the frontal side is measured; 90 - Plunge of the cylinder axis is "
             "measured";
    case 3:
      return "Clock value from which the measured azimuth of the specimen is read";
    case 4:
      return "0 - Dip direction and Dip; 90 - Strike (right-hand rule) and Dip";
    default:
      return "";
  }
}

std::string OrientationValueMeaning(int parameter, std::int16_t value) {
  const bool clock = value >= 3 && value <= 12 && value % 3 == 0;
  const bool angle = value == 0 || value == 90;
  if (!(IsClock(parameter) ? clock : angle)) return "";
  switch (parameter) {
    case 1:
      return "Arrow (X axis) on the frontal side at " + std::to_string(value) + " o'clock";
    case 2:
      return value == 0 ? "Dip of the frontal side is measured"
                        : "Plunge of the cylinder axis is measured";
    case 3:
      return "Measured azimuth is read at " + std::to_string(value) + " o'clock";
    case 4:
      return value == 0 ? "Files give foliations by dip direction and dip"
                        : "Files give foliations by strike (right-hand rule) and dip";
    default:
      return "";
  }
}

bool TakeOrientationParameters(Session& session, History& history, Dialogs& dialogs,
                               const OrientationChoice& choice) {
  Step step{"Orientation parameters", {ParametersOf(session)}};
  const bool isNew = choice.P != session.Settings.P || choice.DemagFac != session.Settings.DemagFac;
  const bool closes = choice.P != session.Settings.P && !session.CurrentFile.empty();
  session.Settings.P = choice.P;
  session.Settings.DemagFac = choice.DemagFac;
  if (closes) CloseReadFiles(session, dialogs, step);
  if (isNew) history.Add(session, std::move(step));
  return closes;
}

}  // namespace velorix
