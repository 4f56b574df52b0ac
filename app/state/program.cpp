#include "app/state/program.h"

#ifndef VELORIX_VERSION
#error "the build gives the version"
#endif

namespace velorix {

const char* const Version = VELORIX_VERSION;

}  // namespace velorix
