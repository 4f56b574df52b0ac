#pragma once

#include <string>
#include <vector>

#include "base/fault.h"
#include "stats/group/group_statistics.h"
#include "store/session.h"

namespace velorix {

// What is computed of the records before they are shown.

/// Factors and rotation of the records in view and in use. A `Fault` comes with the number of its
/// record.
void DeriveView(Session& session);

/// The rotation alone of every record that has the system in view, disregarded ones too.
void RotateView(Session& session);

/// A numeric failure of the group statistics. What they computed before it stands, and all else of
/// the display does; so it is shown beside the views, not in a box.
struct StatisticsFault : Fault {
  using Fault::Fault;
};

/// What is said of group statistics that end early, with what a geologist may take for the cause.
std::string IncompleteText(const Fault& reason);

/// The group statistics of the records in view. A `StatisticsFault` when they end early.
void ComputeGroup(const Session& session, const std::vector<float>& gaussTable,
                  const BootChoice& bootstrap, GroupStats& group);

}  // namespace velorix
