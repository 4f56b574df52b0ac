#pragma once

#include <cstdint>
#include <string_view>

#include "store/session.h"
#include "tensor/kernel.h"

namespace velorix {

/// What a rotation goes by: a session's view, or a file writer's own. The codes are not owned.
struct View {
  CoordinateSystem CoorSys = Geographic;
  TensorBlock ReImMode = InPhase;
  std::string_view FoliCode, LineCode;  // LineCode "0": the strike of the foliation
  PaleoPlane TectoPlane = PaleoPlane::Horizontal;
  bool TectoNorthSouth = false, TectoEastWest = false;
};

/// The view of `session`, valid until its codes change.
View ViewOf(const Session& session);

/// Puts the principal values of the block `reImMode` in `K[1..3]` and its factors in `Fac`. False,
/// with the record untouched, when the out-of-phase block is asked for and the record has none. A
/// `reImMode` that is neither of the two derives the zero tensor. A tensor with NaN or infinity
/// gives NaN values and failed factors.
bool DeriveFactors(SpecimenRecord& record, const Array1<std::int16_t, 8>& facIndex,
                   TensorBlock reImMode);

/// Turns the tensor of the view's block from the specimen system to the one in view, and stores it
/// with the principal directions, the foliations and lineations and the level reached
/// (`CoorLevel`). Foliations and lineations are geographic in the record, and turned only for the
/// systems above. The level is lower than the view's system where the record lacks `HasCoor[1]` for
/// the specimen system, or the foliation or the lineation of the view's codes for the upper two;
/// the geographic system is reached whatever `HasCoor[2]` says. `CoorSys` `None`, the principal
/// system, reaches no level.
///
/// False, with the record untouched, when the out-of-phase block is asked for and the record has
/// none. When it fails ("Overflow" from orientation parameters, "Invalid procedure call or
/// argument" from an angle) the record is untouched too. A tensor with NaN or infinity gives NaN
/// directions and no failure.
bool RotateRecord(SpecimenRecord& record, const View& view);

/// The tensor alone that `RotateRecord` would store in `TensorRot`, for a writer that needs no
/// directions; the record stays as it is. It takes the out-of-phase block without a look at
/// `HasIm`. Fails like `RotateRecord`.
Vector<6> RotatedTensor(const SpecimenRecord& record, const View& view);

}  // namespace velorix
