// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <string>

#include "shell/HelpFile.h"
#include "views/ReleasedKeys.h"

class ReportBox;

/// The report window: one window for all reports. Closing it unloads it: it forgets the report, and has its first
/// size when it is opened again. Esc closes it, F1 shows the help.
///
/// The report can be typed into, but what was typed is gone at the next resize.
class fOutput final : public QDialog {
  public:
    /// @param help must outlive the window
    fOutput(const HelpFile& help, QWidget* parent);

    /// The report to show, bytes of the code page; empty after an unload.
    [[nodiscard]] const std::string& sText() const { return sText_; }
    /// Sets the report. It is shown when the window lays itself out, the next time that it is opened or resized.
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
    bool isGrabbed_ = false;  // the keyboard is with the window manager only, which drags this window perhaps
    ReleasedKeys keys_;
};
