#pragma once

#include <string>
#include <string_view>

namespace velorix {

// Single-byte text of files is Windows-1252, text inside the program UTF-8. The five bytes that
// Windows-1252 leaves unassigned (81, 8D, 8F, 90, 9D) stand for the control characters of the same
// code, so that every byte comes back as it was.

/// The UTF-8 text of single-byte text.
std::string FromCodePage(std::string_view bytes);
/// The same into `text`, whose memory is kept.
void FromCodePage(std::string_view bytes, std::string& text);

/// The single-byte text of UTF-8. A character outside the page, and each byte that is part of no
/// well-formed character, becomes "?".
std::string ToCodePage(std::string_view text);

}  // namespace velorix
