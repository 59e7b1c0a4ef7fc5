// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <vector>

#include "views/ReleasedKeys.h"

/// The keyboard scheme of the entry forms: turns function keys, Esc and Enter into events.
///
/// It sees every key of its form before the field that has the focus. A key counts when it is let go, once, whatever
/// Shift, Ctrl and Alt are; a mapped key reaches no one else, neither when it goes down nor when it comes up.
class clsEventHandler final {
  public:
    clsEventHandler();

    /// The events by their numbers. No key raises the last one.
    enum class Event {
        eHelp = 1,
        eNew,
        eSave,
        eSearch,
        ePrint,
        eParentDelete,
        eUndeleteParent,
        eNextDetail,
        eMarks,
        eCloseForm,
        eSelect,
        eEnter,
        eOpenSpecificForm,
    };

    /// Hears of each event. `vControl` is the field that has the focus for `eSelect` and `eEnter`, else null.
    std::function<void(Event event, QWidget* vControl)> raise;

    /// Serves this form from now on, and no other, and centres it on the screen. The form must outlive the handler,
    /// or be given up for another one.
    void SetForm(QWidget& frm);

    /// Raises the event of a key, if it has one.
    /// @param KeyCode code of the key (F1 is 112, Esc 27, Enter 13); becomes 0 when the key has an event
    /// @param Shift not read
    /// @return `KeyCode` as it is then
    std::int16_t Processkey(std::int16_t& KeyCode, std::int16_t& Shift);

  private:
    [[nodiscard]] std::vector<ReleasedKeys::Command> commands();

    QPointer<QWidget> mForm;
    ReleasedKeys keys_;
};
