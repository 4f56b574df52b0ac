// What comes with the program, found from where the program stands.

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "platform/qt/parts/own_paths.h"

using namespace velorix;

class OwnPathsTest : public QObject {
  Q_OBJECT

 private slots:
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

  void aBuildOfTheSourcesFindsTheirExamplesAndManual() {
    const QDir root(QCoreApplication::applicationDirPath() + "/../../..");
    if (!root.exists("docs/manual/README.md")) QSKIP("built elsewhere");
    QCOMPARE(root.relativeFilePath(ExamplesFolder()), "examples");
    QCOMPARE(root.relativeFilePath(ManualPath()), "docs/manual/README.md");
  }
};

QTEST_GUILESS_MAIN(OwnPathsTest)
#include "own_paths_test.moc"
