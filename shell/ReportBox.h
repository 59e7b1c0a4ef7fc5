// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>
#include <string_view>

/// The text box of a report: plain text in lines that are not broken, which scrolls both ways. It can be typed into.
///
/// Qt makes a record of each paragraph, in two microseconds, and goes through all of them at every step of a
/// drag of the window's frame. So a long report becomes paragraphs of several lines; to the eye, the keyboard and the
/// clipboard it is the same.
class ReportBox final : public QPlainTextEdit {
  public:
    explicit ReportBox(QWidget* parent);

    /// Whether there is memory to show a report of these bytes.
    [[nodiscard]] static bool hasRoomFor(std::string_view report);

    /// Shows a report, lines that end with CR LF. Qt's text boxes do not survive a lack of memory half-way: ask
    /// first.
    void setReport(QString report);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    QMimeData* createMimeDataFromSelection() const override;

  private:
    void joinLines(QString& report) const;
    bool countLines();

    int linesAParagraph_ = 1;
};
