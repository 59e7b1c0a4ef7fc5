// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>
#include <string_view>

/// The text box of a report: plain text without line wrapping, which scrolls both ways. The user can type into it.
class ReportBox final : public QPlainTextEdit {
  public:
    explicit ReportBox(QWidget* parent);

    /// Whether there is enough memory to show this report. Qt's text boxes do not survive running out of memory, so
    /// ask first.
    [[nodiscard]] static bool hasRoomFor(std::string_view report);

  protected:
    bool focusNextPrevChild(bool next) override;
    QMimeData* createMimeDataFromSelection() const override;
};
