#pragma once

#include <string>

#include "app/commands/velorix.h"

namespace velorix {

/// A short text for a terminal: the files, how many records, the view, the mean tensor with its
/// directions and errors; the errors' level and the bootstrap where they are not the default ones.
std::string Summary(const Velorix& velorix);

}  // namespace velorix
