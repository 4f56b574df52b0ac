#include "app/contour.h"

#include <cmath>
#include <filesystem>

#include "datafiles/safe_write.h"
#include "tensor/directions.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

/// `FormatNumber` without its blank in front.
std::string Formatted(double value, const char* picture) {
  return std::string(StripBlanks(FormatNumber(value, picture)));
}

/// Visits the records in use at the coordinate level in view. A record without an out-of-phase
/// tensor takes part in that block too, with the directions it has: wanted.
template <class Visit>
void ForEachAtLevel(const Session& session, Visit visit) {
  for (const SpecimenRecord& record : session.Records)
    if (record.Active && record.CoorLevel == session.CoorSys) visit(record);
}

/// The first slot, 1 or 2, with the code; 0 when there is none. An empty code names nothing: the
/// slots that have no code hold no direction.
int SlotOf(const Array1<std::string, 4>& names, const std::string& code) {
  if (code.empty()) return 0;
  for (int slot = 1; slot <= 2; ++slot)
    if (names[slot] == code) return slot;
  return 0;
}

std::string DirectionText(const ContourGrid& grid, std::size_t node) {
  return "Dec " + Formatted(grid.Dec[node], "0.0") + ", Inc " + Formatted(grid.Inc[node], "0.0");
}

const char* SystemName(std::int16_t coorSys) {
  constexpr const char* Names[] = {"", "specimen", "geographic", "paleogeographic", "tectonic"};
  return coorSys >= 1 && coorSys <= 4 ? Names[coorSys] : "";
}

}  // namespace

ContourData BuildContourData(const Session& session, std::int16_t option,
                             const std::string& foliCode, const std::string& lineCode) {
  ContourData data;
  const auto add = [&data](const Direction& d) {
    if (std::isfinite(d.Dec) && std::isfinite(d.Inc)) data.Add(d.Dec, d.Inc);
  };
  ForEachAtLevel(session, [&](const SpecimenRecord& r) {
    if (option == 4) {
      if (const int slot = SlotOf(r.FoliName, foliCode))
        add(PoleOfPlane({r.FoliDec[slot], r.FoliInc[slot]}));
    } else if (option == 5) {
      if (const int slot = SlotOf(r.LineName, lineCode)) add({r.LineDec[slot], r.LineInc[slot]});
    } else {
      add({r.Dec[option], r.Inc[option]});
    }
  });
  return data;
}

void ShowContourData(Velorix& velorix) {
  const Session& session = velorix.Session;
  ContourSession& contour = velorix.Contour;
  contour.Data =
      BuildContourData(session, contour.Options.optDisplay, session.FoliCode, session.LineCode);
  contour.CoorSys = session.CoorSys;
  contour.Count = {};
}

void ChooseContourDisplay(Velorix& velorix, int index) {
  velorix.Contour.Options.optDisplay = static_cast<std::int16_t>(index);
  ShowContourData(velorix);
}

bool CountContour(Velorix& velorix, const CountProgress& progress) {
  const Session& session = velorix.Session;
  ContourSession& contour = velorix.Contour;
  // The count listens to the window system, so all is taken down before it.
  const std::int16_t smooth = contour.Options.txtSmooth, coorSys = session.CoorSys;
  ContourData data =
      BuildContourData(session, contour.Options.optDisplay, session.FoliCode, session.LineCode);
  if (data.Count() == 0) return false;
  if (!DensityFits(velorix.ContourGrid, data, smooth)) {
    velorix.Dialogs.Ask("Contour Plot",
                        "A smoothing of " + PlainText(smooth) + " is too great for " +
                            PlainText(data.Count()) +
                            " data: their densities would leave the range of 32-bit numbers.\n"
                            "Choose a smaller one.",
                        {"&OK"});
    return false;
  }
  DensityCount count;
  if (!CountDensity(velorix.ContourGrid, data, smooth, count, progress)) return false;
  contour.Data = std::move(data);
  contour.CoorSys = coorSys;
  contour.Smooth = smooth;
  contour.Count = count;
  return true;
}

void DrawContourPicture(Velorix& velorix, Target& target) {
  const ContourSession& contour = velorix.Contour;
  DrawContour(target, velorix.ContourGrid, contour.Data, contour.Count, contour.CoorSys,
              contour.Options);
}

void GrevaExport(Velorix& velorix) {
  constexpr char Title[] = "Export For Stereographic Plot";
  const std::string folder = JoinPath(velorix.Host.AppFolder, "examples");
  const std::string path = JoinPath(folder, "grevadata.txt");
  int lines = 0;
  try {
    std::filesystem::create_directories(PathOf(folder));
    SafeWrite(path, [&](std::ostream& out) {
      ForEachAtLevel(velorix.Session, [&](const SpecimenRecord& r) {
        if (!std::isfinite(r.Dec[1]) || !std::isfinite(r.Inc[1])) return;
        out << Formatted(r.Dec[1], "0") << '/' << Formatted(r.Inc[1], "0") << "\r\n";
        ++lines;
      });
    });
  } catch (const std::filesystem::filesystem_error& error) {
    velorix.Dialogs.Ask(Title, path + "\nThis file could not be written: " + error.code().message(),
                        {"&OK"});
    return;
  }
  velorix.Views.ShowStatus(PlainText(lines) + " directions written to " + path);
}

std::string ContourCaption(const Velorix& velorix) {
  const ContourSession& contour = velorix.Contour;
  std::string text = std::string(ContourDisplays[contour.Options.optDisplay].Name) + ", " +
                     SystemName(contour.CoorSys) + " coordinates";
  if (contour.Counted()) return text + ", smoothing " + PlainText(contour.Smooth);
  return text + (contour.Data.Count() > 0 ? ", not counted yet" : ", no data in view");
}

std::string ContourLevelsText(const ContourSession& contour) {
  std::string text;
  if (contour.Counted())
    for (const std::int16_t value : LevelsOf(contour.Count.ContourMax).Values)
      text += " " + PlainText(value);
  return text;
}

std::string ContourMaximumText(const Velorix& velorix) {
  const DensityCount& count = velorix.Contour.Count;
  if (!velorix.Contour.Counted()) return {};
  return "Maximum " + Formatted(count.ContourMax, "0.00") + " at " +
         DirectionText(velorix.ContourGrid, count.MaxNode) + "\nMinimum " +
         Formatted(count.ContourMin, "0.00") + "\nin multiples of a uniform density";
}

std::string ContourTimeText(const ContourSession& contour) {
  return contour.Counted() ? Formatted(contour.Count.Seconds, "0.00") + " s" : "";
}

std::string ContourCursorText(const Velorix& velorix, double x, double y) {
  const auto node = ContourNodeAt(velorix.ContourGrid, x, y);
  if (!node) return {};
  std::string text = DirectionText(velorix.ContourGrid, *node);
  if (velorix.Contour.Counted())
    text += ", density " + Formatted(velorix.ContourGrid.Density[*node], "0.00");
  return text;
}

}  // namespace velorix
