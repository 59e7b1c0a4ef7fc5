// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <chrono>

class QWidget;

/// The help file of the program, opened with whatever the desktop opens such files with.
class HelpFile {
  public:
    /// @param folder the program's folder, without a separator at its end
    /// @param patience an error of the desktop's opener later than this means that the help was shown
    explicit HelpFile(const QString& folder, std::chrono::milliseconds patience = std::chrono::seconds(10))
        : path_(folder + QStringLiteral("/Pelmo.chm")), patience_(patience) {}

    [[nodiscard]] const QString& path() const { return path_; }
    /// Opens the help file. If there is none, or nothing that shows it, says so; that may be a moment later.
    void show(QWidget* window) const;

  private:
    QString path_;
    std::chrono::milliseconds patience_;
};
