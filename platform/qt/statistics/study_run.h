#pragma once

#include <functional>
#include <vector>

#include "platform/qt/statistics/background_run.h"
#include "stats/study/study.h"

namespace velorix {

/// Computes the groups of a study beside the window.
class StudyRun : public BackgroundRun {
 public:
  using Rows = std::vector<GroupRow>;
  struct Hearer {
    std::function<void(Rows rows)> Take;     // some rows more; the last row is "All"
    std::function<void(bool stopped)> Done;  // nothing comes behind it
  };

  /// Starts; `owner`, on whose thread `hearer` is called, outlives this.
  StudyRun(const Session& session, std::vector<RecordGroup> groups, const BootChoice& boot,
           std::span<const float> gaussTable, QObject& owner, Hearer hearer);
};

}  // namespace velorix
