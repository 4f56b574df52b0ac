#include "platform/batch/summary.h"

#include "text/numbers.h"

namespace velorix {
namespace {

/// `text` at the right end of `width` characters.
std::string Right(const std::string& text, std::size_t width) {
  return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

std::string Cell(bool shown, double value, const char* picture, std::size_t width) {
  const std::string number = shown ? FormatNumber(value, picture) : "";
  return Right(number.empty() ? "-" : number, width);
}

constexpr Array1<const char*, 3> AxisNames = {"Kmax", "Kint", "Kmin"};

std::string MeanTensor(const GroupStats& stats, ErrorLevel level) {
  const char* const head = level == ErrorLevel::StandardError ? "Std. Err." : "95 %     ";
  std::string text = std::string("         K       Dec    Inc     ") + head + "      Bootstrap\n";
  const bool boot = ShowsBootstrap(stats);
  for (int k = 1; k <= 3; ++k) {
    const std::optional<AngularErrors> errors = ErrorsOf(stats, level, k);
    const auto [e1, e2] = errors.value_or(AngularErrors());
    text += AxisNames[k];
    text += Cell(true, stats.MeanK[k], "0.0000", 9) + Cell(true, stats.MeanDec[k], "0.0", 8) +
            Cell(true, stats.MeanInc[k], "0.0", 7) + Cell(errors.has_value(), e1, "0.0", 8) +
            Cell(errors.has_value(), e2, "0.0", 7) + Cell(boot, stats.BootE1[k], "0.0", 8) +
            Cell(boot, stats.BootE2[k], "0.0", 7) + "\n";
  }
  return text;
}

}  // namespace

std::string Summary(const Velorix& velorix) {
  const Session& session = velorix.Session;
  int shown = 0;
  ForEachActive(session, [&shown](const SpecimenRecord&) { ++shown; });
  std::string text;
  for (const std::string& file : session.OpenFiles)
    text += (text.empty() ? "Files    " : "         ") + file + "\n";
  text += "Records  " + std::to_string(session.RecordCount()) + ", " + std::to_string(shown) +
          " shown\n";
  text += std::string("View     ") + NamesOf(session.CoorSys).Short +
          (session.ReImMode == OutOfPhase ? ", Kim" : ", Kre") + "\n";
  const ErrorLevel level = velorix.Plots.Stereo.level;
  if (level != ErrorLevel::StandardError) text += "Level    " + LevelText(level) + "\n";
  if (velorix.Bootstrap != BootChoice())
    text += "Bootstrap " + BootstrapText(velorix.Bootstrap, velorix.GroupStats.GroupN) + "\n";
  if (ShowsMean(velorix.GroupStats))
    text += "Mean tensor, N = " + std::to_string(velorix.GroupStats.GroupN) + "\n" +
            MeanTensor(velorix.GroupStats, level);
  return text;
}

}  // namespace velorix
