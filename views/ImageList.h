// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QObject>
#include <vector>

/// The pictures of the tree. Each has an index, counted from 1, and a key.
class ImageList final : public QObject {
  public:
    explicit ImageList(QObject* parent) : QObject(parent) {}

    /// Adds the picture with the next index.
    void add(const QString& key, const QIcon& icon) { images_.push_back({key, icon}); }
    [[nodiscard]] int count() const { return static_cast<int>(images_.size()); }
    /// The picture with this index; an empty one if there is none.
    [[nodiscard]] QIcon icon(int index) const;
    [[nodiscard]] QString key(int index) const;

  private:
    struct Image {
        QString key;
        QIcon icon;
    };
    std::vector<Image> images_;
};
