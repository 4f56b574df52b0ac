#pragma once

#include <cstdint>

#include "base/slots.h"

namespace velorix {

/// The coordinate systems, each reached by a rotation from the one before it. `None`: no system
/// was reached, and as a view the principal system, Kmin vertical and Kmax on the meridian.
enum class CoordinateSystem : std::int16_t {
  None,
  Specimen,
  Geographic,
  Paleogeographic,
  Tectonic
};
inline constexpr CoordinateSystem SystemsInView[] = {
    CoordinateSystem::Specimen, CoordinateSystem::Geographic, CoordinateSystem::Paleogeographic,
    CoordinateSystem::Tectonic};
using CoordinateSystem::Geographic;
using CoordinateSystem::Paleogeographic;
using CoordinateSystem::Specimen;
using CoordinateSystem::Tectonic;

/// The tensors of a record.
enum class TensorBlock : std::int16_t { InPhase = 1, OutOfPhase = 2 };
using TensorBlock::InPhase;
using TensorBlock::OutOfPhase;

/// What the foliation becomes in the paleogeographic and tectonic systems.
enum class PaleoPlane : std::int16_t { Horizontal = 1, Vertical = 2 };

/// What a coordinate system is called, and what its net shows.
struct CoordinateSystemNames {
  const char* Short;   // in lists
  const char* Title;   // in captions
  const char* Word;    // within a sentence
  const char* Option;  // of the console
  const char* Rim[4];  // at the top, right, bottom and left of a net
};

// clang-format off
inline constexpr Slots<CoordinateSystemNames, 0, 4> CoordinateSystems = {{
    {"",      "",                "",                "",      {"0", "90", "180", "270"}},
    {"SPEC",  "Specimen",        "specimen",        "spec",  {"X", "Y",  "-X",  "-Y"}},
    {"GEO",   "Geographic",      "geographic",      "geo",   {"N", "90", "180", "270"}},
    {"PALEO", "Paleogeographic", "paleogeographic", "paleo", {"N", "90", "180", "270"}},
    {"TECTO", "Tectonic",        "tectonic",        "tecto", {"X", "Y",  "-X",  "-Y"}},
}};
// clang-format on

/// One for each system, from that of the specimen.
using CoordinateFlags = Array1<bool, CoordinateSystems.Last>;
/// Says of the systems above the geographic one, which need a foliation or a lineation.
inline void SetUpperSystems(CoordinateFlags& flags, bool has) {
  for (int system = static_cast<int>(CoordinateSystem::Geographic) + 1; system <= flags.Last;
       ++system)
    flags[system] = has;
}

inline const CoordinateSystemNames& NamesOf(CoordinateSystem system) {
  return CoordinateSystems[static_cast<int>(system)];
}

/// The system, and the plane, at a position of their lists, from 0; and the way back.
inline CoordinateSystem SystemAt(int index) { return static_cast<CoordinateSystem>(index + 1); }
inline PaleoPlane PlaneAt(int index) { return static_cast<PaleoPlane>(index + 1); }
inline int IndexOf(CoordinateSystem system) { return static_cast<int>(system) - 1; }
inline int IndexOf(PaleoPlane plane) { return static_cast<int>(plane) - 1; }

}  // namespace velorix
