#include "app/display/contour.h"

#include <cmath>
#include <filesystem>

#include "app/state/refusals.h"
#include "datafiles/bytes/file_faults.h"
#include "datafiles/bytes/safe_write.h"
#include "tensor/directions.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

/// Visits the records in use at the coordinate level in view. Kept for agreement with published
/// results: a record without an out-of-phase tensor takes part in that block too, with the
/// directions it has.
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
ContourSubject SubjectInView(const ContourSession& contour, const Session& session) {
  return {FileNameOf(session.CurrentFile), session.CoorSys,
          BuildContourData(session, contour.Options.display, session.FoliCode, session.LineCode)};
}

bool IsSame(const ContourSubject& a, const ContourSubject& b) {
  return a.File == b.File && a.CoorSys == b.CoorSys && a.Data.Dec == b.Data.Dec &&
         a.Data.Inc == b.Data.Inc;
}

bool IsStale(const ContourSession& contour) {
  return contour.Counted() && !IsSame(contour.InView, contour.OfCount);
}

}  // namespace

ContourData BuildContourData(const Session& session, ContourDisplay option,
                             const std::string& foliCode, const std::string& lineCode) {
  ContourData data;
  const auto add = [&data](const Direction& d) {
    if (std::isfinite(d.Dec) && std::isfinite(d.Inc)) data.Add(d.Dec, d.Inc);
  };
  ForEachAtLevel(session, [&](const SpecimenRecord& r) {
    if (option == ContourDisplay::FoliationPole) {
      if (const int slot = SlotOf(r.FoliName, foliCode))
        add(PoleOfPlane({r.FoliDec[slot], r.FoliInc[slot]}));
    } else if (option == ContourDisplay::Lineation) {
      if (const int slot = SlotOf(r.LineName, lineCode)) add({r.LineDec[slot], r.LineInc[slot]});
    } else {
      const int axis = static_cast<int>(option);
      add({r.Dec[axis], r.Inc[axis]});
    }
  });
  return data;
}

void ShowContourData(ContourSession& contour, const Session& session) {
  contour.InView = SubjectInView(contour, session);
  contour.Count = {};
}

void RebuildContourData(ContourSession& contour, const Session& session, Views& views) {
  contour.InView = SubjectInView(contour, session);
  views.RefreshContour();
}

void ChooseContourDisplay(ContourSession& contour, const Session& session, ContourDisplay display) {
  contour.Options.display = display;
  ShowContourData(contour, session);
}

bool CountContour(ContourSession& contour, const Session& session, Dialogs& dialogs,
                  const CountProgress& progress) {
  // Events of the window system run during the count, so its input is copied before.
  const std::int16_t smooth = contour.Options.smoothing;
  ContourSubject subject = SubjectInView(contour, session);
  const ContourData& data = subject.Data;
  if (data.Count() == 0) return false;
  if (!DensityFits(contour.Grid, data, smooth)) {
    dialogs.Ask("Contour Plot",
                "A smoothing of " + PlainText(smooth) + " is too great for " +
                    PlainText(data.Count()) +
                    " data: their densities would leave the range of 32-bit numbers.\n"
                    "Choose a smaller one.",
                {"&OK"});
    return false;
  }
  DensityCount count;
  if (!CountDensity(contour.Grid, data, smooth, count, progress)) return false;
  contour.InView = subject;
  contour.OfCount = std::move(subject);
  contour.Smooth = smooth;
  contour.Count = count;
  return true;
}

void DrawContourPicture(const ContourSession& contour, Target& target) {
  target.Describe("Density of directions", ContourCaption(contour));
  DrawContour(target, contour.Grid, contour.InView.Data, contour.Count, contour.InView.CoorSys,
              contour.Options);
}

void GrevaExport(const Session& session, const std::string& appFolder, Dialogs& dialogs,
                 Views& views, DebugLog& log) {
  constexpr char Title[] = "Export For Stereographic Plot";
  const std::string folder = JoinPath(appFolder, "examples");
  const std::string path = JoinPath(folder, "grevadata.txt");
  int lines = 0;
  try {
    OnFile(folder, [&] { std::filesystem::create_directories(PathOf(folder)); });
    SafeWrite(path, [&](std::ostream& out) {
      ForEachAtLevel(session, [&](const SpecimenRecord& r) {
        const double dec = r.Dec[1], inc = r.Inc[1];
        if (!std::isfinite(dec) || !std::isfinite(inc)) return;
        out << TrimmedNumber(dec, "0") << '/' << TrimmedNumber(inc, "0") << "\r\n";
        ++lines;
      });
    });
  } catch (const FileFault& fault) {
    const std::string text = path + "\nThis file could not be written: " + fault.what();
    ReportRefusal(views, log, text);
    return Show(dialogs, Outcome::Refused(Title, text));
  }
  views.ShowStatus(PlainText(lines) + " directions written to " + path);
}

std::string ContourCaption(const ContourSession& contour) {
  std::string text = std::string(InfoOf(contour.Options.display).Name) + ", " +
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

std::string ContourMaximumText(const ContourSession& contour) {
  const DensityCount& count = contour.Count;
  if (!contour.Counted()) return {};
  return "Maximum " + TrimmedNumber(count.ContourMax, "0.00") + " at " +
         DirectionText(contour.Grid, count.MaxNode) + "\nMinimum " +
         TrimmedNumber(count.ContourMin, "0.00") + "\nin multiples of a uniform density";
}

std::string ContourTimeText(const ContourSession& contour) {
  return contour.Counted() ? TrimmedNumber(contour.Count.Seconds, "0.00") + " s" : "";
}

std::string ContourCursorText(const ContourSession& contour, double x, double y) {
  const auto node = ContourNodeAt(contour.Grid, x, y);
  if (!node) return {};
  std::string text = DirectionText(contour.Grid, *node);
  if (contour.Counted()) text += ", density " + TrimmedNumber(contour.Grid.Density[*node], "0.00");
  return text;
}

}  // namespace velorix
