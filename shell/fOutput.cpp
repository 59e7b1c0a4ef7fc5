// SPDX-License-Identifier: MIT
#include "shell/fOutput.h"

#include <utility>

#include "shell/KeyboardGrab.h"
#include "shell/ReportBox.h"
#include "views/Centring.h"
#include "views/CodePage.h"
#include "views/Twips.h"

namespace {

// All in twips.
constexpr QSizeF clientArea(10965, 5760);
constexpr double margin = 10;  // to the left of and above the text, which is smaller than the window by as much

}  // namespace

fOutput::fOutput(const HelpFile& help, QWidget* parent)
    : QDialog(parent),
      text_(new ReportBox(this)),
      keys_(*this, {{Qt::Key_Escape, [this] { close(); }}, {Qt::Key_F1, [this, &help] { help.show(this); }}}) {
    setObjectName(QStringLiteral("fOutput"));
    setWindowTitle(QStringLiteral("Output..."));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    text_->setObjectName(QStringLiteral("Text1"));
    text_->setAccessibleName(QStringLiteral("Report"));
    text_->setFocus();
    load();
}

void fOutput::setSText(std::string report) {
    sText_ = std::move(report);
    isCopied_ = false;
}

void fOutput::setVisible(bool visible) {
    if (visible && !isVisible()) load();
    QDialog::setVisible(visible);
}

void fOutput::done(int result) {
    QDialog::done(result);
    unload();
}

// Not on unloading: a window that is being closed gets its last size back.
void fOutput::load() {
    isGrabbed_ = false;
    setWindowState(Qt::WindowNoState);
    resize(toPixels({{0, 0}, clientArea}, logicalDpiX()).size());
}

void fOutput::unload() {
    setSText({});
    text_->clear();
}

void fOutput::showEvent(QShowEvent* event) {
    layOut();  // there is no resize event if the window had this size before
    QDialog::showEvent(event);
}

void fOutput::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    layOut();
}

// Copying a report of some hundred thousand lines takes a while, and dragging the window's frame causes many resizes.
// So the report is copied only if the text box shows something else.
void fOutput::layOut() {
    const int dpi = logicalDpiX();
    auto place = text_->geometry();
    place.moveTo(toPixels(margin, dpi), toPixels(margin, dpi));
    if (const double height = toTwips(this->height(), dpi) - margin; height >= 0)
        place.setHeight(toPixels(height, dpi));
    if (const double width = toTwips(this->width(), dpi) - margin; width >= 0) place.setWidth(toPixels(width, dpi));
    text_->setGeometry(place);

    if (isCopied_ && !text_->document()->isModified()) return;
    text_->setPlainText(ReportBox::hasRoomFor(sText_)
                            ? decode(sText_)
                            : QStringLiteral("There is not enough memory to show this report."));
    isCopied_ = true;
}

void fOutput::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !std::exchange(isGrabbed_, false) &&
        !isMaximized())
        centreOnScreen(*this);
    QDialog::changeEvent(event);
}

// While the user drags a window, the window manager may grab the keyboard. Qt then sees the window become inactive,
// and active again at the end of the drag. But no other window was active, so it must stay where the user has put it.
bool fOutput::nativeEvent(const QByteArray& type, void* message, qintptr* result) {
    isGrabbed_ = keyboardGrab(type, message).value_or(isGrabbed_);
    return QDialog::nativeEvent(type, message, result);
}
