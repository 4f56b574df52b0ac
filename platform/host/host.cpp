#include "platform/host/host.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "text/paths.h"
#include "text/upper_case.h"

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#else
#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace velorix {
namespace {

namespace fs = std::filesystem;

fs::path Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value ? fs::path(value) : fs::path();
}

#ifdef _WIN32
fs::path UserDataFolder() { return Variable("LOCALAPPDATA") / "velorix"; }
fs::path DataRootFolder() { return "C:\\Zelmor\\Data"; }
#else
fs::path HomeFolder() {
  if (fs::path home = Variable("HOME"); !home.empty()) return home;
  const passwd* const user = getpwuid(getuid());  // a service or a bare shell names no home
  return user && *user->pw_dir ? fs::path(user->pw_dir) : fs::temp_directory_path();
}
fs::path UserDataFolder() {
#ifdef __APPLE__
  return HomeFolder() / "Library" / "Application Support" / "velorix";
#else
  const fs::path data = Variable("XDG_DATA_HOME");
  return (data.is_absolute() ? data : HomeFolder() / ".local" / "share") / "velorix";
#endif
}
fs::path DataRootFolder() { return HomeFolder() / "Zelmor" / "Data"; }
#endif

/// Whether a file can be made in the folder, found out by making one: permissions alone don't
/// decide it.
bool CanWrite(const fs::path& folder) {
  const fs::path probe = folder / ".velorix-probe";
  std::error_code ignored;
  if (!std::ofstream(probe)) return false;
  fs::remove(probe, ignored);
  return true;
}

/// Whether the folder is the `bin` of a prefix with the files that an installation puts beside it.
/// There nothing of a user's belongs, not even root's, who can write everywhere.
bool IsInstalled(const fs::path& folder) {
  std::error_code error;
  return folder.filename() == "bin" &&
         fs::is_directory(folder.parent_path() / "share" / "velorix", error);
}

/// Whether file dialogs leave the file out.
bool IsHidden(const fs::path& path) {
#ifdef _WIN32
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_HIDDEN) != 0)
    return true;
#endif
  return path.filename().native().front() == '.';
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The run of digits at `at`, which moves behind it, without leading zeros.
std::string TakeDigits(const std::string& text, std::size_t& at) {
  const std::size_t first = at;
  while (at < text.size() && IsDigit(text[at])) ++at;
  const std::string digits = text.substr(first, at - first);
  return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

}  // namespace

std::string ExecutablePath(const std::string& argv0) {
#ifdef _WIN32
  wchar_t name[32768];
  const DWORD length = GetModuleFileNameW(nullptr, name, 32768);
  if (length > 0) return Utf8Of(fs::path(std::wstring(name, length)));
#else
  std::error_code error;
  const fs::path self = fs::read_symlink("/proc/self/exe", error);
  if (!error) return Utf8Of(self);
#endif
  return Utf8Of(fs::absolute(PathOf(argv0)));
}

Host MakeHost(const std::string& executablePath) {
  fs::path folder = PathOf(executablePath).parent_path();
  if (IsInstalled(folder) || !CanWrite(folder)) {
    folder = UserDataFolder();
    std::error_code ignored;  // a write there will report it
    fs::create_directories(folder, ignored);
  }
  return {Utf8Of(folder), Utf8Of(DataRootFolder()), ListFolder};
}

#ifdef _WIN32
std::error_code FlushToDevice(const fs::path& path) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE)
    return {static_cast<int>(GetLastError()), std::system_category()};
  const bool flushed = FlushFileBuffers(file) != 0;
  const std::error_code error(flushed ? 0 : static_cast<int>(GetLastError()),
                              std::system_category());
  CloseHandle(file);
  return error;
}
#else
std::error_code FlushToDevice(const fs::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return {errno, std::generic_category()};
  const int error = fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP ? 0 : errno;
  close(file);
  return {error, std::generic_category()};
}
#endif

std::vector<std::string> ListFolder(const std::string& folder, const std::string& extension) {
  const std::string ofUpperCase = UpperCase(extension);
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator file(PathOf(folder), error), end; !error && file != end;
       file.increment(error)) {
    std::error_code ignored;
    const std::string name = Utf8Of(file->path().filename());
    if (file->is_regular_file(ignored) && UpperCase(ExtensionOf(name)) == ofUpperCase &&
        !IsHidden(file->path()))
      names.push_back(name);
  }
  std::sort(names.begin(), names.end(), NameBefore);
  return names;
}

bool NameBefore(const std::string& a, const std::string& b) {
  const std::string x = UpperCase(a), y = UpperCase(b);
  std::size_t i = 0, j = 0;
  while (i < x.size() && j < y.size()) {
    if (IsDigit(x[i]) && IsDigit(y[j])) {
      const std::string m = TakeDigits(x, i), n = TakeDigits(y, j);
      if (m != n) return m.size() != n.size() ? m.size() < n.size() : m < n;
    } else if (x[i] != y[j]) {
      return static_cast<unsigned char>(x[i]) < static_cast<unsigned char>(y[j]);
    } else {
      ++i, ++j;
    }
  }
  if (x.size() - i != y.size() - j) return i == x.size();
  return a < b;  // names that differ in case or zeros alone still have an order
}

}  // namespace velorix
