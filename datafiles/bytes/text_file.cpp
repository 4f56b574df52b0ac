#include "datafiles/bytes/text_file.h"

#include <cmath>
#include <filesystem>
#include <fstream>

#include "base/narrowing.h"
#include "datafiles/bytes/bytes.h"
#include "datafiles/bytes/file_faults.h"
#include "text/numbers.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {

std::string TextOfFile(const std::string& path) {
  namespace fs = std::filesystem;
  return OnFile(path, [&path] {
    const fs::path file = PathOf(path);
    std::string text(static_cast<std::size_t>(fs::file_size(file)), '\0');
    errno = 0;
    std::ifstream in(file, std::ios::binary);
    if (in) in.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (!in.is_open() || in.bad()) FailOnFile(path);
    text.resize(static_cast<std::size_t>(in.gcount()));
    return text;
  });
}

std::string_view TextLines::Next() {
  if (AtEnd()) FailEndOfFile();
  ++Line;
  const std::size_t end = Rest.find('\n');
  std::string_view line = Rest.substr(0, end);
  Rest.remove_prefix(end == Rest.npos ? Rest.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

float SingleOf(std::string_view text) { return ToSingle(NumberOf(text)); }

double Finite(double value) {
  if (!std::isfinite(value)) FailOverflow();
  return value;
}

std::array<std::uint8_t, 4> BytesOfSingle(float value) {
  std::array<std::uint8_t, 4> bytes;
  StoreLittle(reinterpret_cast<std::byte*>(bytes.data()), value);
  return bytes;
}

Outcome RefuseEmptyFile(const std::string& path) {
  return Outcome::Refused("Input error!", "File <<" + UpperCase(path) + ">> is empty!");
}

Fault FaultInLine(Fault fault, const std::string& path, int line) {
  fault.Path = path;
  fault.Line = line;
  return fault;
}

}  // namespace velorix
