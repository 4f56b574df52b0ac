#pragma once

#include <string>
#include <string_view>

#include "store/settings.h"

namespace velorix {

// The file of the preferences: lines "key=value" in the program's folder, beside the settings.

/// Its path in the program's folder.
std::string PreferencesFile(const std::string& appFolder);

/// The file's text.
std::string PreferencesText(const Preferences& preferences);

/// The preferences of a text. A key that is missing, unknown or has a bad value leaves the default.
/// The lines that are not understood are added to `bad`.
Preferences PreferencesOfText(std::string_view text, int& bad);

/// The same of the file at `path` (UTF-8); the defaults when it is missing or can't be read.
Preferences PreferencesRead(const std::string& path, int& bad);

/// Writes the file. A failure is a `FileFault`; the old file then stands.
void PreferencesWrite(const Preferences& preferences, const std::string& path);

}  // namespace velorix
