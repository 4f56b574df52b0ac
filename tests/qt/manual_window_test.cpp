// The manual's window on the real pages, and on some of its own; where the program finds them.

#include "platform/qt/windows/manual_window.h"

#include <QDesktopServices>
#include <QImage>
#include <QLineEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <memory>

#include "platform/qt/parts/own_paths.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class ManualWindowTest : public QObject {
  Q_OBJECT

  static constexpr char FirstPage[] = VELORIX_SOURCE_DIR "/docs/manual/README.md";
  QTemporaryDir folder_;
  std::unique_ptr<frmManual> manual_;

  ManualPage& Page() { return In<ManualPage>(*manual_, "txtManual"); }
  QTextDocument& Document() { return *Page().document(); }
  QString File() { return Page().source().fileName(); }
  void Press(const char* name) { velorix::Press(*manual_, name); }
  QString Write(const QString& name, const QByteArray& text) {
    QFile file(folder_.filePath(name));
    if (!file.open(QIODevice::WriteOnly)) qFatal("no page");
    file.write(text);
    return file.fileName();
  }
  void Show(const QString& page) {
    manual_ = std::make_unique<frmManual>(page, nullptr);
    manual_->show();
    QVERIFY(Activate(*manual_));
  }
  /// Follows a link as Tab and Return do.
  void Follow(const QString& target) {
    for (int i = 0; i < 200; ++i) {
      QTest::keyClick(&Page(), Qt::Key_Tab);
      if (Page().textCursor().charFormat().anchorHref() != target) continue;
      return QTest::keyClick(&Page(), Qt::Key_Return);
    }
    QFAIL(qPrintable("no link " + target));
  }
  QString FirstLineInView() { return Page().cursorForPosition(QPoint(30, 12)).block().text(); }

 private slots:
  void cleanup() { manual_.reset(); }

  void aboutAndItsKeyLeadToTheFirstPage() {
    TestWindow w;
    OnModal<QDialog>([](QDialog& about) { velorix::Press(about, "cmdManual"); });
    w.Run("mnuAbout");
    auto* manual = w.Window.findChild<frmManual*>("frmManual");
    QVERIFY(manual && manual->isVisible());
    QCOMPARE(manual->windowTitle(), ManualPath().isEmpty() ? "The page is not there - Manual"
                                                           : "The Velorix manual - Manual");
    QVERIFY(Activate(*manual));
    QTest::keyClick(manual, Qt::Key_Escape);
    QVERIFY(!manual->isVisible() && Activate(w.Window));
    w.Key(Qt::Key_F1, Qt::ShiftModifier);
    QVERIFY(manual->isVisible());
    QCOMPARE(w.Window.findChildren<frmManual*>("frmManual").size(), 1);
  }

  void linksLeadToPagesAndBack() {
    Show(FirstPage);
    QCOMPARE(Look(*manual_, "cmdBack cmdForward"), "(&Back)|(&Forward)");
    Follow("tutorial.md");
    QCOMPARE(File(), "tutorial.md");
    QVERIFY(manual_->windowTitle().startsWith(Document().firstBlock().text()));
    for (const auto& [button, page] :
         {std::pair{"cmdBack", "README.md"}, std::pair{"cmdForward", "tutorial.md"},
          std::pair{"cmdHome", "README.md"}}) {
      Press(button);
      QCOMPARE(File(), page);
    }
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
    QCOMPARE(Look(*manual_, "cmdHome"), "(&Contents)");
    Show(Write("a.md", "# A\n\n[gone](gone.md)\n"));
    Follow("gone.md");
    QVERIFY(Page().toPlainText().contains(folder_.filePath("gone.md")));
    Press("cmdBack");
    QCOMPARE(File(), "a.md");
  }

  void widePicturesFitThePageInEveryWidth() {
    QImage picture(3000, 100, QImage::Format_RGB32);
    QVERIFY(picture.save(folder_.filePath("wide.png")));
    Show(Write("a.md", "# A\n\n![wide](wide.png)\n"));
    for (const int width : {1000, 600, 1200}) {
      manual_->resize(width, 500);
      const auto margin = [this] { return Page().viewport()->width() - Document().idealWidth(); };
      QTRY_VERIFY(margin() >= 0 && margin() < 60);
    }
  }

  void linksAreReadOnDarkPages() {
    QApplication::setPalette(QPalette(QColor(0x35, 0x35, 0x35)));
    Show(Write("a.md", "# A\n\n[there](a.md) and more\n"));
    QTextCursor link(Document().lastBlock());
    link.movePosition(QTextCursor::NextCharacter);
    const int ground = Page().palette().color(QPalette::Base).lightness();
    const int text = link.charFormat().foreground().color().lightness();
    QApplication::setPalette(QPalette());
    QVERIFY2(ground < 80 && text > 150, qPrintable(QString("%1 on %2").arg(text).arg(ground)));
  }

  void linksOutOfTheManualGoToTheDesktop() {
    for (const char* scheme : {"https", "file"})
      QDesktopServices::setUrlHandler(scheme, this, "take");
    Write("data.txt", "x");
    Show(Write("a.md", "# A\n\n[net](https://example.org/) [data](data.txt)\n"));
    for (const char* link : {"https://example.org/", "data.txt"}) Follow(link);
    for (const char* scheme : {"https", "file"}) QDesktopServices::unsetUrlHandler(scheme);
    QCOMPARE(taken_, (QList<QUrl>{QUrl("https://example.org/"),
                                  QUrl::fromLocalFile(folder_.filePath("data.txt"))}));
    QCOMPARE(File(), "a.md");
  }

  void searchGoesRoundThePage() {
    Show(Write("a.md", "# A\n\nword one\n\nword two\n"));
    QTest::keyClick(manual_.get(), Qt::Key_F, Qt::ControlModifier);
    auto& sought = In<QLineEdit>(*manual_, "txtFind");
    QTRY_VERIFY(sought.hasFocus());
    QTest::keyClicks(&sought, "word");
    for (const auto& [keys, found] : {std::pair{Qt::NoModifier, "word one"},
                                      {Qt::NoModifier, "word two"},
                                      {Qt::NoModifier, "word one"},
                                      {Qt::ShiftModifier, "word two"}}) {
      QTest::keyClick(&sought, Qt::Key_Return, keys);
      QCOMPARE(Page().textCursor().block().text(), found);
    }
    QTest::keyClicks(&sought, "s");
    QTest::keyClick(&sought, Qt::Key_Return);
    QCOMPARE(Look(*manual_, "lblFound"), "not on this page");
  }

  void anInstallationsFileIsTakenBeforeTheSources() {
    const QTemporaryDir sources;
    const QDir root(sources.path());
    const QString bin = root.filePath("build/release/bin");
    for (const char* folder :
         {"docs/manual", "build/release/bin", "build/release/share/doc/manual"})
      QVERIFY(root.mkpath(folder));
    const auto found = [&](const char* installed, const char* source) {
      return root.relativeFilePath(OwnPath(bin, installed, source));
    };
    QCOMPARE(found("doc/manual", "docs/manual"), "build/release/share/doc/manual");
    QCOMPARE(found("doc/guide", "docs/manual"), "docs/manual");
    QVERIFY(OwnPath(bin, "doc/guide", "docs/guide").isEmpty());
  }

 public slots:
  void take(const QUrl& url) { taken_ += url; }

 private:
  QList<QUrl> taken_;
};

QTEST_MAIN(ManualWindowTest)
#include "manual_window_test.moc"
