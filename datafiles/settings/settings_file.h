#pragma once

#include <string>
#include <string_view>

#include "store/settings.h"

namespace velorix {

// The settings file: 13 lines of single-byte text, each a value, its key in column 8 and a bar in
// column 18. The meaning of a line is its place alone.

/// Fills `record` with the settings of a first start.
void SettingsDefaults(Settings& record);

/// The text of the settings file, lines ended by CR LF.
std::string SettingsText(const Settings& record);

/// Reads the 13 lines of `bytes`; a line ends with CR LF, LF or CR. False when lines or tokens are
/// missing or a value fits no 16-bit integer; `record` then holds what was read so far. What
/// follows the 13th line is ignored.
bool SettingsReadText(Settings& record, std::string_view bytes);

/// `SettingsReadText` of the file at `path` (UTF-8), of which the first 65536 bytes are looked at;
/// false also when it can't be read.
bool SettingsRead(Settings& record, const std::string& path);

/// Writes the file at `path`, by way of a new file beside it, so that either the old or the new one
/// is there whole. A failure is a `FileFault`; the old file then stands.
void SettingsWrite(const Settings& record, const std::string& path);

/// Reads the settings; when the file is missing or bad takes the defaults and writes them, so that
/// the file is mended in passing.
void LoadSettings(Settings& settings, const std::string& path);

}  // namespace velorix
