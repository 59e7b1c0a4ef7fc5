// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include "shell/HelpFile.h"
#include "views/ReleasedKeys.h"

/// The introduction window: a picture of what the wizard makes, and a text about it. Esc closes it; F1 shows the
/// help.
class fIntro final : public QDialog {
  public:
    /// @param help must outlive the window
    fIntro(const HelpFile& help, QWidget* parent);

  private:
    ReleasedKeys keys_;
};
