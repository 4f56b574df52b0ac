#pragma once

#include <QString>

namespace velorix {

/// Full path of a file or folder that comes with the program whose executable stands in the folder
/// `bin`: `installed` in the `share` of an installation, else `source` among the sources that the
/// program was built in, as build/PRESET/bin. Empty when it is in neither.
QString OwnPath(const QString& bin, const QString& installed, const QString& source);

/// The folder of the example files, of the running program; empty when there is none.
QString ExamplesFolder();

/// The first page of the manual, of the running program; empty when there is none.
QString ManualPath();

}  // namespace velorix
