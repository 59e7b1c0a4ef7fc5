// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// What a paragraph's field "Columns" says. It has a meaning of its own for each type.

/// Column numbers joined by colons, as in "2:3", or "All". The ID is column 0.
struct ColumnList {
    bool isReadable = false;
    bool isAll = false;
    std::vector<std::size_t> numbers{};  ///< as they are listed; none for "All"
};

/// @return unreadable for the empty text, too
[[nodiscard]] ColumnList readColumns(std::string_view colsAre);

/// The columns that a table sums: those listed, or for "All" every one from number 1 on.
/// @param count how many columns there are; numbers beyond them are left out
[[nodiscard]] std::vector<std::size_t> summedColumns(const ColumnList& list, std::size_t count);

/// A bar chart: the column of the labels and that of the values.
struct Axes {
    std::size_t labels, values;
};

/// The charts of "X:Y", or for "All" one of each column from number 2 on, with the labels of column 1. "X:Y:Z" makes
/// two, X:Y and X:Z.
[[nodiscard]] std::vector<Axes> chartsOf(const ColumnList& list, std::size_t count);

/// How thumbnails are laid out. The defaults are for what the field does not say.
struct ThumbnailLayout {
    int height = 150;  ///< of a picture, in pixels
    int width = 150;
    int columns = 4;                 ///< side by side
    bool isTextOnRight = false;      ///< and below the picture otherwise
    std::vector<std::string> notes;  ///< what could not be read, and what is taken instead
};

/// Reads "<height>150</height> <width>150</width> <columns>3</columns> <textposition>bottom</textposition>".
[[nodiscard]] ThumbnailLayout readThumbnailLayout(std::string_view colsAre);
