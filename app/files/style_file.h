#pragma once

#include <string>

#include "plot/figure/figure_style.h"

namespace velorix {

/// Reads a style file (UTF-8 path). A file that can't be read, has more than 64 KiB or lines that
/// `ReadStyle` refuses is refused; `style` then stays.
Outcome ReadStyleFile(const std::string& path, FigureStyle& style);

/// Writes a style file. A failure is a `FileFault`; the old file then stands.
void WriteStyleFile(const std::string& path, const FigureStyle& style);

}  // namespace velorix
