#include "platform/qt/parts/own_paths.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace velorix {

QString OwnPath(const QString& bin, const QString& installed, const QString& source) {
  for (const QString& path : {bin + "/../share/" + installed, bin + "/../../../" + source})
    if (const QFileInfo file(path); file.exists()) return file.canonicalFilePath();
  return {};
}

QString ExamplesFolder() {
  return OwnPath(QCoreApplication::applicationDirPath(), "velorix/examples", "examples");
}

QString ManualPath() {
  return OwnPath(QCoreApplication::applicationDirPath(), "doc/velorix/manual/README.md",
                 "docs/manual/README.md");
}

}  // namespace velorix
