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
/// It sees every key of its form before the field with the focus does. A key acts once, on release, whether or not
/// Shift, Ctrl or Alt is down. Nobody else receives the press or the release of a mapped key.
class clsEventHandler final {
  public:
    clsEventHandler();

    /// The events, with their numbers. No key raises the last one.
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

    /// Called for each event. For `eSelect` and `eEnter`, `vControl` is the field with the focus; otherwise it is
    /// null.
    std::function<void(Event event, QWidget* vControl)> raise;

    /// From now on serves this form and no other; centres it on the screen. The form must outlive the handler, or be
    /// replaced by another one.
    void SetForm(QWidget& frm);

    /// Raises the event of a key, if it has one.
    /// @param KeyCode code of the key (F1 is 112, Esc 27, Enter 13); becomes 0 if the key has an event
    /// @param Shift not used
    /// @return the new value of `KeyCode`
    std::int16_t Processkey(std::int16_t& KeyCode, std::int16_t& Shift);

  private:
    [[nodiscard]] std::vector<ReleasedKeys::Command> commands();

    QPointer<QWidget> mForm;
    ReleasedKeys keys_;
};
