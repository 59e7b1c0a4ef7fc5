// SPDX-License-Identifier: MIT
#include "model/KeyIndex.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::size_t smallestTable = 256;
constexpr std::size_t slotsPerEntry = 4;  // how thinly the table may be filled
constexpr std::size_t fewestCells = 16;   // a power of two, as every number of cells

std::size_t unsignedOf(std::int32_t number) {
    return static_cast<std::uint32_t>(number);
}

}  // namespace

void KeyIndex::reserve(std::size_t count) {
    expected_ = std::max(expected_, count);
}

std::uint32_t KeyIndex::find(std::int32_t number) const {
    const auto place = unsignedOf(number);
    if (place < table_.size() && table_[place] != none) return table_[place];
    return cells_.empty() ? none : cells_[cellOf(number)].place;
}

std::uint32_t& KeyIndex::slotFor(std::int32_t number) {
    if (!cells_.empty())
        if (auto& cell = cells_[cellOf(number)]; cell.place != none) return cell.place;
    const auto place = unsignedOf(number);
    if (place < table_.size()) return table_[place];
    ++inserted_;
    expected_ = std::max(expected_, inserted_);
    if (place < std::max(smallestTable, expected_ * slotsPerEntry)) {
        table_.resize(std::max(place + 1, smallestTable), none);
        return table_[place];
    }
    growCells();
    auto& cell = cells_[cellOf(number)];
    cell.number = number;
    return cell.place;
}

bool KeyIndex::insert(std::int32_t number, std::uint32_t place) {
    std::uint32_t& slot = slotFor(number);
    if (slot != none) return false;
    slot = place;
    return true;
}

void KeyIndex::set(std::int32_t number, std::uint32_t place) {
    slotFor(number) = place;
}

void KeyIndex::clear() {
    *this = {};
}

// Linear probing. Multiplying by 2^32 divided by the golden ratio spreads numbers that follow a pattern.
std::size_t KeyIndex::homeOf(std::int32_t number) const {
    const auto spread = static_cast<std::uint32_t>(unsignedOf(number) * 0x9E3779B1U);
    return spread >> (32 - std::bit_width(cells_.size() - 1));
}

std::size_t KeyIndex::cellOf(std::int32_t number) const {
    auto cell = homeOf(number);
    while (cells_[cell].place != none && cells_[cell].number != number) cell = (cell + 1) & (cells_.size() - 1);
    return cell;
}

void KeyIndex::growCells() {
    if ((cellsUsed_ + 1) * 2 > cells_.size()) {
        std::vector<Cell> larger(std::max(cells_.size() * 2, fewestCells));
        cells_.swap(larger);
        for (const auto& cell : larger)
            if (cell.place != none) cells_[cellOf(cell.number)] = cell;
    }
    ++cellsUsed_;
}

void KeyIndex::erase(std::int32_t number) {
    if (unsignedOf(number) < table_.size()) table_[unsignedOf(number)] = none;
    if (cells_.empty()) return;
    auto hole = cellOf(number);
    if (cells_[hole].place == none) return;
    --cellsUsed_;
    // Move up what was pushed past the hole, so that no search ends early.
    const auto mask = cells_.size() - 1;
    for (auto next = (hole + 1) & mask; cells_[next].place != none; next = (next + 1) & mask) {
        const auto fromHome = (next - homeOf(cells_[next].number)) & mask;
        if (fromHome < ((next - hole) & mask)) continue;
        cells_[hole] = cells_[next];
        hole = next;
    }
    cells_[hole] = {};
}
