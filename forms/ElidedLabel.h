// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// A label of one line. Where the text is too long for it, it ends in an ellipsis, and the whole is the tool tip;
/// `text` and a screen reader have the whole in any case.
class ElidedLabel final : public QLabel {
  public:
    explicit ElidedLabel(QWidget* parent);

    void setWholeText(const QString& text);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void updateToolTip();
};
