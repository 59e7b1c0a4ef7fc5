// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <string>

#include "shell/HelpFile.h"
#include "views/ReleasedKeys.h"

class ReportBox;

/// The report window: one window for all reports. Closing it unloads it: it drops the report, and opens again with
/// its original size. Esc closes it; F1 shows the help.
///
/// The user can type into the report, but the next resize drops what was typed. That is given.
class fOutput final : public QDialog {
  public:
    /// @param help must outlive the window
    fOutput(const HelpFile& help, QWidget* parent);

    /// The report to show, in bytes of the code page; empty after an unload.
    [[nodiscard]] const std::string& sText() const { return sText_; }
    /// Sets the report. It appears when the window is next laid out, on opening or resizing.
    void setSText(std::string report);

    void setVisible(bool visible) override;
    void done(int result) override;

  protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool nativeEvent(const QByteArray& type, void* message, qintptr* result) override;

  private:
    void load();
    void unload();
    void layOut();

    ReportBox* text_;
    std::string sText_;
    bool isCopied_ = true;    // sText_ has been copied into the text box
    bool isGrabbed_ = false;  // the window manager has grabbed the keyboard, perhaps to drag this window
    ReleasedKeys keys_;
};
