#pragma once

#include <string>

#include "app/commands/velorix.h"
#include "app/edit/autosave.h"
#include "app/edit/orientation_parameters.h"

namespace velorix {

// What opens or closes data files beside the file dialogs.

/// Empties the store and the session's file names, and displays that.
void CloseFile(Velorix& velorix);

/// Takes the choice into the settings, as `TakeOrientationParameters` does, and writes them. A file
/// that can't be written is a fault; the session has the choice then.
void ChangeOrientationParameters(Velorix& velorix, const OrientationChoice& choice);

/// Offers what another run, which has ended, left in `path`; the file goes without a question when
/// the data files have all of it. Where these are gone or have changed the question says so, and
/// nothing can be restored. Restored, the files are open as they were, and the orientation data, a
/// step that can be undone, are unsaved; `own` takes them over before the file goes. A number that
/// has no room in its record is left out, and then the file stays. A file that is damaged or no
/// autosave is reported and stays. True when something was restored.
bool OfferAutosave(Velorix& velorix, const std::string& path, Autosave& own);

}  // namespace velorix
