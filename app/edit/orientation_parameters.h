#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "app/state/dialogs.h"
#include "app/state/history.h"
#include "store/session.h"

namespace velorix {

// The orientation parameters P1 to P4, `parameter` from 1: how a specimen was marked in the field
// and how the instrument's system relates to the geographic one.

/// The values on offer for a parameter: positions on a clock face, or angles in degrees.
std::span<const std::int16_t> OrientationValues(int parameter);
/// What the parameter says.
std::string OrientationMeaning(int parameter);
/// What one of its values says; empty for a value that is not on offer.
std::string OrientationValueMeaning(int parameter, std::int16_t value);

/// What the user chose.
struct OrientationChoice {
  Array1<std::int16_t, 4> P;
  bool DemagFac = true;
};

/// Takes the choice into the settings, a step that can be undone. Records keep the parameters that
/// they were read with, so other ones close the open file, with a message, and forget the
/// geological file. True when a file is closed.
bool TakeOrientationParameters(Session& session, History& history, Dialogs& dialogs,
                               const OrientationChoice& choice);

}  // namespace velorix
