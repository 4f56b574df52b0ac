#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <functional>

#include "app/commands/velorix.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

namespace velorix {

class ContourControls;
class PictureWidget;

/// The window of the density contours: the picture, what is counted and how it is shown, commands.
/// While a count runs only `cmdCancel`, Escape and the window's own close button answer; each
/// cancels it.
class frmContour : public QWidget {
 public:
  /// A window owned by `owner`; `OnClose` is called when the user shuts it.
  frmContour(Velorix& velorix, QWidget* owner);
  ~frmContour() override;

  std::function<void()> OnClose;

  /// Captions and picture follow the session.
  void ShowState();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QSize ComfortableSize() const;
  QLayout* MakePicture();
  QLayout* MakeControls();
  void AddCommands(QVBoxLayout& column);
  QLayout* MakeProgress();
  QPushButton* AddCommand(QLayout& row, const char* name, const char* caption, const char* tip,
                          void (frmContour::*run)());

  void Count();
  void Cancel();
  void Redraw();
  void CopyPicture();
  void SavePicture();
  void Export();
  void Shut();

  bool GoOn(double share);
  void FollowMouse(double x, double y);

  Velorix& velorix_;
  PictureWidget* picture_ = nullptr;
  ContourControls* controls_ = nullptr;
  QLabel *caption_ = nullptr, *stale_ = nullptr, *levelsTitle_ = nullptr, *levels_ = nullptr,
         *cursor_ = nullptr, *time_ = nullptr, *clip_ = nullptr;
  QProgressBar* bar_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QElapsedTimer events_;  // since the window system was last listened to
  bool counting_ = false, cancelled_ = false;
};

}  // namespace velorix
