#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

#include "text/paths.h"

namespace velorix {

/// A folder of its own for one test, gone afterwards.
struct TempFolder {
  std::filesystem::path Path = std::filesystem::temp_directory_path() /
                               ("velorix-test-" + std::to_string(std::random_device()()));

  TempFolder() { std::filesystem::create_directories(Path); }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(Path, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  /// The path, UTF-8, of a file in the folder.
  std::string File(const std::string& name) const { return Utf8Of(Path / PathOf(name)); }
  int FileCount() const {
    int n = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(Path)) ++n;
    return n;
  }
};

inline void PutFile(const std::string& path, const std::string& bytes) {
  std::ofstream(PathOf(path), std::ios::binary) << bytes;
}
inline std::string BytesOf(const std::string& path) {
  std::ifstream in(PathOf(path), std::ios::binary);
  std::stringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

}  // namespace velorix
