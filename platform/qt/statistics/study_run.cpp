#include "platform/qt/statistics/study_run.h"

#include <QMetaObject>
#include <utility>

namespace velorix {
namespace {

constexpr std::size_t RowsAtOnce = 256;  // so that the window isn't asked too often

/// A row for a table keeps no clouds of points: they would be most of its memory.
GroupRow Slim(GroupRow row) {
  for (auto* clouds : {&row.Stats.BootPoints, &row.Stats.BootContour})
    for (auto& cloud : *clouds) std::vector<ShortDirection>().swap(cloud);
  return row;
}

}  // namespace

StudyRun::StudyRun(const Session& session, std::vector<RecordGroup> groups, const BootChoice& boot,
                   std::span<const float> gaussTable, QObject& owner, Hearer hearer)
    : shared_(std::make_shared<Shared>()) {
  shared_->To = std::move(hearer);
  const auto send = [shared = shared_, &owner](std::function<void(const Hearer&)> call) {
    QMetaObject::invokeMethod(
        &owner,
        [shared, call = std::move(call)] {
          if (!shared->Gone) call(shared->To);
        },
        Qt::QueuedConnection);
  };
  auto copy = std::make_shared<const Session>(session);
  thread_ =
      std::thread([shared = shared_, copy, groups = std::move(groups), boot, gaussTable, send] {
        auto rows = std::make_shared<Rows>();
        const auto flush = [&] {
          if (rows->empty()) return;
          send([ready = std::exchange(rows, std::make_shared<Rows>())](const Hearer& to) {
            to.Take(std::move(*ready));
          });
        };
        const auto take = [&](GroupRow row) {
          rows->push_back(Slim(std::move(row)));
          if (rows->size() >= RowsAtOnce) flush();
        };
        const auto goOn = [&](std::size_t) { return !shared->Stopped; };
        bool whole = false;
        try {
          whole = StudyStatistics(*copy, groups, boot, gaussTable, take, goOn);
          if (whole) take(AllRow(*copy, boot, gaussTable));
        } catch (const std::exception&) {
          whole = false;  // no memory is left: the table stays incomplete, and says so
        }
        flush();
        send([whole](const Hearer& to) { to.Done(!whole); });
      });
}

StudyRun::~StudyRun() {
  shared_->Gone = shared_->Stopped = true;
  thread_.join();
}

}  // namespace velorix
