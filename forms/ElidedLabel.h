// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// A label of one line. A text that is too long for it ends in an ellipsis, and the tool tip shows all of it; `text`
/// and a screen reader always have the whole text.
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
