// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "model/LargeArray.h"
#include "model/clsNavSchemes.h"
#include "views/NodeLook.h"
#include "views/TextKeeper.h"

/// A snapshot of what a grid shows below its header. Rows and columns count from 0.
class GridRows {
  public:
    virtual ~GridRows() = default;
    [[nodiscard]] virtual std::size_t count() const = 0;
    /// The bytes of a cell; numbers as plain decimal text.
    [[nodiscard]] virtual std::string cell(std::size_t row, int column) const = 0;
    [[nodiscard]] virtual QColor colour(std::size_t row) const = 0;
    /// The row's type as a screen reader says it.
    [[nodiscard]] virtual QString spoken(std::size_t row) const = 0;
    /// The length of the longest text in a column of numbers, to make the column wide enough; 0 for a column of
    /// texts.
    [[nodiscard]] virtual std::size_t widestNumber(int column) const = 0;
};

/// A column of a grid, and what it shows of each row: a text or a number.
template <class Rows>
struct GridColumn {
    std::string_view format;  ///< see ColumnFormat
    std::string_view (*text)(const Rows&, std::size_t row) = nullptr;
    std::int32_t (*number)(const Rows&, std::size_t row) = nullptr;
};

/// The grid of nodes: all of them, in collection order, each row in the colour of its type. A row of unknown type
/// takes the colour of the row above it.
class NavGridRows final : public GridRows {
  public:
    /// Alignment, caption and width of the columns; see ColumnFormat.
    [[nodiscard]] static std::string format();

    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    NavGridRows() = default;
    explicit NavGridRows(const clsNavSchemes& scheme);
    [[nodiscard]] std::size_t count() const override { return rows_.size(); }
    [[nodiscard]] std::string cell(std::size_t row, int column) const override;
    [[nodiscard]] QColor colour(std::size_t row) const override { return QColor(colours_[row]); }
    [[nodiscard]] QString spoken(std::size_t row) const override;
    [[nodiscard]] std::size_t widestNumber(int column) const override;
    /// The first row with this ID, or `none`. O(n).
    [[nodiscard]] std::size_t find(std::int32_t id) const;

  private:
    using Column = GridColumn<NavGridRows>;
    struct Row {
        Text::Ref description, type, query, parm, icon, role;
    };
    [[nodiscard]] static std::span<const Column> columns();

    LargeArray<Row> rows_;
    LargeArray<std::int32_t> ids_, parents_;  // kept apart, so that a search reads little memory
    LargeArray<QRgb> colours_;
    TextKeeper texts_;
};

/// The grid of paragraphs: the given ones, in that order, all in black. The field `extra` is not shown.
class WebGridRows final : public GridRows {
  public:
    [[nodiscard]] static std::string format();

    static constexpr int columnOfID = 0;
    static constexpr int columnOfNode = 1;

    WebGridRows() = default;
    /// Skips null pointers.
    explicit WebGridRows(std::span<const std::shared_ptr<clsWebScheme>> paragraphs);
    [[nodiscard]] std::size_t count() const override { return rows_.size(); }
    [[nodiscard]] std::string cell(std::size_t row, int column) const override;
    [[nodiscard]] QColor colour(std::size_t) const override { return Qt::black; }
    [[nodiscard]] QString spoken(std::size_t row) const override;
    [[nodiscard]] std::size_t widestNumber(int column) const override;

  private:
    using Column = GridColumn<WebGridRows>;
    struct Row {
        Text::Ref title, query, parm, type, cols;
        std::int32_t id, node, seqNo, form;
    };
    [[nodiscard]] static std::span<const Column> columns();

    LargeArray<Row> rows_;
    TextKeeper texts_;
};
