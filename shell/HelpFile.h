// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <chrono>

class QWidget;

/// The program's help file, opened with whatever program the desktop uses for such files.
class HelpFile {
  public:
    /// @param folder the program's folder, without a separator at its end
    /// @param patience if the desktop's opener fails later than this, the help was shown
    explicit HelpFile(const QString& folder, std::chrono::milliseconds patience = std::chrono::seconds(10))
        : path_(folder + QStringLiteral("/Pelmo.chm")), patience_(patience) {}

    [[nodiscard]] const QString& path() const { return path_; }
    /// Opens the help file. If there is none, or no program to show it, a message says so, perhaps a moment later.
    void show(QWidget* window) const;

  private:
    QString path_;
    std::chrono::milliseconds patience_;
};
