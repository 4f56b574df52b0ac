#pragma once

#include <cstdint>
#include <string_view>

#include "store/session.h"
#include "tensor/kernel.h"

namespace velorix {

/// What a rotation goes by: a session's view, or a file writer's own. The codes are not owned.
struct View {
  std::int16_t CoorSys = Geographic;
  std::int16_t ReImMode = InPhase;
  std::string_view FoliCode, LineCode;  // LineCode "0": the strike of the foliation
  std::int16_t TectoPlane = Horizontal;
  bool TectoNorthSouth = false, TectoEastWest = false;
};

/// The view of `session`, valid until its codes change.
View ViewOf(const Session& session);

/// Puts the principal values of the block `reImMode` in `K[1..3]` and its factors in `Fac`. False,
/// with the record untouched, when the out-of-phase block is asked for and the record has none. A
/// `reImMode` other than 1 and 2 derives the zero tensor. A tensor with NaN or infinity gives NaN
/// values and failed factors.
bool DeriveFactors(SpecimenRecord& record, const Array1<std::int16_t, 8>& facIndex,
                   std::int16_t reImMode);

/// Turns the tensor of the view's block, the foliations and the lineations from the specimen to the
/// system in view, and stores them with the principal directions and the level reached
/// (`CoorLevel`): lower than the view's system when the record lacks what the way up needs. False,
/// with the record untouched, when the out-of-phase block is asked for and the record has none.
/// When it fails ("Overflow" from orientation parameters, "Invalid procedure call or argument" from
/// an angle) the record is untouched too. A tensor with NaN or infinity gives NaN directions and no
/// failure.
bool RotateRecord(SpecimenRecord& record, const View& view);

/// The tensor alone that `RotateRecord` would store in `TensorRot`, for a writer that needs no
/// directions; the record stays as it is. Fails like `RotateRecord`.
Vector<6> RotatedTensor(const SpecimenRecord& record, const View& view);

}  // namespace velorix
