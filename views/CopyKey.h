// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>
#include <QModelIndex>

/// Copies the whole text of a cell, of which the view may show the beginning alone, when this is the key for copying.
/// @return whether it is
bool copiesCell(QKeyEvent& event, const QModelIndex& cell);
