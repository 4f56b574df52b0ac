#pragma once

#include <string>

#include "app/velorix.h"

namespace velorix {

// JSON for scripts. Numbers read back to the same 64-bit value; what is not finite is null. Arrays
// are written from their first slot, matrices as lists of rows.

/// The store: file, view, and every record with every field under its own name.
std::string RecordsJson(const Session& session);

/// The group statistics under the names of their fields; null where the group is too small for a
/// field, or the statistics failed before it.
std::string StatsJson(const GroupStats& stats, const Settings& settings);

}  // namespace velorix
