// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>
#include <string_view>

/// The text box of a report: plain text in lines that are not broken, which scrolls both ways. It can be typed into.
class ReportBox final : public QPlainTextEdit {
  public:
    explicit ReportBox(QWidget* parent);

    /// Whether there is memory to show a report of these bytes. Qt's text boxes do not survive a lack of memory
    /// half-way: ask first.
    [[nodiscard]] static bool hasRoomFor(std::string_view report);

  protected:
    bool focusNextPrevChild(bool next) override;
    QMimeData* createMimeDataFromSelection() const override;
};
