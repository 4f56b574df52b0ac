#include "datafiles/bytes/safe_write.h"

#include <fstream>
#include <random>

#include "datafiles/bytes/file_faults.h"
#include "text/paths.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

FlushFile flushFile = nullptr;

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
  if (!out) FailOnFile(Utf8Of(target), EACCES);
  errno = 0;
  write(out);
  out.close();
  if (!out) FailOnFile(Utf8Of(target), ENOSPC);
}

/// Removes the file that it names, unless that has become the real one.
struct NewFile {
  fs::path Path;
  bool Done = false;

  ~NewFile() {
    std::error_code ignored;
    if (!Done) fs::remove(Path, ignored);
  }
};

void Flush(const fs::path& path, const fs::path& target) {
  if (!flushFile) return;
  if (const std::error_code error = flushFile(path)) throw FileFault(Utf8Of(target), error);
}

/// The file also gets the name with "~". A second name costs nothing and is there at once; where
/// the file system has no such names it is a copy.
void KeepFormer(const fs::path& target) {
  NewFile kept{NameBeside(target)};
  std::error_code error;
  fs::create_hard_link(target, kept.Path, error);
  if (error) {
    fs::copy_file(target, kept.Path);
    Flush(kept.Path, target);
  }
  fs::rename(kept.Path, fs::path(target) += "~");
  kept.Done = true;
}

void Replace(const fs::path& target, const std::function<void(std::ostream&)>& write,
             FormerFile former) {
  const bool replaces = fs::exists(target);
  // A device or a pipe has no old content to save, and nothing may take its place.
  if (replaces && !fs::is_regular_file(target)) return Fill(target, target, write);
  // A renamed file would replace even a read-only one: so it must let itself be opened for writing.
  errno = 0;
  if (replaces && !std::ofstream(target, std::ios::binary | std::ios::app))
    FailOnFile(Utf8Of(target), EACCES);

  NewFile made{NameBeside(target)};
  Fill(made.Path, target, write);
  Flush(made.Path, target);
  std::error_code ignored;
  if (replaces) fs::permissions(made.Path, fs::status(target).permissions(), ignored);
  if (replaces && former == FormerFile::Stays) KeepFormer(target);
  fs::rename(made.Path, target);
  made.Done = true;
}

}  // namespace

void SetFlushFile(FlushFile flush) { flushFile = flush; }

void SafeWrite(const std::string& path, const std::function<void(std::ostream&)>& write,
               FormerFile former) {
  try {
    Replace(LinkTarget(PathOf(path)), write, former);
  } catch (const fs::filesystem_error& error) {
    throw FileFault(Utf8Of(error.path2().empty() ? error.path1() : error.path2()), error.code());
  }
}

}  // namespace velorix
