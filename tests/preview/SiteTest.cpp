// SPDX-License-Identifier: MIT
#include "preview/Site.h"

#include <nlohmann/json.hpp>

#include "tests/preview/Made.h"

using nlohmann::json;

namespace {

struct MadeSite {
    MadeDatabase database;
    std::string problem;
    std::string title = "Welcome";
    std::string day = "05-Mar-2026";
    std::string parameterKind = "Today";
    int lost = 0;  // nodes that are not below the root
    bool isEmpty = false;
    int verified = 0;
    Site site{settings(), database};

    SiteSettings settings() {
        SiteSettings made;
        made.files = "a<b>.txt, XST2.txt";
        made.load = [this](clsNavSchemes& navs) { load(navs); };
        made.today = [this] { return day; };
        made.mostChildren = 2;
        made.verify = [this](const clsNavSchemes&) {
            ++verified;
            if (!database.unreachable.empty()) throw DatabaseError(database.unreachable);
            return std::vector<QueryFinding>{
                {&queryFlaw("query-missing"), true, 1, "queryIs", "There is no <view>."}};
        };
        made.asset = [](std::string_view name) { return "bytes of " + std::string(name); };
        made.newName = countedNames();
        return made;
    }
    void load(clsNavSchemes& navs) const {
        if (!problem.empty()) throw std::runtime_error(problem);
        for (int id = 100; id < 100 + lost; ++id) navs.Add(makeNode(id, 99));
        if (isEmpty) return;
        navs.Add(makeNode(1, 0, "F", "Data Browser"));
        navs.Add(makeNode(2, 1, "G", "Customers", "spG_Customers", parameterKind));
        navs.Add(makeNode(3, 2, "N", "A customer"));
        const auto add = [&](std::int32_t id, std::int32_t node, const Text& type, const Text& query) {
            auto paragraph = makeParagraph(id, node, 1, title);
            paragraph->queryIs = query;
            paragraph->typeIs = type;
            navs.oWebs.Add(paragraph);
        };
        add(1, 1, "S", "spW_All");
        add(2, 3, "I", "spW_Card");
    }
    Answer get(const std::string& path) {
        return site.answer({.method = "GET", .path = path, .query = {}, .headers = {}, .body = {}});
    }
    Answer post(const std::string& path, const std::string& body) {
        return site.answer({.method = "POST", .path = path, .query = {}, .headers = {}, .body = body});
    }
};

const std::string customers = R"({"n":2,"k":"0","t":"Customers","g":false})";
const std::string customer = R"({"n":3,"k":"24","t":"Abbott","g":true,"tab":"t1"})";

}  // namespace

TEST(PreviewSite, AnswersWithTheRootAndItsPage) {
    MadeSite made;
    made.database.results["spW_All"] = ::made({"ID", "Name"}, {{number("1"), text("row")}});
    const auto answer = made.get("/");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.type, "text/html; charset=utf-8");
    EXPECT_TRUE(answer.body.starts_with("<!DOCTYPE html>\n<html lang=\"en\">"));
    EXPECT_NE(answer.body.find("<title>Data Browser \u2013 preview</title>"), std::string::npos);
    EXPECT_NE(answer.body.find("Preview of <b>a&lt;b&gt;.txt, XST2.txt</b> with <b>sqlite:made.db</b>"),
              std::string::npos);
    EXPECT_NE(answer.body.find("<td>row</td>"), std::string::npos);
    EXPECT_NE(answer.body.find("<a class=\"skip\" href=\"#page\">Skip to the page</a>"), std::string::npos);
    EXPECT_NE(answer.body.find("data-root=\"{&quot;b&quot;:true,&quot;g&quot;:false,&quot;k&quot;:&quot;0&quot;,"
                               "&quot;n&quot;:1,&quot;t&quot;:&quot;Data Browser&quot;}\""),
              std::string::npos);
    EXPECT_EQ(answer.body.find("style="), std::string::npos) << "which the policy of the page refuses";
    EXPECT_EQ(answer.body.find("<script>"), std::string::npos);
}

TEST(PreviewSite, AnswersWithWhatIsBelowANode) {
    MadeSite made;
    EXPECT_EQ(json::parse(made.post("/branch", R"({"n":1,"k":"0","t":"","g":false})").body),
              json::parse(R"({"nodes":[{"n":2,"k":"0","t":"Customers","g":false,"b":true}],"total":1,"error":""})"));
    made.database.results["spG_Customers"] =
        ::made({"ID", "Name"},
               {{number("24"), text("Abbott")}, {number("25"), text("B\xFF")}, {number("26"), text("Carver")}});
    const auto answer = made.post("/branch", customers);
    EXPECT_EQ(answer.type, "application/json");
    EXPECT_EQ(json::parse(answer.body), json::parse(R"({"nodes":[{"n":3,"k":"24","t":"Abbott","g":true,"b":false},
        {"n":3,"k":"25","t":"B\uFFFD","g":true,"b":false}],"total":3,"error":""})"));
    EXPECT_EQ(made.database.calls, Rows({"begin", "spG_Customers(05-Mar-2026)", "end"}));
}

TEST(PreviewSite, SaysOnThePageOfTheRootThatNodesAreNotInTheTree) {
    MadeSite made;
    const std::string words = "of the file cannot be reached from the root: pelmo-scheme check says why.</p>";
    EXPECT_EQ(made.get("/").body.find(words), std::string::npos);
    made.lost = 1;
    made.site.reload();
    EXPECT_NE(made.get("/").body.find("<p class=error>1 node " + words), std::string::npos);
    EXPECT_EQ(made.post("/page", customers).body.find(words), std::string::npos);
    made.lost = 2;
    made.site.reload();
    EXPECT_NE(made.get("/").body.find("<p class=error>2 nodes " + words), std::string::npos);
    made.isEmpty = true;
    made.site.reload();
    EXPECT_NE(made.get("/").body.find("<p class=error>2 nodes " + words), std::string::npos) << "no root";
}

TEST(PreviewSite, PassesTheDayOnThatItIs) {
    MadeSite made;
    (void)made.post("/branch", customers);
    made.day = "06-Mar-2026";
    (void)made.post("/branch", customers);
    EXPECT_EQ(made.database.calls.at(4), "spG_Customers(06-Mar-2026)");
}

TEST(PreviewSite, SaysWhyThereIsNothingBelow) {
    MadeSite made;
    made.parameterKind = "Week";
    made.site.reload();
    EXPECT_EQ(json::parse(made.post("/branch", customers).body)["error"],
              "This node names no query, or its parameter kind is none that is read.");
    made.parameterKind = "Today";
    made.site.reload();
    EXPECT_EQ(json::parse(made.post("/branch", customers).body)["error"], "There is no view spG_Customers.");
    made.database.unreachable = "The connection was lost.";
    EXPECT_EQ(json::parse(made.post("/branch", customers).body)["error"], "The connection was lost.");
}

TEST(PreviewSite, AnswersWithThePageOfAGeneratedNodeAndItsPicture) {
    MadeSite made;
    made.database.results["spW_Card"] = ::made({"ID", "IMGCard"}, {{number("1"), bytes(gif)}});
    const auto answer = made.post("/page", customer);
    EXPECT_TRUE(answer.body.starts_with("<h1>Abbott</h1>")) << answer.body;
    EXPECT_NE(answer.body.find("src=\"picture/name1\""), std::string::npos);
    const auto picture = made.get("/picture/name1");
    EXPECT_EQ(picture.type, "image/gif");
    EXPECT_EQ(picture.body, gif);
    EXPECT_EQ(made.get("/picture/name2").status, 404);
    (void)made.post("/page", customer);
    EXPECT_EQ(made.get("/picture/name1").status, 200) << "the browser may still show the page before";
    EXPECT_EQ(made.get("/picture/name2").status, 200);
    (void)made.post("/page", customer);
    EXPECT_EQ(made.get("/picture/name1").status, 404) << "the page was made anew twice";
    EXPECT_EQ(made.get("/picture/name2").status, 200);
}

TEST(PreviewSite, RefusesWhatIsNoNode) {
    MadeSite made;
    for (const auto* body :
         {"", "x", "[]", "null", "{}", R"({"n":99,"k":"0","t":"","g":false})",
          R"({"n":"1","k":"0","t":"","g":false})", R"({"n":1,"k":0,"t":"","g":false})",
          R"({"n":1,"k":"0","t":"","g":"no"})", R"({"n":1e99,"k":"0","t":"","g":false})",
          R"({"n":4294967297,"k":"0","t":"","g":false})", R"({"n":-4294967295,"k":"0","t":"","g":false})",
          R"({"n":1,"k":"0","t":"","g":false,"tab":7})", "{\"n\":1,\"k\":\"\xFF\",\"t\":\"\",\"g\":false}"})
        for (const auto* path : {"/page", "/branch"}) {
            EXPECT_EQ(made.post(path, body).status, 404) << body;
            EXPECT_EQ(made.post(path, body).body, "This node is no longer in the scheme.\n");
        }
    EXPECT_EQ(made.post("/page", std::string(100'000, '[')).status, 404);
    EXPECT_EQ(made.database.calls, Rows());
}

TEST(PreviewSite, HasItsOwnFilesAndNoOthers) {
    MadeSite made;
    EXPECT_EQ(made.get("/preview.css").type, "text/css; charset=utf-8");
    EXPECT_EQ(made.get("/preview.js").type, "text/javascript; charset=utf-8");
    EXPECT_EQ(made.get("/icon.svg").body, "bytes of icon.svg");
    EXPECT_EQ(made.get("/icon.svg").type, "image/svg+xml");
    for (const auto* path : {"/favicon.ico", "//", "", "/preview.css/", "/../etc/passwd", "/picture/", "/picture",
                             "/picture/../../etc/passwd", "/page", "/branch", "/picture//etc/passwd"})
        EXPECT_EQ(made.get(path).status, 404) << path;
    EXPECT_EQ(made.post("/", "").status, 404);
}

TEST(PreviewSite, LooksUpFindingsOnceForEachScheme) {
    MadeSite made;
    const std::string words = "<ul class=findings><li>There is no &lt;view&gt;.</li></ul>";
    EXPECT_EQ(made.post("/page", customers).body.find(words), std::string::npos);
    EXPECT_EQ(made.verified, 0) << "the first page does not wait for it";
    EXPECT_EQ(made.get("/findings").body, R"({"count":1,"nodes":[2]})");
    EXPECT_EQ(made.get("/findings").body, R"({"count":1,"nodes":[2]})");
    EXPECT_EQ(made.verified, 1);
    EXPECT_NE(made.post("/page", customers).body.find(words), std::string::npos);
    made.site.reload();
    EXPECT_EQ(made.post("/page", customers).body.find(words), std::string::npos);
    (void)made.get("/findings");
    EXPECT_EQ(made.verified, 2);
}

TEST(PreviewSite, LooksUpFindingsAnewWhenItIsLoadedAgain) {
    MadeSite made;
    (void)made.get("/findings");
    EXPECT_EQ(made.get("/").body.find("class=findings"), std::string::npos);
    (void)made.get("/findings");
    EXPECT_EQ(made.verified, 2) << "the database may have changed";
    EXPECT_EQ(made.get("/findings/anew").body, R"({"count":1,"nodes":[2]})");
    EXPECT_EQ(made.verified, 3);
    (void)made.get("/findings");
    EXPECT_EQ(made.verified, 3);
}

TEST(PreviewSite, HasNoFindingsWhileTheDatabaseCannotBeReached) {
    MadeSite made;
    made.database.unreachable = "The connection was lost.";
    EXPECT_EQ(made.get("/findings").body, R"({"count":0,"nodes":[]})");
    made.database.unreachable.clear();
    EXPECT_EQ(made.get("/findings").body, R"({"count":1,"nodes":[2]})") << "it is tried again";
}

TEST(PreviewSite, ReadsTheFilesAgain) {
    MadeSite made;
    EXPECT_EQ(made.get("/version").body, "1");
    made.title = "Changed";
    EXPECT_EQ(made.get("/").body.find("<h2>Changed</h2>"), std::string::npos);
    made.site.reload();
    EXPECT_EQ(made.get("/version").body, "2");
    EXPECT_NE(made.get("/").body.find("<h2>Changed</h2>"), std::string::npos);
}

TEST(PreviewSite, ShowsTheOldPagesIfAFileCannotBeReadAgain) {
    MadeSite made;
    made.problem = "XST1.txt: there is no such file";
    made.site.reload();
    EXPECT_EQ(made.get("/version").body, "2");
    const std::string words =
        "<p class=error>XST1.txt: there is no such file. What is shown is what was read before.</p>";
    const auto answer = made.get("/");
    EXPECT_NE(answer.body.find(words), std::string::npos);
    EXPECT_NE(answer.body.find("<h2>Welcome</h2>"), std::string::npos);
    made.problem.clear();
    made.site.reload();
    EXPECT_EQ(made.get("/").body.find(words), std::string::npos);
}

TEST(PreviewSite, DoesNotBeginWithFilesThatCannotBeRead) {
    MadeSite made;
    made.problem = "XST1.txt: there is no such file";
    EXPECT_THROW(Site(made.settings(), made.database), std::runtime_error);
}
