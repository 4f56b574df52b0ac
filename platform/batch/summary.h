#pragma once

#include <string>

#include "app/commands/velorix.h"

namespace velorix {

/// A short text for a terminal: the files, how many records, the view, the mean tensor with its
/// directions and errors.
std::string Summary(const Velorix& velorix);

}  // namespace velorix
