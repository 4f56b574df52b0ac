#pragma once

#include <QColor>
#include <QComboBox>
#include <QIcon>
#include <QString>
#include <string>

#include "plot/drawing/target.h"

class QTableView;

namespace velorix {

/// Small things that every window needs.

inline QString ToQString(const std::string& text) { return QString::fromStdString(text); }

QColor ToQColor(Colour colour);

/// A picture of the folder "pics": in the program's folder, else beside the executable, else where
/// an installation puts it. An empty icon when it is in none of them.
QIcon LoadPicture(const std::string& appFolder, const char* file);

/// One of the program's own icons, by its name in the table of commands.
QIcon OwnIcon(const std::string& name);

/// A button of any kind with its system name, caption and tip.
template <class Button>
Button* MakeButton(const QString& name, const QString& caption, const QString& tip,
                   QWidget* parent) {
  auto* button = new Button(caption, parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  return button;
}

/// An entry of an owner-drawn list: its colour stands beside the text, and behind it when the list
/// is open.
void AddEntry(QComboBox& list, const QString& text, Colour colour);

/// A list with its system name and tip, as wide as `characters`, or with 0 as its
/// widest entry.
QComboBox* MakeList(const QString& name, const QString& tip, int characters, QWidget* parent);

/// Widens the column that the table is sorted by where its header and the arrow need more.
void FitSortedHeader(QTableView& table);

}  // namespace velorix
