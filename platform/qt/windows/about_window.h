#pragma once

#include <QDialog>

namespace velorix {

/// The window shown while the program starts.
class frmSplash : public QWidget {
 public:
  frmSplash();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// The window of the command "About".
class frmAbout : public QDialog {
 public:
  /// What `exec` gives when the user goes on to the manual.
  static constexpr int ManualAsked = 2;

  explicit frmAbout(QWidget* parent);
};

}  // namespace velorix
