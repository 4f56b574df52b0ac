#include "platform/qt/windows/manual_window.h"
#include "platform/qt/parts/change_buttons.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextTable>
#include <QVBoxLayout>

namespace velorix {
namespace {

constexpr int FitDelay = 150;  // milliseconds

constexpr char Missing[] =
    "# The page is not there\n\nThe manual is looked for in `share/doc/velorix/manual` of the "
    "installation, and in `docs/manual` of the sources that the program was built in.\n\n";

bool IsDark(const QPalette& colours) {
  return colours.color(QPalette::Base).lightness() < colours.color(QPalette::Text).lightness();
}

/// The name that links give a heading: small letters, digits, hyphens for blanks.
QString AnchorOf(const QString& heading) {
  static const QRegularExpression other("[^\\w\\- ]");
  return heading.toLower().remove(other).replace(' ', '-');
}

/// Room around the lines; headings get the names that links know them by.
void DressLines(QTextDocument& page, const QPalette& colours) {
  QHash<QString, int> seen;
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    const int level = block.blockFormat().headingLevel();
    QTextBlockFormat room;
    if (level == 0) {
      if (block.text().contains(QChar::ObjectReplacementCharacter)) continue;  // a picture
      const bool code = block.blockFormat().hasProperty(QTextFormat::BlockCodeLanguage) ||
                        block.blockFormat().hasProperty(QTextFormat::BlockCodeFence);
      if (code)
        room.setBackground(colours.brush(QPalette::Window));
      else
        room.setLineHeight(125, QTextBlockFormat::ProportionalHeight);
      cursor.mergeBlockFormat(room);
      continue;
    }
    QString name = AnchorOf(block.text());
    if (const int before = seen[name]++) name += QString("-%1").arg(before);
    QTextCharFormat anchor;
    anchor.setAnchor(true);
    anchor.setAnchorNames({name});
    cursor.mergeCharFormat(anchor);
    room.setTopMargin(level == 1 ? 4 : 18);
    room.setBottomMargin(6);
    cursor.mergeBlockFormat(room);
  }
}

/// The blue of links that many desktops keep in their dark theme can't be read there.
void LightenLinks(QTextDocument& page) {
  QTextCharFormat light;
  light.setForeground(QColor(0x7A, 0xB8, 0xFF));
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      if (part.fragment().charFormat().anchorHref().isEmpty()) continue;
      QTextCursor cursor(&page);
      cursor.setPosition(part.fragment().position());
      cursor.setPosition(part.fragment().position() + part.fragment().length(),
                         QTextCursor::KeepAnchor);
      cursor.mergeCharFormat(light);
    }
}

void DressTables(QTextDocument& page, const QPalette& colours) {
  for (QTextFrame* frame : page.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (!table) continue;
    QTextTableFormat format = table->format();
    format.setBorder(1);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(IsDark(colours) ? colours.brush(QPalette::Button)
                                          : QBrush(Qt::lightGray));
    format.setCellPadding(5);
    format.setCellSpacing(0);
    format.setTopMargin(6);
    format.setBottomMargin(10);
    table->setFormat(format);
  }
}

}  // namespace

ManualPage::ManualPage(QWidget* parent) : QTextBrowser(parent) {
  setObjectName("txtManual");
  setAccessibleName("Page of the manual");
  setOpenExternalLinks(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // the pictures' width stays
  document()->setDocumentMargin(18);
  document()->setUndoRedoEnabled(false);
  connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& page) { DressPage(page); });
  fit_.setSingleShot(true);
  fit_.setInterval(FitDelay);
  connect(&fit_, &QTimer::timeout, this, [this] { FitPictures(); });
}

/// Pictures wider than the page are made as wide as it is, in the screen's own pixels.
QVariant ManualPage::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
  QImage picture(document()->baseUrl().resolved(name).toLocalFile());
  if (picture.isNull()) return {};
  const int room = viewport()->width() - 2 * static_cast<int>(document()->documentMargin());
  if (picture.width() <= room) return picture;
  const double density = devicePixelRatioF();
  picture = picture.scaledToWidth(static_cast<int>(room * density), Qt::SmoothTransformation);
  picture.setDevicePixelRatio(density);
  return picture;
}

void ManualPage::doSetSource(const QUrl& page, QTextDocument::ResourceType type) {
  const QFileInfo file(page.toLocalFile());
  if (file.isFile() && file.suffix() != "md") {
    QDesktopServices::openUrl(page);
    return;
  }
  pictureWidth_ = viewport()->width();
  QTextBrowser::doSetSource(page, type);
}

/// The toolkit reports a page before `source` knows it.
void ManualPage::DressPage(const QUrl& page) {
  const QString path = page.toLocalFile();
  if (!QFileInfo(path).isFile())
    setMarkdown(Missing + (path.isEmpty() ? QString() : "Sought was `" + path + "`.\n"));
  QTextCursor all(document());
  all.beginEditBlock();  // which is laid out once
  DressLines(*document(), palette());
  if (IsDark(palette())) LightenLinks(*document());
  DressTables(*document(), palette());
  all.endEditBlock();
  const QString title = document()->firstBlock().text();
  window()->setWindowTitle(title.isEmpty() ? "Manual" : title + " - Manual");
  if (page.hasFragment()) scrollToAnchor(page.fragment());
}

void ManualPage::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (viewport()->width() != pictureWidth_) fit_.start();
}

/// Loads the page for its new width; the reader stays where he is.
void ManualPage::FitPictures() {
  if (source().isEmpty() || viewport()->width() == pictureWidth_) return;
  QScrollBar* bar = verticalScrollBar();
  const double place = bar->maximum() ? double(bar->value()) / bar->maximum() : 0;
  reload();
  bar->setValue(static_cast<int>(place * bar->maximum()));
}

frmManual::frmManual(const QString& firstPage, QWidget* owner)
    : QWidget(owner, Qt::Window), page_(new ManualPage(this)) {
  setObjectName("frmManual");
  setWindowTitle("Manual");
  setAttribute(Qt::WA_QuitOnClose, false);
  const QUrl home = firstPage.isEmpty() ? QUrl() : QUrl::fromLocalFile(firstPage);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  column->addLayout(MakeBar(home));
  column->addWidget(page_, 1);
  const QFontMetrics letters = fontMetrics();
  const QSize comfortable(letters.averageCharWidth() * 150, letters.height() * 50);
  resize(comfortable.boundedTo(screen()->availableSize() * 0.9).expandedTo(QSize(880, 620)));
  page_->setFocus();
  if (home.isEmpty())
    emit page_->sourceChanged(home);
  else
    page_->setSource(home);
}

/// Home, back and forth at the left, the search at the right.
QLayout* frmManual::MakeBar(const QUrl& home) {
  auto* row = new QHBoxLayout;
  const auto button = [&](const char* name, const char* caption, const char* tip) {
    QPushButton* made = MakeDialogButton(name, caption, tip, this);
    row->addWidget(made);
    return made;
  };
  QPushButton* contents = button("cmdHome", "&Contents", "The first page, with the contents");
  contents->setEnabled(!home.isEmpty());
  connect(contents, &QPushButton::clicked, page_, [this, home] { page_->setSource(home); });
  QPushButton* back = button("cmdBack", "&Back", "The page before this one [Alt+Left]");
  QPushButton* forward = button("cmdForward", "&Forward", "The page left by Back [Alt+Right]");
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(back, &QPushButton::clicked, page_, &QTextBrowser::backward);
  connect(forward, &QPushButton::clicked, page_, &QTextBrowser::forward);
  connect(page_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
  connect(page_, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
  row->addStretch(1);

  found_ = new QLabel(this);
  found_->setObjectName("lblFound");
  row->addWidget(found_);
  auto* label = new QLabel("&Search", this);
  row->addWidget(label);
  sought_ = new QLineEdit(this);
  sought_->setObjectName("txtFind");
  sought_->setToolTip("Words on this page; Return goes to the next, Shift+Return back [Ctrl+F]");
  sought_->setClearButtonEnabled(true);
  label->setBuddy(sought_);
  row->addWidget(sought_);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, sought_, [this] {
    sought_->setFocus();
    sought_->selectAll();
  });
  connect(sought_, &QLineEdit::textChanged, found_, &QLabel::clear);
  connect(sought_, &QLineEdit::returnPressed, this, [this] { Find(false); });
  auto* upward = new QShortcut(QKeySequence("Shift+Return"), sought_);
  upward->setContext(Qt::WidgetShortcut);
  connect(upward, &QShortcut::activated, this, [this] { Find(true); });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
  return row;
}

/// From the last place found on, and around the page's end.
void frmManual::Find(bool backward) {
  const QTextDocument::FindFlags flags =
      backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (page_->find(sought_->text(), flags)) return found_->clear();
  const QTextCursor last = page_->textCursor();
  page_->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
  const bool found = page_->find(sought_->text(), flags);
  if (!found) page_->setTextCursor(last);
  found_->setText(found ? "" : "not on this page");
}

}  // namespace velorix
