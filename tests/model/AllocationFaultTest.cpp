// SPDX-License-Identifier: MIT
#include <new>
#include <optional>

#include "Helpers.h"

// Operations of the schemes, each with any one of its requests for memory failing: it has then done all or nothing.

#ifndef WIZARD_SANITIZED

#include "tests/ReplacedNew.h"

namespace {

constexpr int unlimited = -1;
int requestsLeft = unlimited;

}  // namespace

static void* allocate(std::size_t size, const void*) noexcept {
    if (requestsLeft == 0) return nullptr;
    if (requestsLeft > 0) --requestsLeft;
    return std::malloc(size == 0 ? 1 : size);
}

namespace {

// Node 10 with 7 (and 8 below it) and 3; a loop of 50 and 60, with 61 below it, that cannot be reached; paragraphs of
// 3, of 7 and of a missing node.
struct Scheme {
    explicit Scheme(bool renumbered) {
        addNodes(navs, {{10, 0}, {7, 10}, {8, 7}, {3, 10}, {50, 60}, {60, 50}, {61, 60}});
        for (int id = 1; id <= 20; ++id) navs.oWebs.Add(makeParagraph(id, id % 3 == 0 ? 99 : id % 2 == 0 ? 3 : 7));
        if (!renumbered) return;
        EXPECT_TRUE(navs.Renumber());
        navs.FileAnew();
    }

    [[nodiscard]] std::string print() const {
        std::string printed = linksOf(navs) + " / " + nodesOf(navs.oWebs) + " / ";
        for (const auto& node : navs.NewEnum())
            printed += std::to_string(node->tID) + "<" + std::to_string(node->tParentIs) + " ";
        return printed;
    }

    clsNavSchemes navs;
};

enum Result { finished, failed, onlyNotDrawn };

template <class Operation>
Result run(int requests, clsNavSchemes& navs, Operation operation) {
    requestsLeft = requests;
    auto result = finished;
    try {
        operation(navs);
    } catch (const NotDrawn&) {
        result = onlyNotDrawn;
    } catch (const std::bad_alloc&) {
        result = failed;
    }
    requestsLeft = unlimited;
    return result;
}

template <class Operation>
void expectAllOrNothing(const std::string& name, Operation operation) {
    for (const bool renumbered : {false, true}) {
        SCOPED_TRACE(name + (renumbered ? ", renumbered" : ""));
        std::string before, done;
        {
            Scheme scheme(renumbered);
            before = scheme.print();
            operation(scheme.navs);
            done = scheme.print();
        }
        int failures = 0;
        for (int requests = 0;; ++requests) {
            Scheme scheme(renumbered);
            const auto result = run(requests, scheme.navs, operation);
            const auto now = scheme.print();
            ASSERT_EQ(now, result == failed ? before : done) << "after " << requests << " requests";
            if (result == finished) break;
            ++failures;
            ASSERT_LT(requests, 10'000);
            // It works as soon as there is memory again.
            operation(scheme.navs);
            for (const auto& node : scheme.navs.NewEnum()) ASSERT_NE(node, nullptr);
        }
        EXPECT_GT(failures, 0) << "it requests no memory";
    }
}

}  // namespace

TEST(AllocationFault, RenumberDoesAllOrNothing) {
    expectAllOrNothing("Renumber", [](clsNavSchemes& navs) { static_cast<void>(navs.Renumber()); });
}

TEST(AllocationFault, FileAnewDoesAllOrNothing) {
    expectAllOrNothing("FileAnew", [](clsNavSchemes& navs) { navs.FileAnew(); });
}

TEST(AllocationFault, DelNodeDoesAllOrNothing) {
    for (const char* key : {"7", "2", "0", "10", "99"})
        expectAllOrNothing(std::string("DelNode ") + key, [key](clsNavSchemes& navs) { navs.DelNode(key); });
}

TEST(AllocationFault, DispOrphansDoesAllOrNothing) {
    expectAllOrNothing("DispOrphans", [](clsNavSchemes& navs) { navs.DispOrphans(); });
}

TEST(AllocationFault, RenumberingTheParagraphsDoesAllOrNothing) {
    expectAllOrNothing("Renumber of the paragraphs", [](clsNavSchemes& navs) { navs.oWebs.Renumber(navs); });
}

TEST(AllocationFault, NewSchemeDoesAllOrNothing) {
    expectAllOrNothing("NewScheme", [](clsNavSchemes& navs) { navs.NewScheme(); });
}

TEST(AllocationFault, AddingDoesAllOrNothing) {
    const auto node = makeNode(2'000'000'000, 7);
    const auto paragraph = makeParagraph(-5, 7);
    expectAllOrNothing("Add", [&](clsNavSchemes& navs) { static_cast<void>(navs.Add(node)); });
    expectAllOrNothing("Add of a paragraph", [&](clsNavSchemes& navs) { navs.oWebs.Add(paragraph); });
}

// However many there are: sometimes only one of the lists that they go into has to grow.
TEST(AllocationFault, AddingDoesAllOrNothingAtEverySize) {
    for (int size = 0; size <= 40; ++size) {
        SCOPED_TRACE(size);
        auto result = failed;
        for (int requests = 0; result == failed; ++requests) {
            clsNavSchemes navs;
            for (int id = 1; id <= size; ++id) navs.oWebs.Add(makeParagraph(id, 7));
            const auto before = nodesOf(navs.oWebs);
            const auto paragraph = makeParagraph(1000, 7);
            const auto add = [&](clsNavSchemes& schemes) { schemes.oWebs.Add(paragraph); };
            result = run(requests, navs, add);
            if (result == failed) {
                ASSERT_EQ(nodesOf(navs.oWebs), before);
                add(navs);
            }
            ASSERT_EQ(navs.oWebs.Count(), size + 1);
            ASSERT_NE(nodesOf(navs.oWebs), before);
        }
    }
}

// A file for which there is too little memory counts as one that cannot be read.
TEST(AllocationFault, LoadingGivesTheWholeFileOrNothing) {
    const TempFolder folder;
    const auto nodes = writeBytes(folder / "nodes", "1,Root,F,0\r\n2,a node with a longer text,F,1\r\n");
    const auto paragraphs = writeBytes(folder / "paragraphs", "1,2,1,a title that is longer,spW_Longer,,T\r\n");
    int failures = 0;
    for (int requests = 0; requests < 10'000; ++requests) {
        clsNavSchemes navs;
        addNodes(navs, {{7, 0}});
        addParagraphs(navs.oWebs, {{7, 7}});
        const auto result = run(requests, navs, [&](clsNavSchemes& schemes) {
            ASSERT_TRUE(schemes.LoadData(nodes));
            requestsLeft = requests;
            ASSERT_TRUE(schemes.oWebs.LoadData(paragraphs));
        });
        ASSERT_EQ(result, finished);
        ASSERT_TRUE(navs.Count() == 0 || linksOf(navs) == "1<0 2<1") << requests << ": " << linksOf(navs);
        ASSERT_TRUE(navs.oWebs.Count() == 0 || nodesOf(navs.oWebs) == "1>2") << requests;
        if (navs.Count() == 2 && navs.oWebs.Count() == 1) break;
        ++failures;
    }
    EXPECT_GT(failures, 5);
}

// If there is too little memory, it refuses and says so.
TEST(AllocationFault, FusingDoesAllOrNothing) {
    for (const int id : {7, 4000}) {
        for (int requests = 0; requests < 100; ++requests) {
            Scheme scheme(false);
            const auto before = rowsOf(scheme.navs);
            Rows messages;
            scheme.navs.inform = [&](std::string_view message) {
                requestsLeft = unlimited;
                messages.emplace_back(message);
            };
            const auto node = makeNode(id, 10, "G", "a long description", "spG_Long", "Lkey", "icon", "role");
            bool stored = false;
            EXPECT_EQ(run(requests, scheme.navs, [&](clsNavSchemes& navs) { stored = navs.FuseNav(node); }),
                      finished);
            if (stored) {
                EXPECT_EQ(rowOf(*scheme.navs.Item(id)), rowOf(*node));
                EXPECT_EQ(messages, Rows());
                break;
            }
            EXPECT_EQ(rowsOf(scheme.navs), before) << requests;
            EXPECT_EQ(messages, Rows{"There is not enough memory. Changes not saved"});
        }
    }
}

TEST(AllocationFault, FusingAParagraphDoesAllOrNothing) {
    for (const int id : {7, 4000}) {
        int refusals = 0;
        for (int requests = 0; requests < 100; ++requests) {
            Scheme scheme(false);
            const auto before = rowsOf(scheme.navs.oWebs);
            Rows messages;
            scheme.navs.inform = [&](std::string_view message) {
                requestsLeft = unlimited;
                messages.emplace_back(message);
            };
            const auto paragraph = makeParagraph(id, 3, 1, "a title that is longer than most");
            paragraph->queryIs = "spW_LongerThanMost";
            bool stored = false;
            EXPECT_EQ(run(requests, scheme.navs, [&](clsNavSchemes& navs) { stored = navs.FuseWeb(paragraph); }),
                      finished);
            if (stored) {
                EXPECT_EQ(messages, Rows());
                EXPECT_NE(rowsOf(scheme.navs.oWebs), before);
                break;
            }
            ++refusals;
            EXPECT_EQ(rowsOf(scheme.navs.oWebs), before) << requests;
            EXPECT_EQ(messages, Rows{"There is not enough memory. Changes not saved"});
        }
        EXPECT_EQ(refusals > 0, id == 4000) << "only a new paragraph needs memory";
    }
}

#endif
