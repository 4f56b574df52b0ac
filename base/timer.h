#pragma once

#include <string>

namespace velorix {

/// The day's timer: seconds since the last midnight of local time.
float Timer();

/// The local time to the minute: "2026-11-22 09:05".
std::string DateAndTime();

/// Seconds from `start` to `now`, both values of the day's timer. A difference below -0.01 gets
/// 86400 added, which carries the measure over midnight; the tolerance covers the timer's 32 bits.
float Elapsed(float now, float start);

/// Seconds from `start` until now.
inline float Elapsed(float start) { return Elapsed(Timer(), start); }

}  // namespace velorix
