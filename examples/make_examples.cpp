#include <exception>
#include <iostream>

#include "datafiles/safe_write.h"
#include "examples/example_sites.h"

// make_examples FOLDER: writes the example files.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_examples FOLDER\n";
    return 2;
  }
  try {
    for (const auto& file : velorix::examples::ExampleFiles())
      velorix::SafeWrite(std::string(argv[1]) + "/" + file.Name,
                         [&](std::ostream& out) { out << velorix::examples::FileBytes(file); });
  } catch (const std::exception& fault) {
    std::cerr << fault.what() << "\n";
    return 1;
  }
}
