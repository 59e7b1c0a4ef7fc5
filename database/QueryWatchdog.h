// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// Calls `stop` from a thread of its own when the time is over, unless it has ended before.
class QueryWatchdog {
  public:
    QueryWatchdog(std::chrono::milliseconds time, std::function<void()> stop);
    QueryWatchdog(const QueryWatchdog&) = delete;
    QueryWatchdog& operator=(const QueryWatchdog&) = delete;
    ~QueryWatchdog() { (void)end(); }

    /// From here on `stop` is not called. @return whether it was called
    bool end();

  private:
    std::mutex mutex_;
    std::condition_variable ended_;
    bool isEnded_ = false;
    bool hasStopped_ = false;
    std::thread thread_;  // declared last: it uses the others
};
