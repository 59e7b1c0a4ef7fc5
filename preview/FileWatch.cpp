// SPDX-License-Identifier: MIT
#include "preview/FileWatch.h"

#include <sys/stat.h>

#include <QFileInfo>
#include <QString>

namespace {

constexpr int pauseInMilliseconds = 100;

}  // namespace

FileWatch::FileWatch(std::vector<std::string> files, std::function<void()> changed)
    : files_(std::move(files)), changed_(std::move(changed)), last_(stamp()) {
    pause_.setSingleShot(true);
    pause_.setInterval(pauseInMilliseconds);
    QObject::connect(&pause_, &QTimer::timeout, [this] { compare(); });
    const auto wait = [this] { pause_.start(); };
    QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &pause_, wait);
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &pause_, wait);
    watch();
}

// The folders report new files, the files what is written in place. A file that was replaced is watched no longer.
void FileWatch::watch() {
    for (const auto& name : files_) {
        const QFileInfo file(QString::fromLocal8Bit(name));
        for (const auto& path : {file.absolutePath(), file.absoluteFilePath()})
            if (QFileInfo::exists(path) && !watcher_.files().contains(path) && !watcher_.directories().contains(path))
                watcher_.addPath(path);
    }
}

// Other files of the folder change, too: the database itself may be there.
FileWatch::Stamp FileWatch::stamp() const {
    Stamp all;
    for (const auto& name : files_) {
        struct stat status {};
        if (::stat(name.c_str(), &status) != 0) status = {};
        for (const auto number :
             {static_cast<long long>(status.st_ino), static_cast<long long>(status.st_size),
              static_cast<long long>(status.st_mtim.tv_sec), static_cast<long long>(status.st_mtim.tv_nsec)})
            all += std::to_string(number) + " ";
    }
    return all;
}

void FileWatch::compare() {
    watch();
    auto now = stamp();
    if (now == last_) return;
    last_ = std::move(now);
    changed_();
}
