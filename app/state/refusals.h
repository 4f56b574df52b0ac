#pragma once

#include <string>

#include "app/state/debug_log.h"
#include "app/state/dialogs.h"
#include "app/state/views.h"

namespace velorix {

/// Puts what was refused, a file mostly, and why into the status line and the log. It opens no box.
/// Line ends in `text` become ": ".
void ReportRefusal(Views& views, DebugLog& log, std::string text);

/// From now on what the program's boxes refuse is reported so, too.
void ReportBoxes(Dialogs& dialogs, Views& views, DebugLog& log);

}  // namespace velorix
