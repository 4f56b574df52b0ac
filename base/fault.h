#pragma once

#include <stdexcept>
#include <string>

namespace velorix {

/// An error that ends the command in hand, never the program: the one handler around every command
/// shows its text. `Source` names the kernel routine for number 999 and is empty otherwise.
class Fault : public std::runtime_error {
 public:
  Fault(int number, const std::string& text, std::string source = {})
      : std::runtime_error(text), Number(number), Source(std::move(source)) {}

  int Number;
  std::string Source;
};

[[noreturn]] inline void FailOverflow() { throw Fault(6, "Overflow"); }
[[noreturn]] inline void FailSubscript() { throw Fault(9, "Subscript out of range"); }
[[noreturn]] inline void FailDivision() { throw Fault(11, "Division by zero"); }
[[noreturn]] inline void FailType() { throw Fault(13, "Type mismatch"); }
[[noreturn]] inline void FailArgument() { throw Fault(5, "Invalid procedure call or argument"); }
[[noreturn]] inline void FailEndOfFile() { throw Fault(62, "Input past end of file"); }
/// What `work` gives. A fault of it comes with the name of the file that it befell, which a text
/// that tells it already keeps as it is.
template <class Work>
auto WithFileName(const std::string& path, Work work) {
  try {
    return work();
  } catch (const Fault& fault) {
    if (std::string(fault.what()).find(path) != std::string::npos) throw;
    throw Fault(fault.Number, path + "\n" + fault.what(), fault.Source);
  }
}

[[noreturn]] inline void FailKernel(const char* source, const char* text) {
  throw Fault(999, text, source);
}

}  // namespace velorix
