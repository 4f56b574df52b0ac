#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "datafiles/settings/autosave_file.h"
#include "datafiles/settings/settings_file.h"

using namespace velorix;

/// An autosave that was read survives being written and read again. Behind any bytes stands the sum
/// that lets them through.
static void ReadAutosave(std::string text) {
  text = "Velorix autosave 1\n" + text + "\n";
  const auto work = AutosaveOfText(text + AutosaveEnd(text));
  if (!work) return;
  const std::string written = AutosaveText(*work);
  const auto again = AutosaveOfText(written);
  if (!again || AutosaveText(*again) != written) std::abort();
}

// Arbitrary bytes end in settings or in a refusal, and settings that were read survive being
// written and read again: a name that was read has no blank in it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  ReadAutosave(std::string(bytes));
  Settings settings;
  if (!SettingsReadText(settings, bytes)) return 0;
  const std::string text = SettingsText(settings);
  Settings again;
  if (!SettingsReadText(again, text) || again != settings || SettingsText(again) != text)
    std::abort();
  return 0;
}
