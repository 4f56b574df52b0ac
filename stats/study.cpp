#include "stats/study.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace velorix {
namespace {

/// Groups that are computed before their rows are handed on: many enough that no thread waits long
/// for the others, few enough that their rows need little memory.
constexpr std::size_t BlockSize = 64;

/// What a row is computed with.
struct Basis {
  const velorix::Session& Session;
  const BootChoice& Boot;
  std::span<const float> GaussTable;
};

using RecordPointers = std::vector<const SpecimenRecord*>;

GroupRow RowOf(const std::string& name, const RecordPointers& records, const Basis& basis) {
  GroupRow row{name, {}, {}};
  const velorix::Session& session = basis.Session;
  try {
    GroupStatistics(records, session.CoorSys, session.ReImMode, session.Settings.FacIndex,
                    basis.GaussTable, row.Stats, basis.Boot);
  } catch (const std::exception& failure) {
    row.Failure = failure.what();
  }
  return row;
}

GroupRow RowOf(const RecordGroup& group, const Basis& basis) {
  RecordPointers records;
  for (const int record : group.Records) records.push_back(&basis.Session.Records[record]);
  return RowOf(group.Name, records, basis);
}

/// The rows of a block of groups. A row is whole work of one thread, so the threads change no
/// digit.
class Block {
 public:
  Block(std::span<const RecordGroup> groups, const Basis& basis)
      : groups_(groups), basis_(basis), rows_(groups.size()) {}

  /// False when `goOn`, which hears how many rows of the block are done, stopped it.
  bool Run(const StudyProgress& goOn, std::size_t threads) {
    std::vector<std::thread> others;
    struct Joiner {  // whatever happens, no thread outlives the rows
      std::vector<std::thread>& Threads;
      std::atomic<bool>& Stopped;
      bool Finished = false;
      ~Joiner() {
        if (!Finished) Stopped = true;
        for (std::thread& thread : Threads) thread.join();
      }
    };
    {
      Joiner joiner{others, stopped_};
      for (std::size_t i = 1; i < std::min(threads, groups_.size()); ++i)
        others.emplace_back([this] { Rows({}); });
      Rows(goOn);
      joiner.Finished = true;
    }
    return !stopped_;
  }
  std::vector<GroupRow>& Rows() { return rows_; }

 private:
  void Rows(const StudyProgress& goOn) {
    for (std::size_t i; !stopped_ && (i = next_++) < groups_.size();) {
      rows_[i] = RowOf(groups_[i], basis_);
      const std::size_t done = ++done_;
      if (goOn && !goOn(done)) stopped_ = true;
    }
  }

  std::span<const RecordGroup> groups_;
  const Basis& basis_;
  std::vector<GroupRow> rows_;
  std::atomic<std::size_t> next_ = 0, done_ = 0;
  std::atomic<bool> stopped_ = false;
};

}  // namespace

bool StudyStatistics(const Session& session, std::span<const RecordGroup> groups,
                     const BootChoice& boot, std::span<const float> gaussTable, const TakeRow& take,
                     const StudyProgress& progress, int threads) {
  if (threads <= 0) threads = static_cast<int>(std::thread::hardware_concurrency());
  threads = std::clamp(threads, 1, static_cast<int>(BlockSize));
  const Basis basis{session, boot, gaussTable};
  for (std::size_t first = 0; first < groups.size(); first += BlockSize) {
    Block block(groups.subspan(first, std::min(BlockSize, groups.size() - first)), basis);
    const auto goOn = [&](std::size_t done) { return !progress || progress(first + done); };
    if (!block.Run(goOn, static_cast<std::size_t>(threads))) return false;
    for (GroupRow& row : block.Rows()) take(std::move(row));
  }
  return true;
}

GroupRow AllRow(const Session& session, const BootChoice& boot, std::span<const float> gaussTable) {
  RecordPointers records;
  for (const SpecimenRecord& record : session.Records)
    if (IsShown(record, session.CoorSys, InPhase)) records.push_back(&record);
  return RowOf("All", records, {session, boot, gaussTable});
}

}  // namespace velorix
