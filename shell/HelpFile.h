// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

/// The help file of the program, opened with whatever the desktop opens such files with.
class HelpFile {
  public:
    /// @param folder the program's folder, without a separator at its end
    explicit HelpFile(const QString& folder) : path_(folder + QStringLiteral("/Pelmo.chm")) {}

    [[nodiscard]] const QString& path() const { return path_; }
    /// Opens the help file. If there is none, or nothing that shows it, says so; that may be a moment later.
    void show(QWidget* window) const;

  private:
    QString path_;
};
