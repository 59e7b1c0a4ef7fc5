// SPDX-License-Identifier: MIT
#include "tests/preview/Made.h"

// The page of a node: which queries are called, and what is shown of them, whatever type they are for.

namespace {

struct MadeScheme {
    clsNavSchemes navs;
    MadeDatabase database;
    PageSettings settings{.limits = {}, .runsAllActions = false, .today = "05-Mar-2026"};
    Pictures pictures{countedNames()};

    MadeScheme() { navs.Add(makeNode(1, 0, "F", "Data Browser")); }

    clsWebScheme& add(std::int32_t id, std::int32_t seqNo, const Text& title, const Text& type, const Text& query,
                      const Text& parameter = {}) {
        auto paragraph = makeParagraph(id, 1, seqNo, title);
        paragraph->typeIs = type;
        paragraph->queryIs = query;
        paragraph->parmIs = parameter;
        navs.oWebs.Add(paragraph);
        return *paragraph;
    }
    [[nodiscard]] Page page(const ClickedNode& clicked = {"0", "Data Browser", false}) {
        return makePage(navs, {navs.Item(1).get(), clicked}, database, settings);
    }
    [[nodiscard]] std::string shown(const ClickedNode& clicked = {"0", "Data Browser", false}) {
        pictures.beginPage("");
        return shownPage(page(clicked), pictures).text();
    }
};

}  // namespace

TEST(PreviewPage, CallsItsQueriesInTheOrderOfTheirSequenceNumbers) {
    MadeScheme scheme;
    scheme.add(3, 2, "Second", "S", "spW_Two 7 x", "Lkey");
    scheme.add(1, 2, "Third", "S", "spW_Three", "Text");
    scheme.add(2, 1, "First", "E", "spW_One", "Today");
    auto other = makeParagraph(9, 2);
    other->queryIs = "spW_OfAnotherNode";
    scheme.navs.oWebs.Add(other);
    const auto page = scheme.page({"24", "Abbott", true});
    EXPECT_EQ(scheme.database.calls,
              Rows({"begin", "action spW_One(05-Mar-2026)", "spW_Two 7 x(24)", "spW_Three(Abbott)", "end"}));
    EXPECT_EQ(page.paragraphs.size(), 3U);
}

TEST(PreviewPage, ShowsWhatFailsInItsPlaceAndTheRest) {
    MadeScheme scheme;
    scheme.database.results["spW_Good"] = made({"ID", "Name"}, {{number("1"), text("here")}});
    scheme.add(1, 1, "Bad", "S", "spW_Bad");
    scheme.add(2, 2, "None", "S", "");
    scheme.add(3, 3, "Kind", "S", "spW_Good", "None");
    scheme.add(4, 4, "Type", "X", "spW_Good");
    scheme.add(5, 5, "Good", "S", "spW_Good");
    scheme.database.results["spW_Void"] = made({}, {});
    scheme.add(6, 6, "Void", "S", "spW_Void");
    const auto html = scheme.shown();
    EXPECT_EQ(between(html, "<h2>Bad</h2>", "<details>"), "<p class=error>There is no view spW_Bad.</p>");
    EXPECT_EQ(between(html, "<h2>None</h2>", "<details>"), "<p class=error>This paragraph has no query.</p>");
    EXPECT_EQ(between(html, "<h2>Kind</h2>", "<details>"),
              "<p class=error>The parameter kind &quot;None&quot; is none of those that there are.</p>");
    EXPECT_EQ(between(html, "<h2>Type</h2>", "<details>"),
              "<p class=error>There is no type &quot;X&quot; of paragraphs.</p>");
    EXPECT_EQ(between(html, "<h2>Void</h2>", "<details>"), "<p class=error>The query returned no table.</p>");
    EXPECT_NE(between(html, "<h2>Good</h2>", "<details>").find("<td>here</td>"), std::string::npos);
}

TEST(PreviewPage, SaysThatItIsEmpty) {
    MadeScheme scheme;
    EXPECT_EQ(scheme.shown(), "<h1>Data Browser</h1><p class=empty>Node 1 has no paragraph: its page is empty.</p>");
    EXPECT_EQ(scheme.database.calls, Rows()) << "the database is not asked for it";
    const auto page = makePage(scheme.navs, {nullptr, {"5", "Row", true}}, scheme.database, scheme.settings);
    EXPECT_EQ(shownPage(page, scheme.pictures).text(),
              "<h1>Row</h1><p class=empty>The scheme has no node for this row, and so it has no page.</p>");
}

TEST(PreviewPage, SaysThatTheDatabaseCannotBeReached) {
    MadeScheme scheme;
    scheme.add(1, 1, "Title", "S", "spW_Made");
    scheme.database.unreachable = "The connection was lost.";
    EXPECT_EQ(scheme.shown(), "<h1>Data Browser</h1><p class=error>The connection was lost.</p>");
}

TEST(PreviewPage, AddsTheTextOfTheNodeToATitleThatEndsWithAColon) {
    MadeScheme scheme;
    scheme.database.results["spW_Made"] = made({"ID"}, {});
    scheme.add(1, 1, "Customer:", "S", "spW_Made");
    scheme.add(2, 2, "Order Pattern for : ", "S", "spW_Made");
    scheme.add(3, 3, "Ratio 1:2", "S", "spW_Made");
    const auto html = scheme.shown({"24", "Abbott & Son", true});
    for (const auto* title : {"Customer: Abbott &amp; Son", "Order Pattern for : Abbott &amp; Son", "Ratio 1:2"})
        EXPECT_NE(html.find("<h2>" + std::string(title) + "</h2>"), std::string::npos) << title;
    EXPECT_TRUE(html.starts_with("<h1>Abbott &amp; Son</h1>"));
}

TEST(PreviewPage, TellsTheDesignerWhatAQueryGotAndGave) {
    MadeScheme scheme;
    scheme.database.results["spW_Made"] = made({"ID"}, std::vector<std::vector<Cell>>(5, {number("1")}));
    scheme.settings.limits.rows = 2;
    auto& record = scheme.add(7, 2, "Title", "S", "spW_Made OPEN <2>", "CKey03");
    record.colsAre = "2:3";
    EXPECT_EQ(between(scheme.shown({"CTL", "City", true}), "<details>", "</details>"),
              "<summary>spW_Made OPEN &lt;2&gt; <span>1.5 ms</span></summary><dl>"
              "<div><dt>Paragraph</dt><dd>7, sequence no. 2</dd></div>"
              "<div><dt>Type</dt><dd>S</dd></div>"
              "<div><dt>Query</dt><dd>spW_Made</dd></div>"
              "<div><dt>Constants</dt><dd>OPEN &lt;2&gt;</dd></div>"
              "<div><dt>Parameter</dt><dd>CKey03</dd></div>"
              "<div><dt>Its value</dt><dd>CTL</dd></div>"
              "<div><dt>Columns</dt><dd>2:3</dd></div>"
              "<div><dt>Rows</dt><dd>5, of which 2 are shown</dd></div>"
              "<div><dt>Time</dt><dd>1.5 ms</dd></div></dl>");
}

TEST(PreviewPage, SaysWhatAnActionDid) {
    MadeScheme scheme;
    scheme.add(1, 1, "Action", "E", "spW_Act");
    auto& result = scheme.database.results["spW_Act"];
    const auto did = [&] { return between(scheme.shown(), "<h2>Action</h2>", "<details>"); };
    EXPECT_EQ(did(),
              "<p class=action>Ran spW_Act. The paragraphs below see what it did.</p>"
              "<p class=note>When the page is complete, it is undone.</p>");
    result.changed = 14;
    EXPECT_EQ(between(did(), "<p class=action>", "</p>"),
              "Ran spW_Act, which changed 14 rows. The paragraphs below see what it did.");
    result.error = "Locked.";
    EXPECT_EQ(did(), "<p class=error>Locked.</p>");
}

TEST(PreviewPage, RunsNoActionThatTheDatabaseCannotUndo) {
    MadeScheme scheme;
    scheme.add(1, 1, "Action", "E", "spW_Act");
    scheme.database.results["spW_Act"] = {};
    scheme.database.isUndone = false;
    const auto html = scheme.shown();
    EXPECT_EQ(between(html, "<h2>Action</h2>", "<details>"),
              "<p class=note>Not run: this database cannot undo what it does. With --run-actions it is run.</p>");
    EXPECT_EQ(html.find("ms</span>"), std::string::npos);
    EXPECT_EQ(scheme.database.calls, Rows({"begin", "end"}));
    scheme.settings.runsAllActions = true;
    EXPECT_NE(scheme.shown().find("<p class=note>It is not undone.</p>"), std::string::npos);
    EXPECT_EQ(scheme.database.calls.at(3), "action spW_Act()");
}

TEST(PreviewPage, ShowsFindingsBesideWhatTheyAreOf) {
    MadeScheme scheme;
    scheme.database.results["spW_Made"] = made({"ID"}, {});
    scheme.add(1, 1, "Title", "S", "spW_Made");
    auto page = scheme.page();
    page.findings = {"of the <node>"};
    page.paragraphs[0].findings = {"one", "two"};
    const auto html = shownPage(page, scheme.pictures).text();
    EXPECT_TRUE(html.starts_with("<h1>Data Browser</h1><ul class=findings><li>of the &lt;node&gt;</li></ul>"));
    EXPECT_NE(html.find("<ul class=findings><li>one</li><li>two</li></ul><details>"), std::string::npos);
}

TEST(PreviewPage, SurvivesHostileTexts) {
    MadeScheme scheme;
    const std::string evil = "</h2><script>alert(1)</script>\"' onclick=x \x1B\0";
    scheme.database.results["evil"] = made({"ID", evil}, {{text(evil), text(std::string(1 << 20, '<'))}});
    for (const auto* type : {"C", "H", "E", "M", "I", "S", "T", "<"}) {
        auto& record = scheme.add(type[0], 1, evil, type, "evil " + evil, "Text");
        record.colsAre = evil;
        record.formIs = 3;
    }
    const auto html = scheme.shown({evil, evil, true});
    EXPECT_EQ(html.find("<script"), std::string::npos);
    EXPECT_EQ(html.find("onclick=x\""), std::string::npos);
    EXPECT_EQ(html.find('\x1B'), std::string::npos);
    EXPECT_NE(html.find("&lt;/h2&gt;&lt;script&gt;alert(1)&lt;/script&gt;&quot;&#39; onclick=x"), std::string::npos);
    EXPECT_NE(html.find("\u2026 (1,048,576 bytes)"), std::string::npos) << "a long text is cut";
    EXPECT_LT(html.size(), 100'000U);
}
