#include "platform/qt/statistics/background_run.h"

#include <QMetaObject>
#include <exception>

namespace velorix {

void BackgroundRun::Line::Send(std::function<void()> call) const {
  QMetaObject::invokeMethod(
      owner_,
      [shared = shared_, call = std::move(call)] {
        if (!shared->Gone) call();
      },
      Qt::QueuedConnection);
}

BackgroundRun::BackgroundRun(Session session, QObject& owner, Work work,
                             std::function<void(RunEnd end)> done)
    : line_(owner) {
  auto copy = std::make_shared<const Session>(std::move(session));
  thread_ = std::thread([line = line_, copy, work = std::move(work), done = std::move(done)] {
    RunEnd end;
    try {
      end.Whole = work(*copy, line);
    } catch (const std::exception& failure) {  // no memory is left, or a number that has no sense
      end.Failure = failure.what();
    }
    line.Send([done, end] { done(end); });
  });
}

BackgroundRun::~BackgroundRun() {
  line_.shared_->Gone = line_.shared_->Stopped = true;
  thread_.join();
}

}  // namespace velorix
