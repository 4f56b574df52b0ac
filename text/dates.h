#pragma once

#include <string>

namespace velorix {

/// A time of the day, in seconds since midnight, as " HH:MM:SS" with its blank in front.
std::string TimeText(double seconds);

}  // namespace velorix
