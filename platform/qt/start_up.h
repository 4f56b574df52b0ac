#pragma once

#include "app/commands/velorix.h"

namespace velorix {

class frmVelorix;

/// The program's start: folders, log and settings; the main window, unshown; the tables behind the
/// splash, which then stands for two seconds while events run; the main window, with the time that
/// all this took in its status panel. A folder that can't be made ends it with the system's error.
void StartUp(Velorix& velorix, frmVelorix& window);

}  // namespace velorix
