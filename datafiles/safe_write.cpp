#include "datafiles/safe_write.h"

#include <cerrno>
#include <fstream>
#include <random>

#include "text/paths.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& path, std::errc otherwise) {
  const int reason = errno != 0 ? errno : static_cast<int>(otherwise);
  throw fs::filesystem_error("cannot write", path,
                             std::error_code(reason, std::generic_category()));
}

/// A name in the folder of `path` that no file has.
fs::path NameBeside(const fs::path& path) {
  std::random_device random;
  for (;;) {
    fs::path name = path.parent_path() / ("velorix-" + std::to_string(random()) + ".new");
    if (!fs::exists(name)) return name;
  }
}

/// The file that a chain of links leads to, whether it exists or not.
fs::path LinkTarget(fs::path path) {
  std::error_code ignored;
  for (int links = 0; links < 40 && fs::is_symlink(path, ignored); ++links)
    path = path.parent_path() / fs::read_symlink(path);
  return path;
}

void Fill(const fs::path& path, const fs::path& target,
          const std::function<void(std::ostream&)>& write) {
  errno = 0;
  std::ofstream out(path, std::ios::binary);
  if (!out) Fail(target, std::errc::permission_denied);
  errno = 0;
  write(out);
  out.close();
  if (!out) Fail(target, std::errc::no_space_on_device);
}

/// Removes the file that it names, unless told that it has become the real one.
struct NewFile {
  fs::path Path;
  bool Done = false;

  ~NewFile() {
    std::error_code ignored;
    if (!Done) fs::remove(Path, ignored);
  }
};

}  // namespace

void SafeWrite(const std::string& path, const std::function<void(std::ostream&)>& write) {
  const fs::path target = LinkTarget(PathOf(path));
  const bool replaces = fs::exists(target);
  // A device or a pipe has no old content to save, and nothing may take its place.
  if (replaces && !fs::is_regular_file(target)) return Fill(target, target, write);
  // A renamed file would replace even a read-only one: so it must let itself be opened for writing.
  errno = 0;
  if (replaces && !std::ofstream(target, std::ios::binary | std::ios::app))
    Fail(target, std::errc::permission_denied);

  NewFile made{NameBeside(target)};
  Fill(made.Path, target, write);
  std::error_code ignored;
  if (replaces) fs::permissions(made.Path, fs::status(target).permissions(), ignored);
  fs::rename(made.Path, target);
  made.Done = true;
}

}  // namespace velorix
