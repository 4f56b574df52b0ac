// transcript PROGRAM EXAMPLES FILE: a session with the console program, played again. A transcript
// is text that a person can read and type:
//
//   # What it shows.
//   $ velorix-batch --coor geo gone.ams
//   ! Open File(s): gone.ams             a line of standard error
//   ! This file does not exist.
//   = 1                                  the exit status, unless it is 0
//
// The commands run one after the other in an empty folder with the example files, called FOLDER in
// the text, with settings of their own. The whole text must come out again, numbers to 1e-9 of
// their value (mathematical libraries differ in the last digit). If not, FILE.new holds what came.

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
    text.replace(at, what.size(), with);
  return text;
}

std::string Prefixed(const std::string& text, const std::string& prefix) {
  std::istringstream lines(text);
  std::string all;
  for (std::string line; std::getline(lines, line);) all += prefix + line + "\n";
  return all;
}

int StatusOf(const std::string& command) {
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// What a command line of the transcript prints, in the transcript's form.
std::string Played(const std::string& line, const std::string& program, const fs::path& folder) {
  const std::string name = "velorix-batch ";
  const std::string own = line.find("--settings") == line.npos ? " --settings own.sav " : " ";
  const std::string command = Replaced(line, name, "\"" + program + "\"" + own);
  const int status = StatusOf("cd \"" + folder.string() + "\" && HOME=$PWD && { " + command +
                              "\n} >.out 2>.err </dev/null");
  std::string text = ContentOf(folder / ".out") + Prefixed(ContentOf(folder / ".err"), "! ");
  if (status != 0) text += "= " + std::to_string(status) + "\n";
  std::string upper = folder.string();  // as one message gives it
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return Replaced(Replaced(text, folder.string(), "FOLDER"), upper, "FOLDER");
}

/// The transcript as it comes out: its remarks and commands, and what these print now.
std::string PlayedAgain(const std::string& transcript, const std::string& program,
                        const fs::path& folder) {
  std::istringstream lines(transcript);
  std::string text;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("#")) text += line + "\n";
    if (line.starts_with("$ ")) text += line + "\n" + Played(line.substr(2), program, folder);
  }
  return text;
}

bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

/// Whether the texts are alike but for the last digits of their numbers.
bool Alike(const std::string& a, const std::string& b) {
  const char *x = a.c_str(), *y = b.c_str();
  while (*x && *y) {
    if (IsDigit(*x) && IsDigit(*y)) {
      char *xEnd, *yEnd;
      const double m = std::strtod(x, &xEnd), n = std::strtod(y, &yEnd);
      if (!(std::abs(m - n) <= 1e-9 * std::max(1.0, std::abs(m)))) return false;
      x = xEnd;
      y = yEnd;
    } else if (*x++ != *y++) {
      return false;
    }
  }
  return *x == *y;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const std::string file = argv[3];
  const fs::path folder = fs::canonical(fs::temp_directory_path()) /
                          ("velorix-transcript-" + std::to_string(std::random_device()()));
  fs::create_directories(folder);
  for (const auto& example : fs::directory_iterator(argv[2])) {
    // Their maker lives among them.
    const std::string extension = example.path().extension().string();
    if (extension == ".h" || extension == ".cpp" || extension == ".md") continue;
    if (example.is_regular_file())
      fs::copy_file(example.path(), folder / example.path().filename());
  }
  const std::string approved = ContentOf(file);
  const std::string played = PlayedAgain(approved, argv[1], folder);
  std::error_code ignored;
  fs::remove_all(folder, ignored);
  fs::remove(file + ".new", ignored);
  if (approved.find("$ ") != approved.npos && Alike(approved, played)) return 0;
  std::ofstream(file + ".new", std::ios::binary) << played;
  std::cout << "What came is in " << file << ".new:\n"
            << played << "If that is right: tests/batch/approve\n";
  return 1;
}
