// SPDX-License-Identifier: MIT
#include "preview/Findings.h"

#include "tests/preview/Made.h"

// Where what verify finds is shown.

namespace {

struct FlawedScheme {
    clsNavSchemes navs;
    std::vector<QueryFinding> found;

    FlawedScheme() {
        navs.Add(makeNode(10, 0, "F", "Data Browser"));
        navs.Add(makeNode(20, 10, "G", "Customers", "spG_Customers"));
        navs.Add(makeNode(30, 20, "N", "A customer"));
        addParagraphs(navs.oWebs, {{5, 10}, {7, 30}, {6, 30}});
        add("query-missing", true, 1, "There is no view spG_Customers.");
        add("column-text", false, 1, "Column 2 holds texts.");
        add("columns", false, 1, "Another one.");
        add("action-not-run", false, 0, "A remark.");
    }
    void add(std::string_view flaw, bool isNode, std::uint32_t slot, std::string words) {
        found.push_back({&queryFlaw(flaw), isNode, slot, "queryIs", std::move(words)});
    }
};

}  // namespace

TEST(PreviewFindings, NameTheNodesThatTheyAreOf) {
    const FlawedScheme scheme;
    const Findings findings(scheme.found, scheme.navs);
    EXPECT_EQ(findings.count(), 3U) << "a remark is no finding";
    EXPECT_EQ(findings.asJson(scheme.navs), R"({"count":3,"nodes":[20,30]})");
    EXPECT_EQ(Findings().asJson(scheme.navs), R"({"count":0,"nodes":[]})");
}

TEST(PreviewFindings, AreShownOnTheirPages) {
    const FlawedScheme scheme;
    const Findings findings(scheme.found, scheme.navs);
    MadeDatabase database;
    const auto shown = [&](std::int32_t node) {
        auto page = makePage(scheme.navs, {scheme.navs.Item(node).get(), {}}, database, {});
        findings.addTo(page);
        std::string all;
        for (const auto& words : page.findings) all += words;
        for (const auto& paragraph : page.paragraphs) {
            all += "|" + std::to_string(paragraph.record->ID);
            for (const auto& words : paragraph.findings) all += " " + words;
        }
        return all;
    };
    EXPECT_EQ(shown(10), "|5");
    EXPECT_EQ(shown(20), "There is no view spG_Customers.");
    EXPECT_EQ(shown(30), "|7 Column 2 holds texts. Another one.|6");
}
