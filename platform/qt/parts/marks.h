#pragma once

#include <QColor>

class QLabel;

namespace velorix {

/// What the background of a cell or field means.
enum class Mark {
  Doubt,    // it is not read as it stands
  Matched,  // it came from a geological file
  Fixed,    // it can't be changed
  Group,    // it belongs to every other group of columns
};

/// The ground's colour; the desktop's text, dark on light or light on dark, can be read on it.
QColor MarkColour(Mark mark);

/// Gives a line of text the ground of a doubt, or takes it away.
void MarkLabel(QLabel& label, bool marked);

}  // namespace velorix
