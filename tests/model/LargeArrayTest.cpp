// SPDX-License-Identifier: MIT
#include "model/LargeArray.h"

#include <cstring>
#include <fstream>
#include <limits>
#include <numeric>

#include "Helpers.h"
#include "model/NodeTree.h"

namespace {

constexpr std::size_t mebibyte = std::size_t{1} << 20;

std::vector<int> numbers(std::size_t count) {
    std::vector<int> all(count);
    std::iota(all.begin(), all.end(), 7);
    return all;
}

}  // namespace

TEST(LargeArray, MemoryOfOneCanBeFreedByAnother) {
    EXPECT_TRUE(largeBlock::Allocator<int>() == largeBlock::Allocator<char>());
}

TEST(LargeArray, KeepsItsValuesWhileItGrowsAndIsCopiedAndMoved) {
    const auto expected = numbers(3 * mebibyte / sizeof(int) + 1);
    LargeArray<int> grown;
    for (const int number : expected) grown.push_back(number);
    EXPECT_TRUE(std::ranges::equal(grown, expected));
    auto copy = grown;
    const auto moved = std::move(grown);
    copy.front() = 0;
    EXPECT_TRUE(std::ranges::equal(moved, expected));
    copy.resize(10);
    copy.shrink_to_fit();
    EXPECT_EQ(copy, (LargeArray<int>{0, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
}

#ifndef WIZARD_SANITIZED  // the sanitizer ends a program that asks for so much

TEST(LargeArray, ThrowsWhereThereIsNoMemory) {
    constexpr auto all = std::numeric_limits<std::size_t>::max();
    for (const auto bytes : {std::size_t{1} << 50, all / 2, all - 1, all})
        EXPECT_THROW(static_cast<void>(largeBlock::allocate(bytes)), std::bad_alloc) << bytes;
    EXPECT_THROW(static_cast<void>(makeLargeBytes(std::size_t{1} << 50)), std::bad_alloc);
    EXPECT_THROW(static_cast<void>(largeBlock::Allocator<int>().allocate(all / 2)), std::bad_alloc);
    LargeArray<int> array{1, 2, 3};
    EXPECT_THROW(array.reserve(std::size_t{1} << 48), std::bad_alloc);
    EXPECT_EQ(array, (LargeArray<int>{1, 2, 3}));
}

#endif

TEST(LargeArray, IsMadeOfBytesThatCanAllBeWritten) {
    for (const auto size : {std::size_t{0}, std::size_t{1}, mebibyte - 1, mebibyte, mebibyte + 1, 2 * mebibyte - 1,
                            2 * mebibyte, 2 * mebibyte + 1, 5 * mebibyte}) {
        const auto bytes = makeLargeBytes(size);
        ASSERT_NE(bytes, nullptr) << size;
        std::memset(bytes.get(), 'x', size);
        EXPECT_TRUE(size == 0 || bytes[size - 1] == 'x') << size;
    }
}

#if defined(__linux__) && !defined(WIZARD_SANITIZED)

namespace {

bool startsHugePage(const void* place) {
    return reinterpret_cast<std::uintptr_t>(place) % (2 * mebibyte) == 0;
}

// The operating system's flags for the memory at a place: "hg" means that huge pages were requested.
std::string flagsAt(const void* place) {
    const auto wanted = reinterpret_cast<std::uintptr_t>(place);
    std::ifstream maps("/proc/self/smaps");
    bool isHere = false;
    for (std::string line; std::getline(maps, line);) {
        unsigned long first = 0, last = 0;
        if (std::sscanf(line.c_str(), "%lx-%lx ", &first, &last) == 2) isHere = first <= wanted && wanted < last;
        if (isHere && line.rfind("VmFlags:", 0) == 0) return line + " ";
    }
    return {};
}

bool asksForHugePages(const void* place) {
    return flagsAt(place).find(" hg ") != std::string::npos;
}

bool systemHasHugePages() {
    return std::filesystem::exists("/sys/kernel/mm/transparent_hugepage/enabled");
}

std::size_t pagesInUse() {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages;
}

}  // namespace

TEST(LargeArray, AsksForHugePagesFromOneMebibyteOn) {
    if (!systemHasHugePages()) GTEST_SKIP() << "the operating system has no huge pages";
    for (const auto size : {mebibyte, 2 * mebibyte, 3 * mebibyte + 1}) {
        const auto bytes = makeLargeBytes(size);
        EXPECT_TRUE(startsHugePage(bytes.get())) << size;
        EXPECT_TRUE(asksForHugePages(bytes.get())) << size;
        EXPECT_TRUE(asksForHugePages(bytes.get() + size - 1)) << size;
    }
}

TEST(LargeArray, LeavesSmallBlocksToOperatorNew) {
    for (const auto size : {std::size_t{1}, mebibyte / 2, mebibyte - 1})
        EXPECT_FALSE(startsHugePage(makeLargeBytes(size).get())) << size;
}

TEST(LargeArray, GivesBackAllThatItTook) {
    for (int time = 0; time < 3; ++time) static_cast<void>(makeLargeBytes(3 * mebibyte));
    const auto before = pagesInUse();
    for (int time = 0; time < 100; ++time) static_cast<void>(makeLargeBytes(3 * mebibyte));
    EXPECT_LE(pagesInUse(), before + 10 * mebibyte / 4096);
}

TEST(LargeArray, HoldsWhatBelongsToALargeScheme) {
    if (!systemHasHugePages()) GTEST_SKIP() << "the operating system has no huge pages";
    constexpr int count = 200'000;
    std::string lines;
    for (int id = 1; id <= count; ++id) lines += std::to_string(id) + ",a node,F," + std::to_string(id / 10) + "\r\n";
    const TempFolder folder;
    writeBytes(folder / "nodes", lines);
    clsNavSchemes navs;
    navs.LoadData(folder / "nodes");
    ASSERT_EQ(navs.Count(), count);
    EXPECT_TRUE(asksForHugePages(navs.NewEnum().Slots().data())) << "the list";
    const auto last = navs.Item(count);
    EXPECT_TRUE(asksForHugePages(last.get())) << "the records";
    EXPECT_TRUE(asksForHugePages(last->descriptionIs.view().data())) << "the texts";
    LargeArray<std::int32_t> parents;
    for (const auto& node : navs.NewEnum()) parents.push_back(node->ID % 2);
    const GroupIndex halves(2 * count, [&](std::uint32_t place) { return &parents[place / 2]; });
    EXPECT_TRUE(asksForHugePages(halves[1].data() + 50'000)) << "an index";
}

#endif
