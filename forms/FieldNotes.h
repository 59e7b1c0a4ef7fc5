// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>
#include <string_view>

// Notes on what was typed into a field, for the cases where storing it as it is does harm.

/// What becomes of a text with commas or double quotes when its file is opened again. Empty for a text without.
/// @param comma what a comma does there; empty for a field of numbers, which can be stored with neither
[[nodiscard]] QString noteOnCommas(const QString& text, const char* comma);

/// The same for the length of a character key.
[[nodiscard]] QString noteOnLength(const QString& text);

/// That an ID is the one of another record.
/// @param owner such as "another node"
/// @param name what the record is called, as it is stored; the beginning is enough if it is long
[[nodiscard]] QString noteOnOwner(std::int32_t id, const char* owner, std::string_view name);

/// The end of a note on an ID: what becomes of the record that the user opened.
/// @param kind such as "node"
[[nodiscard]] QString noteOnOpened(bool isStored, const char* kind, std::int32_t id);
