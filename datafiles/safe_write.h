#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

namespace velorix {

/// Writes a file so that either the old or the new one is there, whole, also when writing fails or
/// the program ends on the way: `write` fills a new file in the same folder, which is then renamed
/// over `path` (UTF-8). It doesn't wait for the disk, so this isn't promised after a power cut. A
/// link's target is replaced, not the link; the permissions of a replaced file stay. What is no
/// regular file, such as a device or a pipe, is written as it stands, and what fails on the way has
/// been written in part.
///
/// A `FileFault` with the system's reason when the folder or an existing file can't be written, or
/// the disk is full; what `write` throws passes. The new file is then gone. A program that is
/// killed on the way leaves it, as velorix-*.new.
void SafeWrite(const std::string& path, const std::function<void(std::ostream&)>& write);

}  // namespace velorix
