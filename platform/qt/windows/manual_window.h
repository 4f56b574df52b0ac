#pragma once

#include <QTextBrowser>
#include <QTimer>

class QLabel;
class QLineEdit;

namespace velorix {

/// A page of the manual: Markdown with pictures, which fit the window, and links, which lead to
/// headings, to other pages, or out of the manual into the desktop's programs.
class ManualPage : public QTextBrowser {
 public:
  explicit ManualPage(QWidget* parent);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void doSetSource(const QUrl& page, QTextDocument::ResourceType type) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void DressPage(const QUrl& page);
  void FitPictures();

  QTimer fit_;             // behind the last change of the width
  int pictureWidth_ = -1;  // that the page was loaded for
};

/// The window of the manual.
class frmManual : public QWidget {
 public:
  /// Shows `firstPage`, the full path of a Markdown file. Where there is none it says so.
  frmManual(const QString& firstPage, QWidget* owner);

 private:
  QLayout* MakeBar(const QUrl& home);
  void Find(bool backward);

  ManualPage* page_;
  QLineEdit* sought_ = nullptr;
  QLabel* found_ = nullptr;
};

}  // namespace velorix
