#pragma once

#include <string>

#include "app/state/velorix.h"
#include "stats/study/untilting.h"

namespace velorix {

/// Asks for a file of any of the page's types and writes the figure of an untilting there. A
/// refusal is reported as the page's are.
void SaveUntilting(Velorix& velorix, const Untilting& untilting);

/// Writes the figure, as a metafile under any name or as a picture of the extension's type. Refused
/// with the reason; a metafile that can't be written is a `FileFault`.
Outcome WriteUntiltingFigure(const Host& host, const std::string& path, bool asMetafile,
                             const Untilting& untilting);

}  // namespace velorix
