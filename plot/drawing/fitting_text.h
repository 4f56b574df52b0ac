#pragma once

#include <string>
#include <vector>

namespace velorix {

/// The width of a line of bold Arial letters in heights of theirs, as well as can be said without
/// the font, rather too wide than too narrow. A control character is as wide as a blank.
double TextWidth(const std::string& text);

/// `text` on one line of `room` heights of Arial letters: control characters become blanks, and
/// dots stand for the middle where it is too long, as well as can be said without the font.
std::string FittingText(const std::string& text, double room);

/// `text` in lines of at most `room` heights of Arial letters, parted at blanks; a word that is
/// wider is shortened.
std::vector<std::string> WrappedText(const std::string& text, double room);

}  // namespace velorix
