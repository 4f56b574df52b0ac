#pragma once

#include <string>

namespace velorix {

/// A date as "DD-MM-YYYY". `date` counts days from 30 December 1899, a part of a day is ignored; 0
/// gives the empty text. "Overflow" outside the years 100 to 9999.
std::string DateText(double date);

/// A time of the day, in seconds since midnight, as " HH:MM:SS" with its blank in front.
std::string TimeText(double seconds);

}  // namespace velorix
