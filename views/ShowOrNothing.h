// SPDX-License-Identifier: MIT
#pragma once

#include <new>

/// Shows something in place of what a view shows now. If memory runs out, the old contents are freed first. If it
/// still cannot be shown, the view is empty, never half filled.
/// @param show, showNothing callable: () -> void
/// @throws std::bad_alloc if the view is empty for lack of memory
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
