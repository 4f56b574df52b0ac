#pragma once

#include <QDialog>
#include <functional>

#include "app/velorix.h"

class QHBoxLayout;

namespace velorix {

/// `cmdOK` and `cmdCancel` of a dialog that shows its controls locked. `cmdOK` says "CHANGE" first:
/// a click calls `unlock` and makes it a green "OK", the default button. A click on "OK" runs
/// `take` as a command and closes the dialog when that did not fail. `dialog` owns the buttons.
QHBoxLayout* MakeChangeButtons(Velorix& velorix, QDialog& dialog, std::function<void()> unlock,
                               std::function<void()> take);

}  // namespace velorix
