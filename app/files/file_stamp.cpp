#include "app/files/file_stamp.h"

#include <algorithm>

#include "text/paths.h"

namespace velorix {

FileStamp StampOf(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  const std::uintmax_t size = fs::file_size(PathOf(path), error);
  if (error) return {};
  const auto time = fs::last_write_time(PathOf(path), error);
  return error ? FileStamp{} : FileStamp{size, time};
}

std::size_t PositionOfOpen(const Session& session, const std::string& path) {
  const auto isPath = [&path](const std::string& open) {
    std::error_code error;
    return open == path || std::filesystem::equivalent(PathOf(open), PathOf(path), error);
  };
  return static_cast<std::size_t>(
      std::find_if(session.OpenFiles.begin(), session.OpenFiles.end(), isPath) -
      session.OpenFiles.begin());
}

void NoteWritten(Session& session, const std::string& path) {
  const std::size_t file = PositionOfOpen(session, path);
  if (file < session.Opened.size()) session.Opened[file].Stamp = StampOf(path);
}

}  // namespace velorix
