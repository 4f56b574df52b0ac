#pragma once

#include <string>

namespace velorix {

/// Puts a metafile (its bits, without a file's header) and the SVG of the same picture on the
/// clipboard of Windows, in that system's own form: a metafile picture of 240 by 180 mm whose
/// shape may be changed. False, with the clipboard as it was, where another program holds it.
bool PutOnClipboard(const std::string& metafile, const std::string& svg);

}  // namespace velorix
