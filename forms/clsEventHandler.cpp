// SPDX-License-Identifier: MIT
#include "forms/clsEventHandler.h"

#include <algorithm>

#include "views/Centring.h"

namespace {

using Event = clsEventHandler::Event;

struct Key {
    Qt::Key key;
    std::int16_t code;
    Event event;
    enum { Alone, WithControl } argument = Alone;  ///< whether the event comes with the field that has the focus
};
// F6 and F12 have no event, and F10 comes before F8 and F9: both are given.
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
    {Qt::Key_F11, 122, Event::eSelect, Key::WithControl},
    {Qt::Key_Escape, 27, Event::eCloseForm},
    {Qt::Key_Return, 13, Event::eEnter, Key::WithControl},
    {Qt::Key_Enter, 13, Event::eEnter, Key::WithControl},
};

}  // namespace

clsEventHandler::clsEventHandler() : keys_(commands()) {
}

std::vector<ReleasedKeys::Command> clsEventHandler::commands() {
    std::vector<ReleasedKeys::Command> commands;
    for (const auto& key : keyMap)
        commands.push_back({.key = key.key, .run = [this, code = key.code] {
                                auto keyCode = code;
                                std::int16_t shift = 0;
                                Processkey(keyCode, shift);
                            }});
    return commands;
}

void clsEventHandler::SetForm(QWidget& frm) {
    mForm = &frm;
    keys_.serve(frm);
    centreOnScreen(frm);
}

std::int16_t clsEventHandler::Processkey(std::int16_t& KeyCode, std::int16_t& /*Shift*/) {
    const auto* key = std::ranges::find(keyMap, KeyCode, &Key::code);
    if (key == std::end(keyMap)) return KeyCode;
    KeyCode = 0;
    if (raise) raise(key->event, key->argument == Key::WithControl && mForm ? mForm->focusWidget() : nullptr);
    return KeyCode;
}
