#include "platform/qt/statistics/study_run.h"

#include <utility>

namespace velorix {
namespace {

/// A row for a table keeps no clouds of points: they would be most of its memory.
GroupRow Slim(GroupRow row) {
  for (auto* clouds : {&row.Stats.BootPoints, &row.Stats.BootContour})
    for (auto& cloud : *clouds) std::vector<ShortDirection>().swap(cloud);
  return row;
}

}  // namespace

// A failure leaves the table incomplete, which it says.
StudyRun::StudyRun(const Session& session, std::vector<RecordGroup> groups, const BootChoice& boot,
                   std::span<const float> gaussTable, QObject& owner, Hearer hearer)
    : BackgroundRun(
          session, owner,
          [groups = std::move(groups), boot, gaussTable, give = std::move(hearer.Take)](
              const Session& copy, const Line& line) {
            RowSender<GroupRow> rows(line, give);
            const bool whole = StudyStatistics(
                copy, groups, boot, gaussTable,
                [&](GroupRow row) { rows.Add(Slim(std::move(row))); },
                [&](std::size_t) { return line.GoesOn(); });
            if (whole) rows.Add(Slim(AllRow(copy, boot, gaussTable)));
            rows.Flush();
            return whole;
          },
          [done = std::move(hearer.Done)](const RunEnd& end) { done(!end.Whole); }) {}

}  // namespace velorix
