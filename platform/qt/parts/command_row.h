#pragma once

#include <functional>
#include <vector>

class QHBoxLayout;
class QWidget;

namespace velorix {

/// A button of a window's lower edge.
struct WindowCommand {
  const char *Name, *Caption, *Tip;
  std::function<void()> Do;
  const char* Key = "";  // a short-cut beside the letter of the caption
};

/// The row of a window's commands, `left` at its left end, the others at its right; the last one is
/// `cmdCLOSE`, which Esc does too.
QHBoxLayout* MakeCommandRow(QWidget& window, const char* closeTip,
                            const std::vector<WindowCommand>& left,
                            const std::vector<WindowCommand>& right);

}  // namespace velorix
