#include "views/MessageBox.h"

#include <QCoreApplication>
#include <QMessageBox>

void showMessage(QWidget* parent, const QString& text) {
    QMessageBox box(parent && parent->isVisible() ? parent : nullptr);
    box.setObjectName(QStringLiteral("message"));
    box.setWindowTitle(QCoreApplication::applicationName());
    box.setIcon(QMessageBox::Information);
    box.setStandardButtons(QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.setText(QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    box.exec();
}
