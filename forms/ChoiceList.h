// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>
#include <functional>

/// A list box with one or no entry chosen. Choosing an entry, with the mouse, the keyboard or by `setListIndex`, is a
/// click on it; so is a click on the one that is chosen already. The focus alone chooses nothing. Its frame is that
/// of a text box, with the focus too.
class ChoiceList final : public QListWidget {
  public:
    explicit ChoiceList(QWidget* parent);

    std::function<void()> Click;

    /// The chosen entry, counted from 0; -1 when none is.
    [[nodiscard]] int ListIndex() const;
    /// Chooses an entry, or none with -1. An index that the list does not have changes nothing.
    void setListIndex(int index);
    /// The text of the chosen entry, empty when none is chosen.
    [[nodiscard]] QString chosen() const;

    /// Makes the list as high as `rows` entries and as wide as the widest one.
    void fit(int rows);

  protected:
    bool event(QEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
};
