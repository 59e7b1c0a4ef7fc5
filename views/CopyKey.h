// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>
#include <QModelIndex>

/// If this is the key for copying, copies the whole text of a cell, even where the view shows only its beginning.
/// @return whether it is that key
bool copiesCell(QKeyEvent& event, const QModelIndex& cell);
