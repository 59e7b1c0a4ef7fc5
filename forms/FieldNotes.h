// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>
#include <string_view>

// Notes on text that was typed into a field and does harm if it is stored as it is.

/// What happens to a text with commas or double quotes when its file is opened again. Empty if it has none.
/// @param comma what a comma does in the field; empty for a field of numbers, which accepts neither
[[nodiscard]] QString noteOnCommas(const QString& text, const char* comma);

/// The same for the length of a character key.
[[nodiscard]] QString noteOnLength(const QString& text);

/// Says that an ID belongs to another record.
/// @param owner for example "another node"
/// @param name the name of that record, as it is stored; a long one is cut
[[nodiscard]] QString noteOnOwner(std::int32_t id, const char* owner, std::string_view name);

/// The end of a note on an ID: what happens to the record that the user opened.
/// @param kind for example "node"
[[nodiscard]] QString noteOnOpened(bool isStored, const char* kind, std::int32_t id);
