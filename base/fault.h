#pragma once

#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

namespace velorix {

/// An error that ends the command in hand, never the program: the one handler around every command
/// shows it. `Source` names the kernel routine for number 999 and is empty otherwise.
class Fault : public std::runtime_error {
 public:
  Fault(int number, const std::string& text, std::string source = {})
      : std::runtime_error(text), Number(number), Source(std::move(source)) {}

  int Number;
  std::string Source;
  std::string Path;  // UTF-8, of the file in which it happened; empty without a file
  int Line = 0;      // of that file, from 1; 0 without a line
};

/// What the file system refuses; the text is the system's reason.
class FileFault : public Fault {
 public:
  FileFault(std::string path, const std::error_code& reason) : Fault(75, reason.message()) {
    Path = std::move(path);
  }
};

/// A fault as the user sees it: its text with source, file and line.
inline std::string FaultText(const Fault& fault) {
  std::string text = fault.Source.empty() ? "" : fault.Source + ": ";
  if (fault.Line > 0)
    return text + fault.what() + " (" + fault.Path + ", line " + std::to_string(fault.Line) + ")";
  if (!fault.Path.empty()) text += fault.Path + "\n";
  return text + fault.what();
}

[[noreturn]] inline void FailOverflow() { throw Fault(6, "Overflow"); }
[[noreturn]] inline void FailSubscript() { throw Fault(9, "Subscript out of range"); }
[[noreturn]] inline void FailDivision() { throw Fault(11, "Division by zero"); }
[[noreturn]] inline void FailType() { throw Fault(13, "Type mismatch"); }
[[noreturn]] inline void FailArgument() { throw Fault(5, "Invalid procedure call or argument"); }
[[noreturn]] inline void FailEndOfFile() { throw Fault(62, "Input past end of file"); }

[[noreturn]] inline void FailKernel(const char* source, const char* text) {
  throw Fault(999, text, source);
}

}  // namespace velorix
