#pragma once

#include <ostream>
#include <string>

#include "app/commands/velorix.h"
#include "stats/study/untilting.h"

namespace velorix {

/// How an untilting is written.
enum class UntiltForm { Json, Metafile, Picture };
/// That of an output, by its extension; "-" is JSON. What no other form has is a picture.
UntiltForm UntiltFormOf(const std::string& output);

/// The untilting of the groups. Standard error names each group that can't be untilted, and says so
/// when none can; progress goes there, too, when it is `shown`.
Untilting UntiltForBatch(const Velorix& velorix, const GroupBy& by, bool shown);

/// The untilting as JSON, under what it is of; what is not defined is null.
void WriteUntiltJson(std::ostream& out, const Untilting& untilting, const GroupBy& by,
                     const std::string& heading);

}  // namespace velorix
