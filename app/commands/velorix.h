#pragma once

#include <string>
#include <vector>

#include "app/display/plot_mouse.h"
#include "app/state/code_lists.h"
#include "app/state/contour_session.h"
#include "app/state/debug_log.h"
#include "app/state/dialogs.h"
#include "app/state/group_subject.h"
#include "app/state/history.h"
#include "app/state/host.h"
#include "app/state/plot_choices.h"
#include "app/state/views.h"
#include "stats/group/group_statistics.h"
#include "store/session.h"

namespace velorix {

/// The running program: the session, the tables made at start-up, what the controls of the windows
/// decide, and the ways to the user. `main` owns the one object; commands and windows know it, and
/// hand on what a routine touches.
struct Velorix {
  velorix::Dialogs& Dialogs;
  velorix::Views& Views;
  WindowOpener& Opener;
  velorix::Host Host;

  velorix::Session Session = {};
  velorix::History History = {};
  CodeLists Lists = {};
  PlotChoices Plots = {};
  DrawnPlots Drawn = {};
  OpenWindows Windows = {};
  velorix::GroupStats GroupStats = {};
  GroupSubject GroupOf = {};  // what they were computed of
  BootChoice Bootstrap = {};
  std::vector<float> GaussTable = {};
  ContourSession Contour = {};
  DebugLog Log = {};
};

}  // namespace velorix
