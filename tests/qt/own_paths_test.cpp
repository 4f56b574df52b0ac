// What comes with the program, found from where the program stands.

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "platform/qt/parts/own_paths.h"

using namespace velorix;

class OwnPathsTest : public QObject {
  Q_OBJECT

 private slots:
  void AnInstallationsFileIsTakenBeforeTheSources() {
    QTemporaryDir sources;
    const QDir root(sources.path());
    const QString bin = root.filePath("build/release/bin");
    for (const char* folder :
         {"docs/manual", "build/release/bin", "build/release/share/doc/manual"})
      QVERIFY(root.mkpath(folder));
    const auto found = [&](const QString& installed, const QString& source) {
      return root.relativeFilePath(OwnPath(bin, installed, source));
    };
    QCOMPARE(found("doc/manual", "docs/manual"), "build/release/share/doc/manual");
    QCOMPARE(found("doc/guide", "docs/manual"), "docs/manual");
    QVERIFY(OwnPath(bin, "doc/guide", "docs/guide").isEmpty());
  }

  void ABuildOfTheSourcesFindsTheirExamplesAndManual() {
    const QDir sources(QDir(VELORIX_SOURCE_DIR).canonicalPath());
    if (QDir(QCoreApplication::applicationDirPath() + "/../../..").canonicalPath() !=
        sources.path())
      QSKIP("built elsewhere");
    QCOMPARE(sources.relativeFilePath(ExamplesFolder()), "examples");
    QCOMPARE(sources.relativeFilePath(ManualPath()), "docs/manual/README.md");
  }
};

QTEST_GUILESS_MAIN(OwnPathsTest)
#include "own_paths_test.moc"
