#pragma once

#include <string>

#include "store/coordinates.h"

namespace velorix {

/// What the group statistics were computed of. Their number of records is `GroupStats::GroupN`.
struct GroupSubject {
  std::string Files;  // "a.ams", or "a.ams and 2 more"; empty without a file
  TensorBlock Block = InPhase;
  CoordinateSystem CoorSys = CoordinateSystem::None;
  std::string Turned;  // codes, plane and axis of the upper two systems; empty in the others

  bool operator==(const GroupSubject&) const = default;
};

}  // namespace velorix
