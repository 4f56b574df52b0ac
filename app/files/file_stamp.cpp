#include "app/files/file_stamp.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <vector>

#include "text/paths.h"

namespace velorix {
namespace {

/// A sum over a file's bytes: FNV-1a of 64 bits (Fowler, Noll and Vo), taken of words in four
/// lanes, which a processor computes side by side.
std::uint64_t SumOf(const std::string& path) {
  constexpr std::size_t Lanes = 4;
  constexpr std::uint64_t Prime = 1099511628211u, Basis = 14695981039346656037u;
  std::vector<std::uint64_t> words(std::size_t{1} << 14);
  std::array<std::uint64_t, Lanes> sums = {Basis, Basis + 1, Basis + 2, Basis + 3};
  std::ifstream in(PathOf(path), std::ios::binary);
  while (in) {
    std::fill(words.begin(), words.end(), 0);
    in.read(reinterpret_cast<char*>(words.data()),
            static_cast<std::streamsize>(words.size() * sizeof words[0]));
    const auto got = static_cast<std::size_t>(in.gcount());
    for (std::size_t i = 0; i * sizeof words[0] < got; i += Lanes)
      for (std::size_t lane = 0; lane < Lanes; ++lane)
        sums[lane] = (sums[lane] ^ words[i + lane]) * Prime;
  }
  std::uint64_t sum = Basis;
  for (const std::uint64_t one : sums) sum = (sum ^ one ^ one >> 32) * Prime;
  return sum;
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
