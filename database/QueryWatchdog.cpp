// SPDX-License-Identifier: MIT
#include "database/QueryWatchdog.h"

QueryWatchdog::QueryWatchdog(std::chrono::milliseconds time, std::function<void()> stop)
    : thread_([this, time, stop = std::move(stop)] {
          std::unique_lock lock(mutex_);
          if (ended_.wait_for(lock, time, [this] { return isEnded_; })) return;
          hasStopped_ = true;
          stop();
      }) {
}

bool QueryWatchdog::end() {
    {
        const std::scoped_lock lock(mutex_);
        isEnded_ = true;
    }
    ended_.notify_one();
    if (thread_.joinable()) thread_.join();
    return hasStopped_;
}
