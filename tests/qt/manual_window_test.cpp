// The manual's window on the real pages, and on some of its own.

#include "platform/qt/windows/manual_window.h"

#include <QDesktopServices>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <memory>

#include "platform/qt/parts/own_paths.h"
#include "tests/qt/on_modal.h"

using namespace velorix;

class ManualWindowTest : public QObject {
  Q_OBJECT

  QTemporaryDir folder_;
  std::unique_ptr<frmManual> manual_;

  ManualPage& Page() { return In<ManualPage>(*manual_, "txtManual"); }
  template <class Control>
  Control& The(const char* name) {
    return In<Control>(*manual_, name);
  }
  void Press(const char* name) { The<QAbstractButton>(name).click(); }
  QString Write(const QString& name, const QByteArray& text) {
    QFile file(folder_.filePath(name));
    if (!file.open(QIODevice::WriteOnly)) qFatal("no page");
    file.write(text);
    return file.fileName();
  }
  void Show(const QString& page) {
    manual_ = std::make_unique<frmManual>(page, nullptr);
    manual_->show();
    manual_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(manual_.get()));
  }
  /// Follows a link as Tab and Return do.
  void Follow(const QString& target) {
    for (int i = 0; i < 200; ++i) {
      QTest::keyClick(&Page(), Qt::Key_Tab);
      if (Page().textCursor().charFormat().anchorHref() == target) {
        QTest::keyClick(&Page(), Qt::Key_Return);
        return;
      }
    }
    QFAIL(qPrintable("no link " + target));
  }
  QString FirstLineInView() { return Page().cursorForPosition(QPoint(30, 12)).block().text(); }

 private slots:
  void cleanup() { manual_.reset(); }

  void aboutAndItsKeyLeadToTheFirstPage() {
    TestWindow w;
    const auto open = [&w] { return w.Window.findChild<frmManual*>("frmManual"); };
    OnModal<QDialog>(
        [](QDialog& about) { about.findChild<QAbstractButton*>("cmdManual")->click(); });
    w.The<QAction>("mnuAbout").trigger();
    QVERIFY(open() && open()->isVisible());
    QCOMPARE(open()->windowTitle(), "The Velorix manual - Manual");
    QVERIFY(QTest::qWaitForWindowActive(open()));
    QTest::keyClick(open(), Qt::Key_Escape);
    QVERIFY(!open()->isVisible());
    w.Window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w.Window));
    w.Key(Qt::Key_F1, Qt::ShiftModifier);
    QVERIFY(open()->isVisible());
    QCOMPARE(w.Window.findChildren<frmManual*>("frmManual").size(), 1);
  }

  void linksLeadToPagesAndBack() {
    Show(ManualPath());
    const auto file = [this] { return QFileInfo(Page().source().toLocalFile()).fileName(); };
    QVERIFY(!The<QAbstractButton>("cmdBack").isEnabled());
    Follow("tutorial.md");
    QCOMPARE(file(), "tutorial.md");
    QVERIFY(manual_->windowTitle().startsWith(Page().document()->firstBlock().text()));
    for (const auto& [button, page] :
         {std::pair{"cmdBack", "README.md"}, std::pair{"cmdForward", "tutorial.md"},
          std::pair{"cmdHome", "README.md"}}) {
      Press(button);
      QCOMPARE(file(), page);
    }
  }

  /// Every link of every page of the manual leads to a page and, where it names one, to a heading.
  void noLinkOfTheManualIsDead() {
    Show(ManualPath());
    QList<QUrl> pages = {QUrl::fromLocalFile(ManualPath())};
    QSet<QUrl> headings, targets;
    for (qsizetype i = 0; i < pages.size(); ++i) {
      Page().setSource(pages[i]);
      for (QTextBlock block = Page().document()->begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part) {
          const QTextCharFormat format = part.fragment().charFormat();
          for (const QString& name : format.anchorNames())
            headings += pages[i].resolved(QUrl("#" + name));
          const QUrl target = pages[i].resolved(QUrl(format.anchorHref()));
          if (!target.isLocalFile()) continue;
          QVERIFY2(QFileInfo::exists(target.toLocalFile()), qPrintable(target.toString()));
          if (target.hasFragment()) targets += target;
          const QUrl page = target.adjusted(QUrl::RemoveFragment);
          if (page.path().endsWith(".md") && !pages.contains(page)) pages += page;
        }
    }
    for (const QUrl& target : targets)
      QVERIFY2(headings.contains(target), qPrintable(target.toString()));
    QVERIFY(pages.size() > 10 && targets.size() > 20);
  }

  void aLinkToAHeadingShowsItAtTheTop() {
    const QByteArray lines = QByteArray("line\n\n").repeated(100);
    Write("b.md", "# Other\n\n" + lines + "## Deep\n\n" + lines);
    Show(Write("a.md", "# First\n\n[there](#what-f-1-is-a_b)\n\n[other](b.md#deep)\n\n" + lines +
                           "## What F-1 is (a_b)?\n\n" + lines));
    Follow("#what-f-1-is-a_b");
    QCOMPARE(FirstLineInView(), "What F-1 is (a_b)?");
    Press("cmdBack");
    QCOMPARE(Page().verticalScrollBar()->value(), 0);
    Follow("b.md#deep");
    QCOMPARE(FirstLineInView(), "Deep");
  }

  void aMissingPageSaysWhatIsMissingAndBackLeadsOut() {
    Show({});
    QVERIFY(Page().toPlainText().contains("share/doc/velorix/manual"));
    QVERIFY(!The<QAbstractButton>("cmdHome").isEnabled());

    Show(Write("a.md", "# A\n\n[gone](gone.md)\n"));
    Follow("gone.md");
    QVERIFY(Page().toPlainText().contains(folder_.filePath("gone.md")));
    Press("cmdBack");
    QCOMPARE(Page().document()->firstBlock().text(), "A");
  }

  void widePicturesFitThePageInEveryWidth() {
    QImage picture(3000, 100, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(folder_.filePath("wide.png")));
    Show(Write("a.md", "# A\n\n![wide](wide.png)\n"));
    for (const int width : {1000, 600, 1200}) {
      manual_->resize(width, 500);
      QTRY_VERIFY(Page().document()->idealWidth() <= Page().viewport()->width());
      QTRY_VERIFY(Page().document()->idealWidth() > Page().viewport()->width() - 60);
      QCOMPARE(Page().horizontalScrollBar()->maximum(), 0);
    }
  }

  void linksAreReadOnDarkPages() {
    QApplication::setPalette(QPalette(QColor(0x35, 0x35, 0x35)));
    Show(Write("a.md", "# A\n\n[there](a.md) and more\n"));
    const QTextBlock line = Page().document()->lastBlock();
    QTextCursor link(line);
    link.movePosition(QTextCursor::NextCharacter);
    QCOMPARE(link.charFormat().anchorHref(), "a.md");
    const int ground = Page().palette().color(QPalette::Base).lightness();
    const int text = link.charFormat().foreground().color().lightness();
    QApplication::setPalette(QPalette());
    QVERIFY2(ground < 80 && text > 150, qPrintable(QString("%1 on %2").arg(text).arg(ground)));
  }

  void linksOutOfTheManualGoToTheDesktop() {
    QDesktopServices::setUrlHandler("https", this, "take");
    QDesktopServices::setUrlHandler("file", this, "take");
    Write("data.txt", "x");
    Show(Write("a.md", "# A\n\n[net](https://example.org/) [data](data.txt)\n"));
    Follow("https://example.org/");
    Follow("data.txt");
    QDesktopServices::unsetUrlHandler("https");
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(taken_, (QList<QUrl>{QUrl("https://example.org/"),
                                  QUrl::fromLocalFile(folder_.filePath("data.txt"))}));
    QVERIFY(Page().source().toLocalFile().endsWith("a.md"));
  }

  void searchGoesRoundThePage() {
    Show(Write("a.md", "# A\n\nword one\n\nword two\n"));
    QTest::keyClick(manual_.get(), Qt::Key_F, Qt::ControlModifier);
    auto& sought = The<QLineEdit>("txtFind");
    QTRY_VERIFY(sought.hasFocus());
    QTest::keyClicks(&sought, "word");
    const auto place = [&](Qt::KeyboardModifiers keys = {}) {
      QTest::keyClick(&sought, Qt::Key_Return, keys);
      return Page().textCursor().block().text();
    };
    for (const char* found : {"word one", "word two", "word one"}) QCOMPARE(place(), found);
    QCOMPARE(place(Qt::ShiftModifier), "word two");
    QTest::keyClicks(&sought, "s");
    place();
    QCOMPARE(The<QLabel>("lblFound").text(), "not on this page");
  }

 public slots:
  void take(const QUrl& url) { taken_ += url; }

 private:
  QList<QUrl> taken_;
};

QTEST_MAIN(ManualWindowTest)
#include "manual_window_test.moc"
