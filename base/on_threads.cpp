#include "base/on_threads.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace velorix {
namespace {

/// Joins the threads, which have to stop when the caller's share ends by an exception.
struct Joiner {
  std::vector<std::thread>& Threads;
  std::atomic<bool>& Stopped;
  bool Finished = false;
  ~Joiner() {
    if (!Finished) Stopped = true;
    for (std::thread& thread : Threads) thread.join();
  }
};

}  // namespace

bool OnThreads(std::size_t parts, std::size_t threads,
               const std::function<std::size_t(std::size_t part)>& work,
               const std::function<bool(std::size_t done)>& goOn) {
  std::atomic<std::size_t> next = 0, done = 0;
  std::atomic<bool> stopped = false;
  const auto share = [&](bool hears) {
    for (std::size_t part; !stopped && (part = next++) < parts;) {
      const std::size_t size = work(part), all = done += size;
      if (hears && goOn && !goOn(all)) stopped = true;
    }
  };
  std::vector<std::thread> others;
  {
    Joiner joiner{others, stopped};
    for (std::size_t i = 1; i < std::min(threads, parts); ++i) others.emplace_back(share, false);
    share(true);
    joiner.Finished = true;
  }
  return !stopped;
}

}  // namespace velorix
