#include "app/display/contour.h"

#include <cmath>
#include <filesystem>

#include "datafiles/safe_write.h"
#include "tensor/directions.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

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
  return "Dec " + TrimmedNumber(grid.Dec[node], "0.0") + ", Inc " +
         TrimmedNumber(grid.Inc[node], "0.0");
}

/// What is in view for a count.
ContourSubject SubjectInView(const Velorix& velorix) {
  const Session& session = velorix.Session;
  return {Utf8Of(PathOf(session.CurrentFile).filename()), session.CoorSys,
          BuildContourData(session, velorix.Contour.Options.display, session.FoliCode,
                           session.LineCode)};
}

bool IsSame(const ContourSubject& a, const ContourSubject& b) {
  return a.File == b.File && a.CoorSys == b.CoorSys && a.Data.Dec == b.Data.Dec &&
         a.Data.Inc == b.Data.Inc;
}

bool IsStale(const ContourSession& contour) {
  return contour.Counted() && !IsSame(contour.InView, contour.OfCount);
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
  velorix.Contour.InView = SubjectInView(velorix);
  velorix.Contour.Count = {};
}

void RebuildContourData(Velorix& velorix) {
  velorix.Contour.InView = SubjectInView(velorix);
  velorix.Views.RefreshContour();
}

void ChooseContourDisplay(Velorix& velorix, int index) {
  velorix.Contour.Options.display = static_cast<std::int16_t>(index);
  ShowContourData(velorix);
}

bool CountContour(Velorix& velorix, const CountProgress& progress) {
  ContourSession& contour = velorix.Contour;
  // The count listens to the window system, so all is taken down before it.
  const std::int16_t smooth = contour.Options.smoothing;
  ContourSubject subject = SubjectInView(velorix);
  const ContourData& data = subject.Data;
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
  contour.InView = subject;
  contour.OfCount = std::move(subject);
  contour.Smooth = smooth;
  contour.Count = count;
  return true;
}

void DrawContourPicture(Velorix& velorix, Target& target) {
  const ContourSession& contour = velorix.Contour;
  DrawContour(target, velorix.ContourGrid, contour.InView.Data, contour.Count,
              contour.InView.CoorSys, contour.Options);
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
        out << TrimmedNumber(r.Dec[1], "0") << '/' << TrimmedNumber(r.Inc[1], "0") << "\r\n";
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
  std::string text = std::string(ContourDisplays[contour.Options.display].Name) + ", " +
                     NamesOf(contour.InView.CoorSys).Word + " coordinates";
  if (contour.Counted() && !IsStale(contour))
    return text + ", smoothing " + PlainText(contour.Smooth);
  return text + (contour.InView.Data.Count() > 0 ? ", not counted yet" : ", no data in view");
}

std::string ContourStaleText(const ContourSession& contour) {
  if (!IsStale(contour)) return {};
  const ContourSubject& counted = contour.OfCount;
  const std::string file = counted.File.empty() ? "" : counted.File + ", ";
  return "Counted for " + file + NamesOf(counted.CoorSys).Word +
         ", N = " + PlainText(counted.Data.Count()) + "; press Count";
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
  return "Maximum " + TrimmedNumber(count.ContourMax, "0.00") + " at " +
         DirectionText(velorix.ContourGrid, count.MaxNode) + "\nMinimum " +
         TrimmedNumber(count.ContourMin, "0.00") + "\nin multiples of a uniform density";
}

std::string ContourTimeText(const ContourSession& contour) {
  return contour.Counted() ? TrimmedNumber(contour.Count.Seconds, "0.00") + " s" : "";
}

std::string ContourCursorText(const Velorix& velorix, double x, double y) {
  const auto node = ContourNodeAt(velorix.ContourGrid, x, y);
  if (!node) return {};
  std::string text = DirectionText(velorix.ContourGrid, *node);
  if (velorix.Contour.Counted())
    text += ", density " + TrimmedNumber(velorix.ContourGrid.Density[*node], "0.00");
  return text;
}

}  // namespace velorix
