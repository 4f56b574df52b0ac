#pragma once

#include "store/session.h"

namespace velorix {

// The entries of the lists filled at load, each in the order of its session values.

inline constexpr const char* TectoPlaneNames[] = {"Horizontal", "Vertical"};
inline constexpr const char* TectoAxisNames[] = {"North", "North-South", "East", "East-West"};
inline constexpr const char* Plot1Names[] = {"Km-P",     "Km-Pj",   "Km-T", "Km-U", "LogKm-P",
                                             "LogKm-Pj", "LogKm-T", "H-Km", "H-P",  "H-T"};
inline constexpr const char* Plot2Names[] = {"P-T", "Pj-T", "F-L", "P-U", "Pj-U", "lnF-lnL"};

/// Position of the session's pair of tectonic flags in `TectoAxisNames`, from 0.
inline int TectoAxisIndex(const Session& session) {
  return (session.TectoEastWest ? 2 : 0) + (session.TectoNorthSouth ? 1 : 0);
}
/// Sets the pair of flags.
inline void SetTectoAxis(Session& session, int index) {
  session.TectoNorthSouth = index % 2 == 1;
  session.TectoEastWest = index >= 2;
}

}  // namespace velorix
