// SPDX-License-Identifier: MIT
#include "forms/clsEventHandler.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>

#include "views/Centring.h"

namespace {

using Event = clsEventHandler::Event;

struct Key {
    Qt::Key key;
    std::int16_t code;
    Event event;
    bool givesControl = false;
};
// F6 and F12 have no event; F10 comes before F8 and F9.
constexpr Key keyMap[] = {
    {Qt::Key_F1, 112, Event::eHelp},
    {Qt::Key_F2, 113, Event::eNew},
    {Qt::Key_F3, 114, Event::eSave},
    {Qt::Key_F4, 115, Event::eSearch},
    {Qt::Key_F5, 116, Event::ePrint},
    {Qt::Key_F7, 118, Event::eParentDelete},
    {Qt::Key_F8, 119, Event::eNextDetail},
    {Qt::Key_F9, 120, Event::eMarks},
    {Qt::Key_F10, 121, Event::eUndeleteParent},
    {Qt::Key_F11, 122, Event::eSelect, true},
    {Qt::Key_Escape, 27, Event::eCloseForm},
    {Qt::Key_Return, 13, Event::eEnter, true},
    {Qt::Key_Enter, 13, Event::eEnter, true},
};

}  // namespace

clsEventHandler::~clsEventHandler() {
    if (qApp) qApp->removeEventFilter(this);
}

void clsEventHandler::SetForm(QWidget& frm) {
    mForm = &frm;
    keys_.forget();
    centreOnScreen(frm);
    qApp->installEventFilter(this);
}

std::int16_t clsEventHandler::Processkey(std::int16_t& KeyCode, std::int16_t& /*Shift*/) {
    const auto* key = std::ranges::find(keyMap, KeyCode, &Key::code);
    if (key == std::end(keyMap)) return KeyCode;
    KeyCode = 0;
    if (raise) raise(key->event, key->givesControl && mForm ? mForm->focusWidget() : nullptr);
    return KeyCode;
}

bool clsEventHandler::eventFilter(QObject* watched, QEvent* event) {
    if (!mForm) return false;
    if (watched == mForm && event->type() == QEvent::WindowDeactivate) keys_.forget();
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    if (!watched->isWidgetType() || static_cast<QWidget*>(watched)->window() != mForm) return false;
    if (!keyPreview(static_cast<QKeyEvent&>(*event))) return false;
    event->accept();
    return true;
}

// Whether the key was consumed.
bool clsEventHandler::keyPreview(const QKeyEvent& event) {
    const auto* key = std::ranges::find(keyMap, event.key(), &Key::key);
    if (key == std::end(keyMap)) return false;
    if (event.type() == QEvent::KeyPress) {
        keys_.pressed(event);
    } else if (keys_.released(event)) {
        auto code = key->code;
        std::int16_t shift = 0;
        Processkey(code, shift);
    }
    return true;
}
