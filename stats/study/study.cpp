#include "stats/study/study.h"

#include <algorithm>
#include <thread>

#include "base/on_threads.h"

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
  } catch (const Fault& failure) {
    row.Failure = failure;
  } catch (const std::exception& failure) {  // no memory
    row.Failure = Fault(7, failure.what());
  }
  return row;
}

GroupRow RowOf(const RecordGroup& group, const Basis& basis) {
  RecordPointers records;
  for (const int record : group.Records) records.push_back(&basis.Session.Records[record]);
  return RowOf(group.Name, records, basis);
}

}  // namespace

bool StudyStatistics(const Session& session, std::span<const RecordGroup> groups,
                     const BootChoice& boot, std::span<const float> gaussTable, const TakeRow& take,
                     const StudyProgress& progress, int threads) {
  if (threads <= 0) threads = static_cast<int>(std::thread::hardware_concurrency());
  threads = std::clamp(threads, 1, static_cast<int>(BlockSize));
  const Basis basis{session, boot, gaussTable};
  for (std::size_t first = 0; first < groups.size(); first += BlockSize) {
    const auto block = groups.subspan(first, std::min(BlockSize, groups.size() - first));
    std::vector<GroupRow> rows(block.size());
    const auto computeRow = [&](std::size_t i) {
      rows[i] = RowOf(block[i], basis);
      return std::size_t{1};
    };
    const auto goOn = [&](std::size_t done) { return !progress || progress(first + done); };
    if (!OnThreads(block.size(), static_cast<std::size_t>(threads), computeRow, goOn)) return false;
    for (GroupRow& row : rows) take(std::move(row));
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
