// SPDX-License-Identifier: MIT
#pragma once

#include <QFileSystemWatcher>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

/// Notices when one of some files is saved, in place or by a new file that takes its name.
class FileWatch {
  public:
    /// @param changed is called a moment after a file was saved, once for all that were saved together
    FileWatch(std::vector<std::string> files, std::function<void()> changed);

  private:
    using Stamp = std::string;
    [[nodiscard]] Stamp stamp() const;
    void watch();
    void compare();

    std::vector<std::string> files_;
    std::function<void()> changed_;
    QFileSystemWatcher watcher_;
    QTimer pause_;  // a save takes several steps, each of which the watcher reports
    Stamp last_;
};
