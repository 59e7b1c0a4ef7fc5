// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QFileInfo;

/// Why a scheme cannot be saved to `file`; empty if it can.
[[nodiscard]] QString saveRefusal(const QFileInfo& file);

/// The message with which a save dialog says so.
[[nodiscard]] QString saveRefusalMessage(const QString& refusal);
