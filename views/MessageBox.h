#pragma once

#include <QString>

class QWidget;

/// Shows a message and waits until it is read: information icon, one OK button, the application's name as title.
/// The text is shown as it stands, never as markup. `parent` may be null or hidden.
void showMessage(QWidget* parent, const QString& text);
