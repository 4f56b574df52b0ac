#include "text/dates.h"

namespace velorix {

namespace {

void AppendPadded(std::string& text, int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  if (digits.size() < width) text.append(width - digits.size(), '0');
  text += digits;
}

}  // namespace

std::string TimeText(double seconds) {
  const int whole = static_cast<int>(seconds);
  std::string text = " ";
  AppendPadded(text, whole / 3600, 2);
  text += ':';
  AppendPadded(text, whole / 60 % 60, 2);
  text += ':';
  AppendPadded(text, whole % 60, 2);
  return text;
}

}  // namespace velorix
