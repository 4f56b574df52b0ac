#include <exception>
#include <iostream>

#include "datafiles/bytes/safe_write.h"
#include "examples/example_sites.h"
#include "examples/ged_sites.h"
#include "examples/ran_sites.h"
#include "examples/text_sites.h"

// make_examples FOLDER: writes the example files.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_examples FOLDER\n";
    return 2;
  }
  try {
    const auto write = [&](const std::string& name, const std::string& bytes) {
      velorix::SafeWrite(std::string(argv[1]) + "/" + name,
                         [&](std::ostream& out) { out << bytes; });
    };
    using namespace velorix::examples;
    for (const ExampleFile& file : ExampleFiles()) write(file.Name, FileBytes(file));
    for (const ExampleFile& file : RanExampleFiles()) write(file.Name, RanFileBytes(file));
    write(UnorientedFile().Name, FileBytes(UnorientedFile()));
    write("granite.ged", GraniteGedBytes());
    for (const TextExample& file : TextExamples) write(file.Name, file.Text());
  } catch (const std::exception& fault) {
    std::cerr << fault.what() << "\n";
    return 1;
  }
}
