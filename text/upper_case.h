#pragma once

#include <string>
#include <string_view>

namespace velorix {

/// UTF-8 text in upper case, letter by letter and without any locale: ASCII, the Latin letters up
/// to U+017E, Greek without accents and Cyrillic up to U+045F. Everything else, bytes that are no
/// UTF-8 too, stays as it is.
std::string UpperCase(std::string_view text);

/// The same in lower case.
std::string LowerCase(std::string_view text);

}  // namespace velorix
