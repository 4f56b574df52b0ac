#pragma once

#include <optional>
#include <string>

#include "app/files/ask_file.h"
#include "plot/figure/figure_style.h"

namespace velorix {

/// Reads a style file (UTF-8 path). A file that can't be read, has more than 64 KiB or lines that
/// `ReadStyle` refuses is refused; `style` then stays.
Outcome ReadStyleFile(const std::string& path, FigureStyle& style);

/// Writes a style file. A failure is a `FileFault`; the old file then stands.
void WriteStyleFile(const std::string& path, const FigureStyle& style);

/// The path of the style that the program keeps in its folder.
std::string KeptStyleFile(const std::string& appFolder);

/// Asks for a style file to read, or for one to write. No answer when the user cancels.
std::optional<std::string> AskForStyleFile(const Session& session, Dialogs& dialogs,
                                           FileAction action);

}  // namespace velorix
