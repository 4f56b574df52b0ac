#pragma once

#include <functional>
#include <ostream>

#include "app/commands/velorix.h"

namespace velorix {

// JSON for scripts, a field a line. Numbers read back to the same 64-bit value, 32-bit ones to the
// 64-bit value that they widen to; what is not finite is null, an unset number is 0. Arrays are
// written from their first slot, matrices as lists of rows.

/// The store: file, view, and every record with every field under its own name. `tell` gets the
/// number of records written so far.
void WriteRecordsJson(std::ostream& out, const Session& session,
                      const std::function<void(int)>& tell);

/// The geological records: their names and geological fields.
void WriteGeoJson(std::ostream& out, const RecordArray& geoRecords);

/// The group statistics under the names of their fields; null where the group is too small for a
/// field, or the statistics failed before it. `heading` says what they are of.
void WriteStatsJson(std::ostream& out, const GroupStats& stats, const Settings& settings,
                    ErrorLevel level, const std::string& heading);

class ObjectWriter;
/// Method, replicates and seed of a bootstrap, into an object begun by the caller.
void AddBootstrap(ObjectWriter& object, const BootChoice& boot);
/// The fields of the group statistics, likewise.
void AddStats(ObjectWriter& object, const GroupStats& stats, const Settings& settings,
              ErrorLevel level);

}  // namespace velorix
