// SPDX-License-Identifier: MIT
#include <chrono>
#include <limits>
#include <map>
#include <random>

#include "Helpers.h"
#include "model/GroupIndex.h"
#include "model/KeyIndex.h"

namespace {

constexpr auto least = std::numeric_limits<std::int32_t>::min();
constexpr auto most = std::numeric_limits<std::int32_t>::max();

std::vector<std::uint32_t> membersOf(const GroupIndex& index, std::int32_t number) {
    const auto members = index[number];
    return {members.begin(), members.end()};
}

GroupIndex indexOf(const std::vector<std::int32_t>& numbers) {
    return {static_cast<std::uint32_t>(numbers.size()), [&](std::uint32_t place) { return &numbers[place]; }};
}

using Places = std::vector<std::uint32_t>;

}  // namespace

TEST(KeyIndex, FindsNothingAtFirst) {
    const KeyIndex index;
    for (const auto number : {0, 1, -1, 255, 256, most, least}) EXPECT_EQ(index.find(number), KeyIndex::none);
}

TEST(KeyIndex, FindsWhatWasInserted) {
    KeyIndex index;
    std::uint32_t place = 0;
    for (const auto number : {0, 1, 255, 256, 257, 1023, 1024, 100'000, -1, most, least})
        EXPECT_TRUE(index.insert(number, place++)) << number;
    place = 0;
    for (const auto number : {0, 1, 255, 256, 257, 1023, 1024, 100'000, -1, most, least})
        EXPECT_EQ(index.find(number), place++) << number;
    EXPECT_EQ(index.find(2), KeyIndex::none);
    EXPECT_EQ(index.find(-2), KeyIndex::none);
}

TEST(KeyIndex, InsertKeepsThePlaceThatANumberHas) {
    KeyIndex index;
    for (const auto number : {5, -5}) {
        EXPECT_TRUE(index.insert(number, 1));
        EXPECT_FALSE(index.insert(number, 2));
        EXPECT_EQ(index.find(number), 1U);
    }
}

TEST(KeyIndex, SetReplacesThePlace) {
    KeyIndex index;
    for (const auto number : {5, -5}) {
        index.set(number, 1);
        index.set(number, 2);
        EXPECT_EQ(index.find(number), 2U);
    }
}

TEST(KeyIndex, ForgetsWhatIsErased) {
    KeyIndex index;
    for (const auto number : {5, -5, 5'000'000}) {
        index.insert(number, 1);
        index.erase(number);
        EXPECT_EQ(index.find(number), KeyIndex::none);
        EXPECT_TRUE(index.insert(number, 3)) << "free again";
        EXPECT_EQ(index.find(number), 3U);
    }
    index.erase(77);
    EXPECT_EQ(index.find(5), 3U);
}

namespace {

// How long it takes to insert the numbers and find them again.
std::chrono::nanoseconds timeFor(const std::vector<std::int32_t>& numbers) {
    const auto begin = std::chrono::steady_clock::now();
    KeyIndex index;
    for (const auto number : numbers) index.insert(number, 1);
    std::size_t found = 0;
    for (const auto number : numbers) found += index.find(number) == 1 ? 1U : 0U;
    EXPECT_EQ(found, numbers.size());
    return std::chrono::steady_clock::now() - begin;
}

}  // namespace

// A file with such IDs froze the program: multiplied by the odd factor of a well-known hash, all of them are small
// and so fell into one cell.
TEST(KeyIndex, TakesNoLongerForNumbersThatWereChosenToCollide) {
    constexpr int count = 500'000;
    constexpr std::uint32_t inverseOfTheFactor = 0x0E8B2F51;
    static_assert(inverseOfTheFactor * 0x9E3779B1U == 1);
    std::mt19937 random(1);
    std::vector<std::int32_t> chosen, any;
    for (std::uint32_t small = 1; small <= count; ++small) {
        chosen.push_back(static_cast<std::int32_t>(small * inverseOfTheFactor));
        any.push_back(static_cast<std::int32_t>(random() | 0x40000000U));
    }
    // The shortest of several runs, in turn, because other programs use the processor, too.
    auto forChosen = std::chrono::nanoseconds::max();
    auto forAny = std::chrono::nanoseconds::max();
    for (int round = 0; round < 5; ++round) {
        forChosen = std::min(forChosen, timeFor(chosen));
        forAny = std::min(forAny, timeFor(any));
    }
    EXPECT_LT(forChosen, 3 * forAny);
}

TEST(KeyIndex, ForgetsEverythingWhenCleared) {
    KeyIndex index;
    for (const auto number : {5, -5, 5'000'000}) index.insert(number, 1);
    index.clear();
    for (const auto number : {5, -5, 5'000'000}) EXPECT_EQ(index.find(number), KeyIndex::none);
    EXPECT_TRUE(index.insert(5, 9));
    EXPECT_EQ(index.find(5), 9U);
}

// Numbers that come too early for the table stay findable when the table grows over them.
TEST(KeyIndex, FindsLargeNumbersThatCameFirst) {
    KeyIndex index;
    std::uint32_t place = 0;
    for (int number = 4000; number > 0; number -= 2) EXPECT_TRUE(index.insert(number, place++));
    for (int number = 4000; number > 0; number -= 2) EXPECT_FALSE(index.insert(number, 0)) << number;
    place = 0;
    for (int number = 4000; number > 0; number -= 2) EXPECT_EQ(index.find(number), place++) << number;
    for (int number = 3999; number > 0; number -= 2) EXPECT_EQ(index.find(number), KeyIndex::none) << number;
    for (int number = 4000; number > 0; number -= 2) index.erase(number);
    for (int number = 4000; number > 0; number -= 2) EXPECT_EQ(index.find(number), KeyIndex::none) << number;
}

TEST(KeyIndex, ReservingAddsNothing) {
    KeyIndex index;
    index.reserve(1'000'000);
    EXPECT_EQ(index.find(999'999), KeyIndex::none);
    EXPECT_TRUE(index.insert(999'999, 1));
    EXPECT_EQ(index.find(999'999), 1U);
    EXPECT_EQ(index.find(999'998), KeyIndex::none);
}

TEST(GroupIndex, IsEmptyAtFirst) {
    EXPECT_EQ(membersOf(GroupIndex(), 0), Places());
    EXPECT_EQ(membersOf(indexOf({}), 1), Places());
}

TEST(GroupIndex, ListsThePlacesOfEachNumberAscending) {
    const auto index = indexOf({1, 2, 1, -3, 2, 2, 1, most, least});
    EXPECT_EQ(membersOf(index, 1), (Places{0, 2, 6}));
    EXPECT_EQ(membersOf(index, 2), (Places{1, 4, 5}));
    EXPECT_EQ(membersOf(index, -3), Places{3});
    EXPECT_EQ(membersOf(index, most), Places{7});
    EXPECT_EQ(membersOf(index, least), Places{8});
    EXPECT_EQ(membersOf(index, 0), Places());
    EXPECT_EQ(membersOf(index, 3), Places());
}

TEST(GroupIndex, ListsANumberThatComesBackAfterAnother) {
    const auto index = indexOf({4, 4, 4, 5, 4});
    EXPECT_EQ(membersOf(index, 4), (Places{0, 1, 2, 4}));
    EXPECT_EQ(membersOf(index, 5), Places{3});
}

TEST(GroupIndex, LeavesOutPlacesWithoutANumber) {
    const std::int32_t number = 6;
    const GroupIndex index(5, [&](std::uint32_t place) { return place % 2 == 0 ? nullptr : &number; });
    EXPECT_EQ(membersOf(index, 6), (Places{1, 3}));
}

TEST(GroupIndex, DoesNotFollowLaterChanges) {
    std::vector<std::int32_t> numbers = {1, 2};
    const auto index = indexOf(numbers);
    numbers = {2, 2};
    EXPECT_EQ(membersOf(index, 1), Places{0});
    EXPECT_EQ(membersOf(index, 2), Places{1});
}
