// Preloaded before a program's libraries, fails the n-th of its steps on files: the opening, a
// write, the flush, the second name, the rename. The environment says which and how.
//   VELORIX_FAULT_AT     number of the step, from 1; 0 fails none
//   VELORIX_FAULT        the number of the error, or "kill"
//   VELORIX_FAULT_IN     only steps on files of this folder count
//   VELORIX_FAULT_STEPS  a file to which the name of each step is appended

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

template <class Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

const char* Setting(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

bool IsInFolder(const char* path) {
  const char* const folder = Setting("VELORIX_FAULT_IN");
  return *folder && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool IsInFolder(int file) {
  char path[4096] = {};
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  return readlink(link.c_str(), path, sizeof path - 1) > 0 && IsInFolder(path);
}

/// Counts a step on a file; true, with `errno` set, when it is the one that fails.
bool Fails(const char* step, bool inFolder) {
  static int count = 0;
  if (!inFolder) return false;
  const int number = ++count;
  const int steps = Next<int(const char*, int, ...)>("open")(Setting("VELORIX_FAULT_STEPS"),
                                                             O_WRONLY | O_CREAT | O_APPEND, 0600);
  if (steps >= 0) {
    const std::string line = std::string(step) + "\n";
    (void)!Next<decltype(write)>("write")(steps, line.data(), line.size());
    close(steps);
  }
  if (number != std::atoi(Setting("VELORIX_FAULT_AT"))) return false;
  const std::string fault = Setting("VELORIX_FAULT");
  if (fault == "kill") raise(SIGKILL);
  errno = std::atoi(fault.c_str());
  return true;
}

}  // namespace

extern "C" {

FILE* fopen64(const char* path, const char* mode) {
  const bool writes = std::strpbrk(mode, "wa+");
  if (Fails("open", writes && IsInFolder(path))) return nullptr;
  return Next<decltype(fopen64)>("fopen64")(path, mode);
}
FILE* fopen(const char* path, const char* mode) { return fopen64(path, mode); }

ssize_t write(int file, const void* bytes, size_t size) {
  if (Fails("write", IsInFolder(file))) return -1;
  return Next<decltype(write)>("write")(file, bytes, size);
}
ssize_t writev(int file, const iovec* pieces, int count) {
  if (Fails("write", IsInFolder(file))) return -1;
  return Next<decltype(writev)>("writev")(file, pieces, count);
}
int fsync(int file) {
  if (Fails("flush", IsInFolder(file))) return -1;
  return Next<decltype(fsync)>("fsync")(file);
}
int link(const char* from, const char* to) {
  if (Fails("second name", IsInFolder(to))) return -1;
  return Next<decltype(link)>("link")(from, to);
}
int rename(const char* from, const char* to) {
  const bool former = to[std::strlen(to) - 1] == '~';
  if (Fails(former ? "rename of the former file" : "rename", IsInFolder(to))) return -1;
  return Next<decltype(rename)>("rename")(from, to);
}
}
