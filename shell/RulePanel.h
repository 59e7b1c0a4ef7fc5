// SPDX-License-Identifier: MIT
#pragma once

#include <QGroupBox>

/// The frame `frRule`: a legend of the node types, which types may be below which, and the keys of the tree. It only
/// shows them.
class RulePanel final : public QGroupBox {
  public:
    explicit RulePanel(QWidget* parent);

  protected:
    /// Draws the caption on the frame's line: if it were below, the line would run through the texts at the top.
    void paintEvent(QPaintEvent* event) override;
};
