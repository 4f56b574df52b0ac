#pragma once

#include <string>

#include "app/state/host.h"
#include "stats/study/untilting.h"

namespace velorix {

/// Writes the figure of an untilting with its `heading`, as a metafile under any name or as a
/// picture of the extension's type. Refused with the reason; a metafile that can't be written is a
/// `FileFault`.
Outcome WriteUntiltingFigure(const Host& host, const std::string& path, bool asMetafile,
                             const Untilting& untilting, const std::string& heading);

}  // namespace velorix
