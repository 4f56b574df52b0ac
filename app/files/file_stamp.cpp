#include "app/files/file_stamp.h"

#include <algorithm>
#include <fstream>
#include <span>
#include <vector>

#include "base/byte_sum.h"
#include "text/paths.h"

namespace velorix {
namespace {

std::uint64_t SumOf(const std::string& path) {
  constexpr std::size_t Word = sizeof(std::uint64_t), Round = ByteSum::Lanes * Word;
  std::vector<std::uint64_t> words(std::size_t{1} << 14);
  std::ifstream in(PathOf(path), std::ios::binary);
  ByteSum sum;
  while (in) {
    std::fill(words.begin(), words.end(), 0);
    in.read(reinterpret_cast<char*>(words.data()),
            static_cast<std::streamsize>(words.size() * Word));
    const auto got = static_cast<std::size_t>(in.gcount());
    sum.Add(std::span(words).first((got + Round - 1) / Round * ByteSum::Lanes));
  }
  return sum.Value();
}

/// The stamp without its sum.
FileStamp QuickStamp(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  const std::uintmax_t size = fs::file_size(PathOf(path), error);
  if (error) return {};
  const auto time = fs::last_write_time(PathOf(path), error);
  return error ? FileStamp{} : FileStamp{size, time, 0};
}

}  // namespace

FileStamp StampOf(const std::string& path) {
  FileStamp stamp = QuickStamp(path);
  if (stamp != FileStamp()) stamp.Sum = SumOf(path);
  return stamp;
}

bool IsUnchanged(const std::string& path, const FileStamp& stamp) {
  const FileStamp now = QuickStamp(path);
  if (now == FileStamp() || now.Size != stamp.Size) return now == stamp;
  return now.Time == stamp.Time || SumOf(path) == stamp.Sum;
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
