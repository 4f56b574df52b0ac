#pragma once

#include <QObject>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "store/session.h"

namespace velorix {

/// How a run ended: whole, cancelled, or by a failure in words.
struct RunEnd {
  bool Whole = false;
  std::string Failure;
};

/// Computes on a thread of its own, from a copy of the session, so that the window goes on and the
/// session may change. What it gives arrives on the owner's thread.
class BackgroundRun {
 public:
  /// The thread's way to the window.
  class Line {
   public:
    bool GoesOn() const { return !shared_->Stopped; }
    /// Calls on the owner's thread, in this order; no more once the run is gone.
    void Send(std::function<void()> call) const;

   private:
    friend BackgroundRun;
    struct Shared {
      std::atomic<bool> Stopped = false, Gone = false;
    };
    explicit Line(QObject& owner) : owner_(&owner), shared_(std::make_shared<Shared>()) {}

    QObject* owner_;
    std::shared_ptr<Shared> shared_;
  };
  /// False where it ended before its time; a `std::exception` ends it with its text.
  using Work = std::function<bool(const Session& session, const Line& line)>;

  /// Starts; `owner` outlives this. Nothing is sent behind `done`.
  BackgroundRun(Session session, QObject& owner, Work work, std::function<void(RunEnd end)> done);
  /// Stops the work and waits for its end; then nothing arrives any more.
  ~BackgroundRun();
  BackgroundRun(const BackgroundRun&) = delete;
  BackgroundRun& operator=(const BackgroundRun&) = delete;

  /// Stops the work soon; `done` follows.
  void Stop() { line_.shared_->Stopped = true; }

 private:
  Line line_;
  std::thread thread_;
};

/// Hands rows on in batches, so that the window isn't asked too often, and slow ones still come by
/// and by.
template <class Row>
class RowSender {
 public:
  using Take = std::function<void(std::vector<Row> rows)>;

  RowSender(const BackgroundRun::Line& line, Take take) : line_(line), take_(std::move(take)) {}

  void Add(Row row) {
    constexpr std::size_t Most = 256;
    constexpr auto Longest = std::chrono::milliseconds(100);
    rows_.push_back(std::move(row));
    if (rows_.size() >= Most || Clock::now() - sent_ >= Longest) Flush();
  }

  /// Hands on the last ones.
  void Flush() {
    sent_ = Clock::now();
    if (rows_.empty()) return;
    auto rows = std::make_shared<std::vector<Row>>(std::exchange(rows_, {}));
    line_.Send([take = take_, rows] { take(std::move(*rows)); });
  }

 private:
  using Clock = std::chrono::steady_clock;

  const BackgroundRun::Line& line_;
  Take take_;
  std::vector<Row> rows_;
  Clock::time_point sent_ = Clock::now();
};

}  // namespace velorix
