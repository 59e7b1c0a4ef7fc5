// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <string>

/// A text box of an entry form. It accepts only what can be stored: typing or pasting a character that is not in the
/// code page is refused, and a tool tip says which one. Line breaks, which a record cannot hold, are stored as
/// blanks. A text that can be stored but does harm gets a note.
class EntryLine final : public QLineEdit {
  public:
    explicit EntryLine(QWidget* parent);

    /// The text as bytes of the code page, with blanks for line breaks; line breaks at either end are dropped. While
    /// the text is the one that `setBytes` showed, these are the bytes that it was given: some code pages have
    /// several bytes for one character, and what the user has not changed must not change.
    [[nodiscard]] std::string bytes() const;
    void setBytes(std::string_view bytes);

    /// Sets the note on the text in the box; empty for none. The note is the tool tip of the box. While the box has
    /// the focus, the note appears whenever the text changes or the user comes back. A screen reader says it before
    /// the help.
    void setNote(const QString& note);

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void showNote();

    std::string given_;  // what setBytes was last given
    QString shown_;      // and how it was shown
    QString noted_;      // the text that the note was last set for
    QString storable_;   // the last text that could be stored
};
