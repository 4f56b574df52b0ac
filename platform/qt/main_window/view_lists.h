#pragma once

#include <QWidget>

#include "app/commands/velorix.h"

class QComboBox;
class QHBoxLayout;

namespace velorix {

/// The row of lists above the views: coordinate system, plane, axis, and the codes of the foliation
/// and the lineation that the rotation uses.
class ViewLists : public QWidget {
 public:
  ViewLists(Velorix& velorix, QWidget* parent);

  /// The positions of the coordinate lists follow the session.
  void ShowChoices();
  /// The lists of codes are filled again.
  void ShowCodeLists();

 private:
  QComboBox* Add(const char* label, const char* name, const char* tip, int characters,
                 void (*choose)(Velorix&, int));

  Velorix& velorix_;
  QComboBox *cboCoor_[3], *odclFoli_, *odclLine_;
};

}  // namespace velorix
