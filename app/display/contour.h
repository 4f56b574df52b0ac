#pragma once

#include <string>

#include "app/state/contour_session.h"
#include "app/state/debug_log.h"
#include "app/state/dialogs.h"
#include "app/state/views.h"
#include "store/session.h"

namespace velorix {

// What the controls of the contour window do.

/// The data of a count: of each record in use at the coordinate level in view, in or out of phase,
/// a principal direction, the pole of its first foliation of the code or its first lineation of the
/// code. Directions that are not finite are left out.
ContourData BuildContourData(const Session& session, ContourDisplay option,
                             const std::string& foliCode, const std::string& lineCode);

/// Puts the data in view in the picture, which then waits for a count.
void ShowContourData(ContourSession& contour, const Session& session);
/// Puts the data in view in the picture and keeps the count, whatever it is of.
void RebuildContourData(ContourSession& contour, const Session& session, Views& views);

/// Chooses what is counted, and shows its data.
void ChooseContourDisplay(ContourSession& contour, const Session& session, ContourDisplay display);

/// `cmdCount`: counts the data in view. True when the picture has a new count; without data, when
/// `progress` answers no, and when the smoothing is too great for 32-bit densities, which a box
/// says, everything stays as it was.
bool CountContour(ContourSession& contour, const Session& session, Dialogs& dialogs,
                  const CountProgress& progress);

/// Draws the picture as its controls say.
void DrawContourPicture(const ContourSession& contour, Target& target);

/// `cmdGrevaExport`: writes "declination/inclination" of Kmax, whole degrees, a line for each
/// record in use at the coordinate level in view, to "examples/grevadata.txt" in the program's
/// folder. The status line says where it is; a box, the status line and the log say why it is not.
void GrevaExport(const Session& session, const std::string& appFolder, Dialogs& dialogs,
                 Views& views, DebugLog& log);

/// Texts of the window. `lblContour`: what the picture shows.
std::string ContourCaption(const ContourSession& contour);
/// What the count is of, "Counted for a.ams, geographic, N = 21; press Count", where that differs
/// from what is in view by its file, its system or its data; else empty.
std::string ContourStaleText(const ContourSession& contour);
/// `lblLevels`: each level behind a blank; empty until counted.
std::string ContourLevelsText(const ContourSession& contour);
/// Maximum and minimum and where the maximum lies; empty until counted.
std::string ContourMaximumText(const ContourSession& contour);
/// The time of the count.
std::string ContourTimeText(const ContourSession& contour);
/// Direction and density of the node at a place of the picture; empty outside the circle, the
/// direction alone until counted.
std::string ContourCursorText(const ContourSession& contour, double x, double y);

}  // namespace velorix
