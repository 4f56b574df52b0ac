#pragma once

#include <QDialog>
#include <functional>

#include "app/commands/velorix.h"

class QHBoxLayout;
class QPushButton;

namespace velorix {

/// A button of a dialog with its system name and tip; buttons beside each other are of one width as
/// long as their captions are short.
QPushButton* MakeDialogButton(const char* name, const char* caption, const char* tip,
                              QWidget* parent);

/// `cmdOK` and `cmdCancel` of a dialog that shows its controls locked. `cmdOK` says "CHANGE" first:
/// a click calls `unlock` and makes it a green "OK", the default button. A click on "OK" runs
/// `take` as a command and closes the dialog when that did not fail. `dialog` owns the buttons.
QHBoxLayout* MakeChangeButtons(Velorix& velorix, QDialog& dialog,
                               const std::function<void()>& unlock,
                               const std::function<void()>& take);

}  // namespace velorix
