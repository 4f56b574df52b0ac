#pragma once

#include <cstdint>

namespace velorix {

// Orientation parameter P4 says how the azimuth of a foliation was measured in the field. In a
// record it is always a dip direction; only files have strikes. Degrees.

/// The value of P4 for strikes, by the right-hand rule: the plane dips to the right of its strike.
inline constexpr std::int16_t StrikeAndDip = 90;

/// Turned by 90 degrees once, and by 360 at most: azimuths are from 0 to 360.
constexpr float DipDirectionOfStrike(float strike) {
  const float turned = strike + 90;
  return turned >= 360 ? turned - 360 : turned;
}
constexpr float StrikeOfDipDirection(float dipDirection) {
  const float turned = dipDirection - 90;
  return turned < 0 ? turned + 360 : turned;
}

}  // namespace velorix
