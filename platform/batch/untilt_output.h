#pragma once

#include <ostream>
#include <string>

#include "app/state/velorix.h"
#include "stats/untilting.h"

namespace velorix {

/// Whether an untilting is written as JSON: by the extension, or to standard output.
bool IsUntiltJson(const std::string& output);

/// The untilting of the groups. Standard error names each group that can't be untilted, and says so
/// when none can; progress goes there, too, when it is `shown`.
Untilting UntiltForBatch(const Velorix& velorix, const GroupBy& by, bool shown);

/// The untilting as JSON; what is not defined is null.
void WriteUntiltJson(std::ostream& out, const Untilting& untilting, const GroupBy& by);

}  // namespace velorix
