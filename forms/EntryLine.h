// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <string>

/// A text box of an entry form. What is typed or pasted into it can be stored: a text with a character that the code
/// page lacks is refused, and a tool tip says which; line breaks, which a record cannot hold, are shown as blanks.
class EntryLine final : public QLineEdit {
  public:
    explicit EntryLine(QWidget* parent);

    /// The text as bytes of the code page, with blanks for line breaks; those at either end are dropped.
    [[nodiscard]] std::string bytes() const;
    void setBytes(std::string_view bytes);

  private:
    QString storable_;  // the last text that can be stored
};
