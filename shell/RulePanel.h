// SPDX-License-Identifier: MIT
#pragma once

#include <QGroupBox>

/// The frame `frRule`: a legend of the node types, what may stand below which, and the keys of the tree. It does
/// nothing.
class RulePanel final : public QGroupBox {
  public:
    explicit RulePanel(QWidget* parent);

  protected:
    /// Draws the caption on the line of the frame: below it, the line would run through the texts at the top.
    void paintEvent(QPaintEvent* event) override;
};
