// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <string>

/// A text box of an entry form. What is typed or pasted into it can be stored: a text with a character that the code
/// page lacks is refused, and a tool tip says which; line breaks, which a record cannot hold, are shown as blanks.
/// What is stored but does harm gets a note.
class EntryLine final : public QLineEdit {
  public:
    explicit EntryLine(QWidget* parent);

    /// The text as bytes of the code page, with blanks for line breaks; those at either end are dropped.
    [[nodiscard]] std::string bytes() const;
    void setBytes(std::string_view bytes);

    /// Sets the note on the text in the box, which is its tool tip; empty for none. While the box has the focus the
    /// note is shown with every change of the text, and when the user comes back. A screen reader says it before the
    /// help.
    void setNote(const QString& note);

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void showNote();

    QString noted_;     // the text that the note was last set for
    QString storable_;  // the last text that can be stored
};
