#pragma once

#include "store/session.h"

namespace velorix {

// The entries of the lists filled at load, each in the order of its session values.

inline constexpr const char* TectoPlaneNames[] = {"Horizontal", "Vertical"};
inline constexpr const char* TectoAxisNames[] = {"North", "North-South", "East", "East-West"};
inline constexpr const char* Plot1Names[] = {"Km-P",     "Km-Pj",   "Km-T", "Km-U", "LogKm-P",
                                             "LogKm-Pj", "LogKm-T", "H-Km", "H-P",  "H-T"};
inline constexpr const char* Plot2Names[] = {"P-T", "Pj-T", "F-L", "P-U", "Pj-U", "lnF-lnL"};

/// Where the lineation goes in the tectonic system, in the order of `TectoAxisNames`: what the
/// session's pair of flags says.
enum class TectoAxis { North, NorthSouth, East, EastWest };
inline TectoAxis TectoAxisOf(const Session& session) {
  if (session.TectoEastWest) return session.TectoNorthSouth ? TectoAxis::EastWest : TectoAxis::East;
  return session.TectoNorthSouth ? TectoAxis::NorthSouth : TectoAxis::North;
}
/// Sets the pair of flags.
inline void SetTectoAxis(Session& session, TectoAxis axis) {
  session.TectoNorthSouth = axis == TectoAxis::NorthSouth || axis == TectoAxis::EastWest;
  session.TectoEastWest = axis == TectoAxis::East || axis == TectoAxis::EastWest;
}
/// The axis at a position of its list, from 0, and the way back.
inline TectoAxis TectoAxisAt(int index) { return static_cast<TectoAxis>(index); }
inline int IndexOf(TectoAxis axis) { return static_cast<int>(axis); }

}  // namespace velorix
