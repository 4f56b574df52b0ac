#include <exception>
#include <iostream>

#include "datafiles/bytes/safe_write.h"
#include "platform/batch/batch.h"
#include "text/paths.h"

namespace {

int Main(int argc, const char* const* argv) {
  const auto parsed = velorix::ParseArguments(argc, argv);
  if (const auto* end = std::get_if<velorix::EarlyEnd>(&parsed)) {
    (end->Status == 0 ? std::cout : std::cerr) << end->Text;
    return end->Status;
  }
  velorix::SetFlushFile(velorix::FlushToDevice);
  try {
    return velorix::RunBatch(std::get<velorix::Arguments>(parsed),
                             velorix::MakeHost(velorix::ExecutablePath(argv[0])));
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}

}  // namespace

#ifdef _WIN32
// The system hands over UTF-16; inside the program all text is UTF-8.
int wmain(int argc, wchar_t** argv) {
  std::vector<std::string> texts;
  std::vector<const char*> pointers;
  for (int i = 0; i < argc; ++i) texts.push_back(velorix::Utf8Of(std::filesystem::path(argv[i])));
  for (const std::string& text : texts) pointers.push_back(text.c_str());
  return Main(argc, pointers.data());
}
#else
int main(int argc, char** argv) { return Main(argc, argv); }
#endif
