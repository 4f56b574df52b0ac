#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "stats/study/study.h"

namespace velorix {

/// Computes the groups of a study on a thread of its own, from a copy of the session, so that the
/// window goes on and the session may change. What it gives arrives on the owner's thread.
class StudyRun {
 public:
  using Rows = std::vector<GroupRow>;
  struct Hearer {
    std::function<void(Rows rows)> Take;     // some rows more; the last row is "All"
    std::function<void(bool stopped)> Done;  // nothing comes behind it
  };

  /// Starts; `owner`, on whose thread `hearer` is called, outlives this.
  StudyRun(const Session& session, std::vector<RecordGroup> groups, const BootChoice& boot,
           std::span<const float> gaussTable, QObject& owner, Hearer hearer);
  /// Stops the work and waits for its end; then nothing arrives any more.
  ~StudyRun();

  /// Stops the work soon; `Done` follows.
  void Stop() { shared_->Stopped = true; }

 private:
  struct Shared {
    std::atomic<bool> Stopped = false, Gone = false;
    Hearer To;
  };

  std::shared_ptr<Shared> shared_;
  std::thread thread_;
};

}  // namespace velorix
