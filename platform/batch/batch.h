#pragma once

#include "platform/batch/arguments.h"
#include "platform/host/host.h"

namespace velorix {

/// Does what the arguments ask, by the routines that the windows call. Gives the exit status: 0
/// done, 1 a file couldn't be read or written, was refused, or an output exists, 2 wrong usage.
int RunBatch(const Arguments& arguments, const Host& host);

}  // namespace velorix
