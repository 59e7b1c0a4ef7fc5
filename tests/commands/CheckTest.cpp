// SPDX-License-Identifier: MIT
#include <nlohmann/json.hpp>

#include "tests/commands/Commands.h"

using namespace std::string_literals;

namespace {

// Lines of every kind. The rules find the node 3 and the paragraphs 1 and 2.
const std::string flawedNodes = navHeader + lines({
                                                R"(1,"Shop","F",0,"","","leaf","")",               // line 2
                                                R"(2,"Bikes, new","G",1,"spG_A","","","")",        // 3
                                                R"("7","quoted","N",1,"","","","")",               // 4
                                                R"(3,"List","G",1,"","Key","","")",                // 5
                                                R"(3,"twin","N",1,"","","","")",                   // 6
                                                R"(4,"half","N",1.4,"","","","")",                 // 7
                                                "5,\"caf\xE9 \x81\",\"N\",1,\"\",\"\",\"\",\"\"",  // 8
                                                R"(6,"lost","N",99,"","","","")",                  // 9
                                            });
const std::string flawedParagraphs = webHeader + lines({
                                                     R"(1,1,1,"Sums","","","S",0,"","")",          // line 2
                                                     R"(2,9,1,"Bars","spW_B","","C",2,"All","")",  // 3
                                                 });

const std::string rule3 =
    "RULE #3 Says that there should be ONE AND ONLY ONE Child Node (of type-G, R or N) for Generating-Type Node.";
const std::string rule5 =
    "RULE #5 Says that there should be query specified for Generating-Type Node. Or else, how will they generate the "
    "child branches !";

nlohmann::json parsed(const Ran& ran) {
    EXPECT_EQ(ran.err, "");
    return nlohmann::json::parse(ran.out);
}

}  // namespace

TEST(Check, FindsNothingInTheSamples) {
    const auto ran = pelmo({"check", sampleNodes, sampleParagraphs});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(pelmo({"check", sampleNodes}).status, 0);
    EXPECT_EQ(pelmo({"check", "--strict", sampleNodes, sampleParagraphs}).status, 0);
}

TEST(Check, PrintsWhatBothAnalysesFindSortedByPlace) {
    const SchemeFolder folder(flawedNodes, flawedParagraphs);
    const auto ran = pelmo({"check", folder.nodes(), folder.paragraphs()});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.err, "");
    const auto a = folder.nodes();
    const auto b = folder.paragraphs();
    EXPECT_EQ(ran.out,
              a + ":3: error: descriptionIs: a comma in the text shifts all fields after it [comma]\n" +  //
                  a +
                  ":3: error: parentIs: the parent is 0, but the root is in line 2; there can be only one root "
                  "[second-root]\n" +
                  a + ":3: error: the node cannot be reached from the root; saving drops it [unwritten]\n" + a +
                  ":4: warning: the line does not begin with a digit; it is passed over [passed-over]\n" + a +
                  ":5: warning: parmIs: \"Key\" is not a known kind of parameter [unknown-parameter]\n" + a +
                  ":5: error: typeIs: There are no Child Nodes for Generating-Type: [ID=3] List. " + rule3 +
                  " [XST1-rule-3]\n" +  //
                  a + ":5: error: queryIs: There is no Query Specifed for Generating-Type: [ID=3] List. " + rule5 +
                  " [XST1-rule-5]\n" +  //
                  a + ":6: error: ID: the ID is taken by line 5; this record is dropped [twin-id]\n" + a +
                  ":7: remark: parentIs: \"1.4\" is rounded to a whole number [rounded]\n" +  //
                  a + ":8: remark: descriptionIs: the byte 81 is not a character of the code page [free-byte]\n" + a +
                  ":9: error: parentIs: there is no node 99 [missing-parent]\n" +  //
                  a + ":9: error: the node cannot be reached from the root; saving drops it [unwritten]\n" + b +
                  ":2: error: queryIs: No Query Specifed for (S)-Type: [ID=1] Sums. RULE #1. All Paragraphs must "
                  "have Query Field Specified. [XST2-rule-1]\n" +
                  b +
                  ":2: remark: colsAre: THIS IS NOT A VIOLATION OF RULE. JUST A COMMENT: No Column Field Specified "
                  "for (S)-Type: [ID=1] Sums. RULE #4. Column Field CAN be specified for (S)-Type Paragraphs. "
                  "[XST2-rule-4]\n" +
                  b + ":3: warning: XST1: there is no node 9; the paragraph is an orphan [orphan]\n" + b +
                  ":3: error: formIs: Form# Field is Specified for (C)-Type: [ID=2] Bars. RULE #2. Form# Field CAN "
                  "be specified for (H) or (I)-Type Paragraphs Only. [XST2-rule-2]\n");
}

TEST(Check, CountsRemarksOnlyWhereItIsStrict) {
    const SchemeFolder folder(
        navHeader + "1,\"\x81\",\"F\",0,\"\",\"\",\"\",\"\"\r\n2,\"\",\"N\",1,\"\",\"\",\"\",\"\"\r\n",
        webHeader + "1,1,1,\"a\",\"spW_A\",\"\",\"S\",0,\"\",\"\"\r\n");
    const auto plain = pelmo({"check", folder.nodes(), folder.paragraphs()});
    EXPECT_EQ(plain.status, 0);
    EXPECT_EQ(std::ranges::count(plain.out, '\n'), 2);
    const auto strict = pelmo({"check", "--strict", folder.nodes(), folder.paragraphs()});
    EXPECT_EQ(strict.status, 1);
    EXPECT_EQ(strict.out, plain.out);
}

TEST(Check, WarningsAreFindings) {
    const SchemeFolder folder(navHeader + lines({R"(1,"a","F",0,"","","","")", R"(2,"a","N",1,"q","","","")"}), "");
    const auto ran = pelmo({"check", folder.nodes()});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out, folder.nodes() +
                           ":3: warning: queryIs: nodes of this type have neither query nor parameter; \"q\" will be "
                           "lost [dropped-text]\n");
}

TEST(Check, ReadsTheStandardInput) {
    const auto ran = pelmo({"check", "-"}, "x\n");
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out,
              "<stdin>:1: warning: the line does not begin with a digit; it is passed over [passed-over]\n"
              "<stdin>:1: error: no node has the parent 0; the tree is empty [no-root]\n");
    const auto sample = bytesOf(sampleParagraphs);
    EXPECT_EQ(pelmo({"check", sampleNodes, "-"}, sample).status, 0);
    const auto large = navHeader + "1,\"" + std::string(300'000, 'x') + "\",\"N\",0,\"\",\"\",\"\",\"\"\r\n";
    EXPECT_EQ(pelmo({"check", "-"}, large).out, "") << "more than is read at once";
}

TEST(Check, ColoursTheLevelsOnATerminal) {
    const auto ran = pelmo({"check", "-"}, "x\n1.2,a,F,0,,,,\n", true);
    EXPECT_EQ(ran.out.substr(0, ran.out.find('\n')),
              "<stdin>:1: \x1B[35mwarning:\x1B[0m the line does not begin with a digit; it is passed over "
              "[passed-over]");
    EXPECT_NE(ran.out.find("<stdin>:2: \x1B[36mremark:\x1B[0m ID: "), std::string::npos);
    EXPECT_NE(ran.out.find("<stdin>:2: \x1B[31merror:\x1B[0m typeIs: "), std::string::npos);
    EXPECT_EQ(pelmo({"check", "-"}, "x\n1.2,a,F,0,,,,\n").out.find('\x1B'), std::string::npos);
}

TEST(Check, PrintsTextsInTheEncodingThatWasAskedFor) {
    const std::string file = "1,\x80 caf\xE9 \x81\x1B[2J\t,G,0,q,,,\n";
    const auto of = [](const Ran& ran) {
        const auto first = ran.out.find("[ID=1] ");
        return ran.out.substr(first, ran.out.find(". RULE") - first);
    };
    EXPECT_EQ(of(pelmo({"check", "-"}, file)), "[ID=1] € café \\x81\\x1B[2J\\x09");
    EXPECT_EQ(of(pelmo({"check", "--encoding", "utf-8", "-"}, file)), "[ID=1] € café \\x81\\x1B[2J\\x09");
    EXPECT_EQ(of(pelmo({"check", "--encoding", "windows-1252", "-"}, file)),
              "[ID=1] \x80 caf\xE9 \\x81\\x1B[2J\\x09");
    EXPECT_EQ(of(pelmo({"--encoding", "windows-1252", "check", "-"}, file)),
              "[ID=1] \x80 caf\xE9 \\x81\\x1B[2J\\x09");
}

TEST(Check, PrintsJson) {
    const SchemeFolder folder(flawedNodes, flawedParagraphs);
    const auto ran = pelmo({"check", "--format", "json", folder.nodes(), folder.paragraphs()});
    EXPECT_EQ(ran.status, 1);
    const auto findings = parsed(ran).at("findings");
    ASSERT_EQ(findings.size(), 16U);
    EXPECT_EQ(findings[0], nlohmann::json({{"file", folder.nodes()},
                                           {"line", 3},
                                           {"field", "descriptionIs"},
                                           {"level", "error"},
                                           {"rule", "comma"},
                                           {"message", "a comma in the text shifts all fields after it"}}));
    EXPECT_EQ(findings[3].at("field"), nullptr);
    EXPECT_EQ(findings[3].at("level"), "warning");
    EXPECT_EQ(findings[14].at("file"), folder.paragraphs());
    EXPECT_EQ(findings[14].at("field"), "XST1");
    EXPECT_EQ(parsed(pelmo({"check", "--format", "json", sampleNodes})),
              nlohmann::json({{"findings", nlohmann::json::array()}}));
}

TEST(Check, KeepsEveryCharacterInJson) {
    const std::string file = "1,\x80\xE9\x81\x1B\\,G,0,q,,,\n";
    for (const char* encoding : {"utf-8", "windows-1252"}) {
        const auto ran = pelmo({"check", "--format", "json", "--encoding", encoding, "-"}, file);
        EXPECT_TRUE(std::ranges::all_of(ran.out, [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }));
        const auto findings = parsed(ran).at("findings");
        EXPECT_NE(findings.at(1).at("message").get<std::string>().find("[ID=1] €é\u0081\u001B\\. RULE"),
                  std::string::npos);
    }
}

// What the schema of SARIF 2.1.0 requires of the parts that are used: names, kinds of values, references.
TEST(Check, PrintsSarif) {
    const SchemeFolder folder(flawedNodes, flawedParagraphs);
    const auto sarif = parsed(pelmo({"check", "--format=sarif", folder.nodes(), folder.paragraphs()}));
    EXPECT_EQ(sarif.at("version"), "2.1.0");
    EXPECT_EQ(sarif.at("$schema"), "https://json.schemastore.org/sarif-2.1.0.json");
    EXPECT_EQ(sarif.size(), 3U);
    ASSERT_EQ(sarif.at("runs").size(), 1U);
    const auto& run = sarif["runs"][0];
    EXPECT_EQ(run.size(), 2U);
    EXPECT_EQ(run.at("tool").size(), 1U);
    const auto& driver = run["tool"].at("driver");
    EXPECT_EQ(driver.at("name"), "pelmo-scheme");
    EXPECT_EQ(driver.at("version"), "1.02");
    EXPECT_EQ(driver.size(), 3U);
    std::map<std::string, std::string> levels;
    for (const auto& rule : driver.at("rules")) {
        EXPECT_EQ(rule.size(), 3U);
        EXPECT_FALSE(rule.at("shortDescription").at("text").get<std::string>().empty());
        const auto level = rule.at("defaultConfiguration").at("level").get<std::string>();
        EXPECT_TRUE(level == "error" || level == "warning" || level == "note") << level;
        EXPECT_TRUE(levels.emplace(rule.at("id"), level).second) << "each rule once";
    }
    EXPECT_EQ(levels.size(), 18U + 5U + 4U);
    ASSERT_EQ(run.at("results").size(), 16U);
    for (const auto& result : run["results"]) {
        EXPECT_EQ(result.size(), 4U);
        EXPECT_EQ(levels.count(result.at("ruleId")), 1U) << result;
        const auto level = result.at("level").get<std::string>();
        EXPECT_TRUE(level == "error" || level == "warning" || level == "note") << level;
        EXPECT_TRUE(result.at("message").at("text").is_string());
        ASSERT_EQ(result.at("locations").size(), 1U);
        const auto& place = result["locations"][0].at("physicalLocation");
        EXPECT_TRUE(place.at("artifactLocation").at("uri").get<std::string>().starts_with("file:///")) << place;
        EXPECT_GE(place.at("region").at("startLine").get<int>(), 1);
    }
    EXPECT_EQ(run["results"][0]["locations"][0],
              nlohmann::json::parse(R"({"physicalLocation": {"artifactLocation": {"uri": "file://)" + folder.nodes() +
                                    R"("}, "region": {"startLine": 3}},
                                       "logicalLocations": [{"name": "descriptionIs", "kind": "member"}]})"));
    EXPECT_EQ(run["results"][8]["level"], "note");
    EXPECT_EQ(driver["rules"][22]["id"], "XST1-rule-5");
    EXPECT_EQ(driver["rules"][22]["shortDescription"]["text"],
              "5. The Query or Stored Procedure Name should be specified for (G) and (R) types Only.");
    EXPECT_EQ(driver["rules"][26]["id"], "XST2-rule-4");
    EXPECT_EQ(driver["rules"][26]["shortDescription"]["text"],
              "4. Column Field CAN be specified for (S)-Type Paragraphs.");
    EXPECT_EQ(parsed(pelmo({"check", "--format", "sarif", sampleNodes}))["runs"][0]["results"],
              nlohmann::json::array());
}

TEST(Check, WritesNamesOfFilesAsUris) {
    const TempFolder folder;
    const auto name = (folder / "a b#%?é.txt").string();
    writeBytes(name, "x\n");
    const auto sarif = parsed(pelmo({"check", "--format", "sarif", name}));
    EXPECT_EQ(sarif["runs"][0]["results"][0]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"],
              "file://" + folder.path().string() + "/a%20b%23%25%3F%C3%A9.txt");
    EXPECT_TRUE(pelmo({"check", name}).out.starts_with(name + ":1: "));
}

TEST(Check, SpellsOutBytesOfANameThatAreNoText) {
    const TempFolder folder;
    const auto name = (folder / "a\xFF\x1B\xC2\x9B.txt").string();
    writeBytes(name, "x\n");
    EXPECT_TRUE(pelmo({"check", name}).out.starts_with(folder.path().string() + "/a\\xFF\\x1B\\xC2\\x9B.txt:1: "));
}
