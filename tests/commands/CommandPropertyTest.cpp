// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "analysis/Reports.h"
#include "tests/commands/Commands.h"

using namespace std::string_literals;

// The commands on random files, compared with the operations of the schemes themselves.

namespace {

std::string drawText() {
    return *rc::gen::element("\"a\""s, "\"\""s, "b"s, "\"c \"d\""s, "\"e,f\""s, "\"\x80\xE9\x81\""s, "spG_A 1"s,
                             " "s);
}

std::string drawNumber(int most) {
    return *rc::gen::weightedElement<std::string>(
        {{20, std::to_string(*rc::gen::inRange(0, most))}, {1, "1.5"}, {1, "x"}, {1, "-3"}, {1, ""}});
}

std::string drawEnd() {
    return *rc::gen::element("\r\n"s, "\n"s, "\r"s);
}

// Nodes with loops, twins, gaps and unreachable ones among them, and lines that are no records.
std::string drawNodes() {
    std::string bytes = *rc::gen::element(""s, navHeader);
    const auto count = *rc::gen::inRange(0, 14);
    for (int line = 0; line < count; ++line) {
        bytes += *rc::gen::element(""s, ""s, ""s, " "s, "x"s);
        bytes += std::to_string(*rc::gen::inRange(0, 12)) + "," + drawText() + ",";
        bytes += *rc::gen::element("\"F\""s, "F"s, "G"s, "\"R\""s, "N"s, ""s, "f"s) + ",";
        bytes += drawNumber(6) + "," + drawText() + "," + *rc::gen::element(""s, "\"Lkey\""s, "CKey05"s, "Key"s);
        bytes += "," + drawText() + "," + drawText() + drawEnd();
    }
    return bytes;
}

std::string drawParagraphs() {
    std::string bytes = *rc::gen::element(""s, webHeader);
    const auto count = *rc::gen::inRange(0, 14);
    for (int line = 0; line < count; ++line) {
        bytes += std::to_string(*rc::gen::inRange(0, 12)) + "," + drawNumber(12) + "," + drawNumber(3) + ",";
        bytes += drawText() + "," + drawText() + "," + *rc::gen::element(""s, "\"Text\""s, "Key"s) + ",";
        bytes += *rc::gen::element("C"s, "\"H\""s, "E"s, "M"s, "I"s, "S"s, "T"s, ""s, "s"s) + ",";
        bytes += drawNumber(2) + "," + *rc::gen::element(""s, "\"All\""s) + "," + drawText() + drawEnd();
    }
    return bytes;
}

struct Drawn {
    SchemeFolder folder{drawNodes(), drawParagraphs()};

    void load(clsNavSchemes& navs) const {
        navs.LoadData(folder.nodes());
        navs.oWebs.LoadData(folder.paragraphs());
    }
};

// What is shown of bytes: UTF-8, and the one control character of the files above spelled out.
std::string shownText(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes)
        text += byte == '\x80' ? "€"s : byte == '\xE9' ? "é"s : byte == '\x81' ? "\\x81"s : std::string(1, byte);
    return text;
}

std::string withoutReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

// The findings of a report of the wizard as one line each.
Rows findingsOf(const std::string& report) {
    Rows findings;
    for (std::size_t at = 0; (at = report.find("=>", at)) != std::string::npos;) {
        const auto end = report.find("\r\n\r\n", at);
        auto finding = report.substr(at + 2, end - at - 2);
        if (finding.starts_with(' ')) finding.erase(0, 1);
        finding.replace(finding.find("\r\n"), 2, ". ");
        findings.push_back(shownText(finding));
        at = end;
    }
    return findings;
}

// The words of the findings that `check` takes from the rules of a table.
Rows checkedRules(const std::string& out, const std::string& rule) {
    Rows findings;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
        const auto mark = line.rfind(" [" + rule);
        if (mark == std::string::npos) continue;
        auto words = line.substr(0, mark);
        for (int colons = 0; colons < 4; ++colons) words.erase(0, words.find(':') + 1);  // file:line: level: field:
        findings.push_back(words.substr(1));
    }
    return findings;
}

}  // namespace

RC_GTEST_PROP(CommandProperty, FmtPrintsWhatASaveWrites, ()) {
    const Drawn drawn;
    clsNavSchemes navs;
    drawn.load(navs);
    const auto nodes = pelmo({"fmt", "--table", "XST1", drawn.folder.nodes()});
    RC_ASSERT(nodes.status == (navs.Count() != 0 ? 0 : 2));
    if (navs.Count() != 0) RC_ASSERT(nodes.out == savedBytes(navs));
    const auto paragraphs = pelmo({"fmt", "--table", "XST2", drawn.folder.paragraphs()});
    RC_ASSERT(paragraphs.status == (navs.oWebs.Count() != 0 ? 0 : 2));
    if (navs.oWebs.Count() != 0) RC_ASSERT(paragraphs.out == savedBytes(navs.oWebs));
    if (nodes.status == 0) {
        const auto differs = bytesOf(drawn.folder.nodes()) != nodes.out;
        RC_ASSERT(pelmo({"fmt", "--check", "--table", "XST1", drawn.folder.nodes()}).status == (differs ? 1 : 0));
        // (Without a root the header alone is saved.)
        RC_ASSERT(pelmo({"fmt", "--check", "-"}, nodes.out).status == (nodes.out == navHeader ? 2 : 0));
    }
}

RC_GTEST_PROP(CommandProperty, RenumberWritesWhatReNumberAndBothSavesDo, ()) {
    const Drawn drawn;
    clsNavSchemes navs;
    drawn.load(navs);
    const auto& from = drawn.folder;
    const TempFolder to;
    const auto ran = pelmo({"renumber", from.nodes(), from.paragraphs(), "-o", to.path().string()});
    bool hasRoot = false;
    for (const auto& node : navs.NewEnum()) hasRoot = hasRoot || node->parentIs == 0;
    RC_ASSERT(ran.status == (hasRoot && navs.oWebs.Count() != 0 ? 0 : 2));
    if (ran.status != 0) {
        RC_ASSERT(to.names().empty());
        return;
    }
    navs.Renumber();
    RC_ASSERT(bytesOf(to / "XST1.txt") == savedBytes(navs));
    RC_ASSERT(bytesOf(to / "XST2.txt") == savedBytes(navs.oWebs));
}

RC_GTEST_PROP(CommandProperty, CheckFindsWhatTheAnalysesReport, ()) {
    const Drawn drawn;
    clsNavSchemes navs;
    drawn.load(navs);
    const auto ran = pelmo({"check", drawn.folder.nodes(), drawn.folder.paragraphs()});
    RC_ASSERT(ran.err.empty());
    RC_ASSERT(checkedRules(ran.out, "XST1-rule-") == findingsOf(CheckNav(navs)));
    const auto report = CheckScheme(navs);
    RC_ASSERT(checkedRules(ran.out, "XST2-rule-") == findingsOf(report));
    const auto orphans = report.substr(report.find("THE ORPHANS: "));
    RC_ASSERT(checkedRules(ran.out, "orphan").size() ==
              static_cast<std::size_t>(std::ranges::count(orphans, '\n')) - 2);
    const auto listed = pelmo({"orphans", drawn.folder.nodes(), drawn.folder.paragraphs()});
    RC_ASSERT(listed.status == (orphans.size() > 17 ? 1 : 0));
    RC_ASSERT(std::ranges::count(listed.out, '\n') == std::ranges::count(orphans, '\n') - 2);
}

RC_GTEST_PROP(CommandProperty, TodoPrintsTheListsOfTheWizard, ()) {
    const Drawn drawn;
    clsNavSchemes navs;
    drawn.load(navs);
    const auto ran = pelmo({"todo", drawn.folder.nodes(), drawn.folder.paragraphs()});
    RC_ASSERT(ran.status == 0);
    RC_ASSERT(ran.out == shownText(withoutReturns(NavToDo(navs) + "\n" + WebToDo(navs.oWebs))));
}

// For a tree that holds all nodes and has no node 0, to which Re-Number would assign the orphans.
RC_GTEST_PROP(CommandProperty, TreeWithoutIdsPrintsNothingThatReNumberChanges, ()) {
    const auto count = *rc::gen::inRange(1, 14);
    std::string nodes = navHeader;
    for (int id = 1; id <= count; ++id) {
        const auto parent = id == 1 ? 0 : 3 * *rc::gen::inRange(1, id);
        nodes += std::to_string(3 * id) + ",n" + std::to_string(id) + ",F," + std::to_string(parent) + ",,,,\n";
    }
    std::string paragraphs = webHeader;
    for (int id = 1; id <= 8; ++id)
        paragraphs += std::to_string(id) + "," + std::to_string(*rc::gen::inRange(1, 3 * count + 4)) + "," +
                      std::to_string(*rc::gen::inRange(1, 4)) + ",p" + std::to_string(id) + ",q,,S,0,All,\n";
    const SchemeFolder folder(nodes, paragraphs);
    const auto before = pelmo({"tree", "--no-ids", folder.nodes(), folder.paragraphs()});
    const auto to = folder.folder.path().string();
    RC_ASSERT(pelmo({"renumber", folder.nodes(), folder.paragraphs(), "-o", to}).status == 0);
    RC_ASSERT(bytesOf(folder.nodes()) != nodes);
    const auto after = pelmo({"tree", "--no-ids", folder.nodes(), folder.paragraphs()});
    RC_ASSERT(after.out == before.out);
}
