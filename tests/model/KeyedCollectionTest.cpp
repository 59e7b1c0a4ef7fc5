// SPDX-License-Identifier: MIT
#include "model/KeyedCollection.h"

#include <limits>

#include "Helpers.h"

namespace {

struct Record {
    std::int32_t ID = 0;
    int mark = 0;
};
using Collection = KeyedCollection<Record>;

std::shared_ptr<Record> record(std::int32_t id, int mark = 0) {
    return std::make_shared<Record>(Record{id, mark});
}

Collection collectionOf(std::initializer_list<std::int32_t> ids) {
    Collection collection;
    for (const auto id : ids) collection.Add(record(id));
    return collection;
}

std::vector<std::int32_t> idsIn(const Collection& collection) {
    std::vector<std::int32_t> ids;
    for (const auto& found : collection) ids.push_back(found->ID);
    return ids;
}

using IDs = std::vector<std::int32_t>;

}  // namespace

TEST(KeyedCollection, IsEmptyAtFirst) {
    const Collection collection;
    EXPECT_EQ(collection.Count(), 0);
    EXPECT_EQ(idsIn(collection), IDs());
    EXPECT_TRUE(collection.Slots().empty());
    EXPECT_EQ(collection.Item(0), nullptr);
}

TEST(KeyedCollection, KeepsTheOrderOfAdding) {
    EXPECT_EQ(idsIn(collectionOf({5, 1, 4, -7, 0})), (IDs{5, 1, 4, -7, 0}));
}

TEST(KeyedCollection, RefusesATakenKey) {
    Collection collection;
    EXPECT_TRUE(collection.Add(record(3, 1)));
    EXPECT_FALSE(collection.Add(record(3, 2)));
    EXPECT_EQ(collection.Count(), 1);
    EXPECT_EQ(collection.Item(3)->mark, 1);
    EXPECT_EQ(collection.Slots().size(), 1U);
}

TEST(KeyedCollection, FindsByNumberAndByItsText) {
    const auto collection = collectionOf({7, 0, -2, 2147483647, std::numeric_limits<std::int32_t>::min()});
    for (const auto id : {7, 0, -2, 2147483647, std::numeric_limits<std::int32_t>::min()}) {
        ASSERT_NE(collection.Item(id), nullptr) << id;
        EXPECT_EQ(collection.Item(id)->ID, id);
        EXPECT_EQ(collection.Item(std::to_string(id)), collection.Item(id));
    }
    EXPECT_EQ(collection.Item(1), nullptr);
    EXPECT_EQ(collection.Item("1"), nullptr);
}

TEST(KeyedCollection, FindsNothingByAnotherSpellingOfAKey) {
    const auto collection = collectionOf({7, 0});
    for (const char* key : {"07", "+7", " 7", "7 ", "7.0", "", "-0", "00", "x"})
        EXPECT_EQ(collection.Item(key), nullptr) << "'" << key << "'";
}

TEST(KeyedCollection, RemovesByKey) {
    auto collection = collectionOf({7, 8, 9});
    EXPECT_TRUE(collection.RemoveKey(8));
    EXPECT_FALSE(collection.RemoveKey(8));
    EXPECT_TRUE(collection.RemoveKey("9"));
    EXPECT_FALSE(collection.RemoveKey("9"));
    EXPECT_FALSE(collection.RemoveKey("07"));
    EXPECT_FALSE(collection.RemoveKey("x"));
    EXPECT_EQ(idsIn(collection), IDs{7});
    EXPECT_EQ(collection.Count(), 1);
    EXPECT_EQ(collection.Item(8), nullptr);
}

TEST(KeyedCollection, RemovesByPositionCountedFromOne) {
    auto collection = collectionOf({7, 8, 9, 10});
    EXPECT_TRUE(collection.RemoveAt(2));
    EXPECT_EQ(idsIn(collection), (IDs{7, 9, 10}));
    EXPECT_TRUE(collection.RemoveAt(2)) << "the removed one has no position";
    EXPECT_EQ(idsIn(collection), (IDs{7, 10}));
    EXPECT_FALSE(collection.RemoveAt(3));
    EXPECT_FALSE(collection.RemoveAt(0));
    EXPECT_FALSE(collection.RemoveAt(-1));
    EXPECT_EQ(idsIn(collection), (IDs{7, 10}));
}

TEST(KeyedCollection, RemovesByPositionARecordWhoseIDHasChanged) {
    auto collection = collectionOf({7, 8, 9});
    collection.Item(7)->ID = 9;
    EXPECT_TRUE(collection.RemoveAt(1));
    EXPECT_EQ(idsIn(collection), (IDs{8, 9}));
}

TEST(KeyedCollection, AddsAtTheEndAgainAfterRemoving) {
    auto collection = collectionOf({7, 8});
    collection.RemoveKey(7);
    EXPECT_TRUE(collection.Add(record(7)));
    EXPECT_EQ(idsIn(collection), (IDs{8, 7}));
}

TEST(KeyedCollection, KeepsTheKeyWhenTheIDChanges) {
    auto collection = collectionOf({7, 8});
    collection.Item(7)->ID = 70;
    EXPECT_EQ(collection.Item(7)->ID, 70);
    EXPECT_EQ(collection.Item(70), nullptr);
    EXPECT_FALSE(collection.Add(record(7))) << "the key is still taken";
    EXPECT_FALSE(collection.RemoveKey(70));
    EXPECT_TRUE(collection.RemoveKey(7));
    EXPECT_EQ(idsIn(collection), IDs{8});
}

// --- filing anew ---

namespace {

// Files anew, with these slots preferred.
void fileAnew(Collection& collection, std::vector<std::uint32_t> preferred = {}) {
    collection.FileAnew([&] { return preferred; });
}

}  // namespace

TEST(KeyedCollection, FilesEveryRecordUnderTheIDThatItHasNow) {
    auto collection = collectionOf({7, 8, 9});
    collection.Item(7)->ID = 8;
    collection.Item(8)->ID = 100;
    fileAnew(collection);
    EXPECT_EQ(idsIn(collection), (IDs{8, 100, 9})) << "the order stays";
    for (const int id : {8, 100, 9}) EXPECT_EQ(collection.Item(id)->ID, id);
    EXPECT_EQ(collection.Item(7), nullptr);
    EXPECT_FALSE(collection.HasRecordsWithoutKey());
    EXPECT_TRUE(collection.Add(record(7)));
    EXPECT_FALSE(collection.Add(record(100)));
    EXPECT_TRUE(collection.RemoveKey(8));
    EXPECT_EQ(idsIn(collection), (IDs{100, 9, 7}));
}

TEST(KeyedCollection, OfRecordsThatShareAnIDTheFirstIsFound) {
    Collection collection;
    for (const int mark : {1, 2, 3}) collection.Add(record(mark, mark));
    for (const auto& each : collection) each->ID = 5;
    fileAnew(collection);
    EXPECT_EQ(collection.Count(), 3);
    EXPECT_EQ(idsIn(collection), (IDs{5, 5, 5}));
    EXPECT_EQ(collection.Item(5)->mark, 1);
    EXPECT_TRUE(collection.HasRecordsWithoutKey());
    EXPECT_FALSE(collection.Add(record(5)));

    EXPECT_TRUE(collection.RemoveAt(2)) << "one without a key";
    EXPECT_EQ(collection.Count(), 2);
    EXPECT_EQ(collection.Item(5)->mark, 1);
    EXPECT_TRUE(collection.RemoveKey(5));
    EXPECT_EQ(collection.Item(5), nullptr);
    EXPECT_EQ(idsIn(collection), IDs{5});
    fileAnew(collection);
    EXPECT_EQ(collection.Item(5)->mark, 3);
    EXPECT_FALSE(collection.HasRecordsWithoutKey());
}

TEST(KeyedCollection, OfRecordsThatShareAnIDThePreferredOneIsFound) {
    Collection collection;
    for (const int mark : {1, 2, 3, 4}) collection.Add(record(mark, mark));
    for (const int mark : {1, 2, 3}) collection.Item(mark)->ID = 5;
    fileAnew(collection, {3, 2, 1});
    EXPECT_EQ(collection.Item(5)->mark, 3);
    EXPECT_EQ(collection.Item(4)->mark, 4);
    fileAnew(collection, {1});
    EXPECT_EQ(collection.Item(5)->mark, 2);
}

TEST(KeyedCollection, AsksForThePreferredOnesOnlyWhereRecordsShareAnID) {
    auto collection = collectionOf({1, 2, 3});
    collection.RemoveKey(2);
    collection.FileAnew([]() -> std::vector<std::uint32_t> { throw std::runtime_error("asked in vain"); });
    EXPECT_EQ(collection.Item(3)->ID, 3);
    collection.Item(3)->ID = 1;
    EXPECT_THROW(collection.FileAnew([]() -> std::vector<std::uint32_t> { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_EQ(collection.Item(3)->ID, 1) << "nothing has changed";
    EXPECT_FALSE(collection.HasRecordsWithoutKey());
}

TEST(KeyedCollection, ForgetsRecordsWithoutAKeyWithTheOthers) {
    auto collection = collectionOf({1, 2});
    collection.Item(2)->ID = 1;
    fileAnew(collection);
    EXPECT_TRUE(collection.HasRecordsWithoutKey());
    collection.Clear();
    EXPECT_FALSE(collection.HasRecordsWithoutKey());
}

TEST(KeyedCollection, ClearEmptiesItForGood) {
    auto collection = collectionOf({7, 8});
    collection.Clear();
    EXPECT_EQ(collection.Count(), 0);
    EXPECT_EQ(collection.Item(7), nullptr);
    EXPECT_EQ(idsIn(collection), IDs());
    EXPECT_TRUE(collection.Add(record(8)));
    EXPECT_EQ(collection.Count(), 1);
    EXPECT_EQ(idsIn(collection), IDs{8});
}

TEST(KeyedCollection, StartsAfreshWhenTheLastRecordIsGone) {
    auto collection = collectionOf({7, 8});
    collection.RemoveKey(7);
    EXPECT_EQ(collection.Slots().size(), 2U) << "an empty slot stays behind";
    EXPECT_EQ(collection.Slots()[0], nullptr);
    collection.RemoveKey(8);
    EXPECT_TRUE(collection.Slots().empty());
    EXPECT_TRUE(collection.Add(record(7)));
    EXPECT_EQ(idsIn(collection), IDs{7});
}

TEST(KeyedCollection, ReservingAddsNothing) {
    Collection collection;
    collection.Reserve(1000);
    EXPECT_EQ(collection.Count(), 0);
    EXPECT_EQ(idsIn(collection), IDs());
    for (int id = 3999; id >= 0; id -= 3) EXPECT_TRUE(collection.Add(record(id)));
    EXPECT_EQ(collection.Item(3)->ID, 3);
    EXPECT_EQ(collection.Item(4), nullptr);
}

TEST(KeyedCollection, RemovingEachRecordInALoopSkipsNone) {
    auto collection = collectionOf({1, 2, 3, 4, 5});
    IDs met;
    for (const auto& found : collection) {
        const auto id = found->ID;
        met.push_back(id);
        EXPECT_TRUE(collection.RemoveKey(id));
    }
    EXPECT_EQ(met, (IDs{1, 2, 3, 4, 5}));
    EXPECT_EQ(collection.Count(), 0);
}

TEST(KeyedCollection, RemovingEverySecondRecordInALoopSkipsNone) {
    auto collection = collectionOf({1, 2, 3, 4, 5, 6});
    IDs met;
    for (const auto& found : collection) {
        const auto id = found->ID;
        met.push_back(id);
        if (id % 2 == 0) collection.RemoveKey(id);
    }
    EXPECT_EQ(met, (IDs{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(idsIn(collection), (IDs{1, 3, 5}));
}

TEST(KeyedCollection, RecordsRemovedAheadInALoopAreNotVisited) {
    auto collection = collectionOf({1, 2, 3, 4});
    IDs met;
    for (const auto& found : collection) {
        const auto id = found->ID;
        met.push_back(id);
        if (id == 1) collection.RemoveKey(2);
        if (id == 3) collection.RemoveKey(1);
    }
    EXPECT_EQ(met, (IDs{1, 3, 4}));
}

TEST(KeyedCollection, RecordsAddedInALoopAreVisitedOnce) {
    auto collection = collectionOf({1, 2});
    IDs met;
    for (const auto& found : collection) {
        const auto id = found->ID;
        met.push_back(id);
        if (id < 100) collection.Add(record(id + 100));
    }
    EXPECT_EQ(met, (IDs{1, 2, 101, 102}));
}

TEST(KeyedCollection, ARecordOutlivesItsRemovalWhereItIsHeld) {
    auto collection = collectionOf({1});
    const auto held = collection.Item(1);
    collection.Clear();
    EXPECT_EQ(held->ID, 1);
    EXPECT_EQ(held.use_count(), 1);
}
