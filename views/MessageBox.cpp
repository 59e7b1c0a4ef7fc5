// SPDX-License-Identifier: MIT
#include "views/MessageBox.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMessageBox>

namespace {

// The base class would take Esc and the close box as a No.
class Question final : public QMessageBox {
  public:
    explicit Question(QWidget* parent) : QMessageBox(parent) {}

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Escape && !event->matches(QKeySequence::Cancel))
            QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

void prepare(QMessageBox& box, const char* name, const QString& title, const QString& text) {
    box.setObjectName(QString::fromLatin1(name));
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
}

}  // namespace

void showMessage(QWidget* parent, const QString& text) {
    QMessageBox box(parent && parent->isVisible() ? parent : nullptr);
    prepare(box, "message", QCoreApplication::applicationName(), text);
    box.setIcon(QMessageBox::Information);
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

bool askYesNo(QWidget* parent, const QString& title, const QString& text) {
    Question box(parent);
    prepare(box, "question", title, text);
    box.setIcon(QMessageBox::Question);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}
