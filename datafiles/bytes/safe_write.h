#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <system_error>

namespace velorix {

/// What becomes of a file that is replaced: it goes, or it stays beside the new one under its name
/// with "~" behind it, in place of an earlier one of that name.
enum class FormerFile { Goes, Stays };

/// Writes a file so that either the old or the new one is there, whole, also when writing fails or
/// the program or the power ends on the way: `write` fills a new file in the same folder, which
/// goes to the device and is then renamed over `path` (UTF-8). A link's target is replaced, not the
/// link; the permissions of a replaced file stay. What is no regular file, such as a device or a
/// pipe, is written as it stands, and what fails on the way has been written in part.
///
/// A `FileFault` with the system's reason when the folder or an existing file can't be written, the
/// disk is full or the former file can't be kept; what `write` throws passes. The new file is then
/// gone. A program that is killed on the way leaves it, as velorix-*.new.
void SafeWrite(const std::string& path, const std::function<void(std::ostream&)>& write,
               FormerFile former = FormerFile::Goes);

/// Waits until what was written to a file is on the device.
using FlushFile = std::error_code (*)(const std::filesystem::path& path);
/// Gives the system's own, which the standard library lacks; without one nothing waits for the
/// device. Called once, at the start of a program.
void SetFlushFile(FlushFile flush);

}  // namespace velorix
