// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QWidget>

/// Size of the pictures, in pixels.
inline constexpr int pictureSize = 16;

/// A picture of 16 x 16 pixels on a window, sharp at every scale.
class Picture final : public QWidget {
  public:
    Picture(const QIcon& icon, QWidget* parent);
    [[nodiscard]] const QIcon& icon() const { return icon_; }

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    QIcon icon_;
};
