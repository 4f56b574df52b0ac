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

/// A name beside `path` that no file has.
fs::path NameBeside(const fs::path& path) {
  std::random_device random;
  for (;;) {
    fs::path name = path;
    name += ".new" + std::to_string(random());
    if (!fs::exists(name)) return name;
  }
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
  std::error_code ignored;
  fs::path target = PathOf(path);
  if (fs::is_symlink(target, ignored)) target = fs::weakly_canonical(target);
  const bool replaces = fs::exists(target);
  // A renamed file would replace even a read-only one: so it must let itself be opened for writing.
  errno = 0;
  if (replaces && !std::ofstream(target, std::ios::binary | std::ios::app))
    Fail(target, std::errc::permission_denied);

  NewFile made{NameBeside(target)};
  errno = 0;
  std::ofstream out(made.Path, std::ios::binary);
  if (!out) Fail(target, std::errc::permission_denied);
  errno = 0;
  write(out);
  out.close();
  if (!out) Fail(target, std::errc::no_space_on_device);
  if (replaces) fs::permissions(made.Path, fs::status(target).permissions(), ignored);
  fs::rename(made.Path, target);
  made.Done = true;
}

}  // namespace velorix
