#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace velorix {

// Paths are UTF-8 texts inside the program and std::filesystem::path only where a file is touched.

/// The platform's separator of folders: "/", or "\" where "/" is understood as well.
inline constexpr char PathSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

std::filesystem::path PathOf(std::string_view utf8);
std::string Utf8Of(const std::filesystem::path& path);

/// `name` in `folder`, with one separator between; `name` alone when `folder` is empty.
std::string JoinPath(std::string_view folder, std::string_view name);

/// The name of the file without folder: "a.b.ams" of "x/a.b.ams".
std::string FileNameOf(std::string_view path);
/// The name of the file without folder and extension: "a.b" of "x/a.b.ams".
std::string BaseName(std::string_view path);
/// What follows the last point of the file's name, without the point; empty when there is none.
std::string ExtensionOf(std::string_view path);
/// The path up to the last separator, without it; "/" stays whole. Empty when there is no folder.
std::string FolderOf(std::string_view path);

/// `path` in at most `room` characters. A longer one has "..." in place of folders in its middle;
/// the name stays as long as it fits, else "..." ends what fits of it. Either separator counts.
std::string CompactPath(const std::string& path, int room);

}  // namespace velorix
