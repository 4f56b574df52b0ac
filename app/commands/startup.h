#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/state/debug_log.h"
#include "app/state/host.h"
#include "stats/density/contour_grid.h"
#include "store/session.h"

namespace velorix {

/// Folders, debug log and settings, in the program's order. A folder that can't be made is a
/// `FileFault`, which ends the start-up. Gives what the status line has to say of a settings file
/// that could not be read, or nothing.
std::string PrepareSession(Session& session, DebugLog& log, const Host& host);

/// The contour grid and the Gaussian table. `yield` is called now and then, so that a splash window
/// can repaint.
void BuildTables(ContourGrid& grid, std::vector<float>& gaussTable,
                 const std::function<void()>& yield);

/// What the main window's load does to the session: views as at a first start, no file, no records.
void ResetSession(Session& session);

}  // namespace velorix
