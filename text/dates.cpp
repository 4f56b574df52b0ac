#include "text/dates.h"

#include <chrono>
#include <cmath>

#include "base/fault.h"

namespace velorix {

namespace {

void AppendPadded(std::string& text, int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  if (digits.size() < width) text.append(width - digits.size(), '0');
  text += digits;
}

}  // namespace

std::string DateText(double date) {
  using namespace std::chrono;
  if (date == 0) return {};
  if (!(std::abs(date) < 1e7)) FailOverflow();
  constexpr sys_days zero = year{1899} / December / 30;
  const year_month_day day(zero + days(static_cast<int>(date)));
  const int year = static_cast<int>(day.year());
  if (year < 100 || year > 9999) FailOverflow();
  std::string text;
  AppendPadded(text, static_cast<int>(static_cast<unsigned>(day.day())), 2);
  text += '-';
  AppendPadded(text, static_cast<int>(static_cast<unsigned>(day.month())), 2);
  text += '-';
  AppendPadded(text, year, 4);
  return text;
}

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
