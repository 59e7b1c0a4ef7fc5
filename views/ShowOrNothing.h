// SPDX-License-Identifier: MIT
#pragma once

#include <new>

/// Shows something in place of what a view shows now. Where memory is short, the old goes first. What then still
/// cannot be shown is not shown by half: the view is empty.
/// @param show, showNothing callable: () -> void
/// @throws std::bad_alloc when nothing is shown for lack of memory
template <class Show, class ShowNothing>
void showOrNothing(Show show, ShowNothing showNothing) {
    try {
        show();
        return;
    } catch (const std::bad_alloc&) {
        showNothing();
    }
    try {
        show();
    } catch (const std::bad_alloc&) {
        showNothing();
        throw;
    }
}
