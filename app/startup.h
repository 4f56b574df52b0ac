#pragma once

#include <functional>

#include "app/state/velorix.h"

namespace velorix {

/// Folders, debug log and settings, in the program's order. A folder that can't be made ends the
/// start-up with the system's error.
void PrepareSession(Velorix& velorix);

/// The contour grid and the Gaussian table. `yield` is called now and then, so that a splash window
/// can repaint.
void BuildTables(Velorix& velorix, const std::function<void()>& yield);

/// What the main window's load does to the session: views as at a first start, no file, no records.
void ResetSession(Velorix& velorix);

}  // namespace velorix
