#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "datafiles/settings_file.h"

// Arbitrary bytes end in settings or in a refusal, and settings that were read survive being
// written and read again: a name that was read has no blank in it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velorix;
  Settings settings;
  if (!SettingsReadText(settings, {reinterpret_cast<const char*>(data), size})) return 0;
  const std::string text = SettingsText(settings);
  Settings again;
  if (!SettingsReadText(again, text) || again != settings || SettingsText(again) != text)
    std::abort();
  return 0;
}
