// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include "shell/HelpFile.h"
#include "views/ReleasedKeys.h"

/// The introduction window: a picture of what the wizard makes, and a text about it. Esc closes it, F1 shows the
/// help.
class fIntro final : public QDialog {
  public:
    /// @param help must outlive the window
    fIntro(const HelpFile& help, QWidget* parent);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    const HelpFile& help_;
    ReleasedKeys keys_;
};
