// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>
#include <functional>

/// A list box in which one entry or none is selected. Selecting an entry, with the mouse, the keyboard or
/// `setListIndex`, counts as a click on it; so does a click on the entry that is already selected. Receiving the
/// focus selects nothing. The frame looks like that of a text box, also with the focus.
class ChoiceList final : public QListWidget {
  public:
    explicit ChoiceList(QWidget* parent);

    std::function<void()> Click;

    /// The selected entry, counted from 0; -1 if none is selected.
    [[nodiscard]] int ListIndex() const;
    /// Selects an entry; -1 selects none. An index that the list does not have changes nothing.
    void setListIndex(int index);
    /// The text of the selected entry; empty if none is selected.
    [[nodiscard]] QString chosen() const;

    /// Makes the list as high as `rows` entries and as wide as its widest entry.
    void fit(int rows);

  protected:
    bool event(QEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
};
