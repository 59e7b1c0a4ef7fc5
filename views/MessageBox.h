// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

/// Shows a message and waits until it is closed: information icon, one OK button, the application's name as title.
/// The text is shown as it is, never as markup. `parent` may be null or hidden.
void showMessage(QWidget* parent, const QString& text);

/// Asks a question with the buttons Yes and No, and waits for one of them: Esc and the close box do nothing.
/// @return whether the answer was Yes
[[nodiscard]] bool askYesNo(QWidget* parent, const QString& title, const QString& text);
