// SPDX-License-Identifier: MIT
#include "analysis/Reports.h"
#include "tests/model/Helpers.h"

// The broken pair of samples: each rule that a file can break is broken once, and only once, so that the exercise of
// the help has one of each.

namespace {

std::string sample(const std::string& name) {
    return std::string(SAMPLES) + "/" + name;
}

class Faults : public testing::Test {
  protected:
    Faults() {
        EXPECT_TRUE(navs.LoadData(sample("XST1-faults.txt")));
        EXPECT_TRUE(navs.oWebs.LoadData(sample("XST2-faults.txt")));
    }

    clsNavSchemes navs;
};

std::string findingsOf(const std::string& report) {
    const std::string heading = "OBSERVATIONS WHILE CHECKING THE NAVIGATIONAL SCHEME:\r\n\r\n";
    const auto at = report.find(heading);
    EXPECT_NE(at, std::string::npos);
    return report.substr(at + heading.size());
}

std::size_t timesIn(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += what.size()) ++count;
    return count;
}

}  // namespace

TEST_F(Faults, HaveEachFindingOnNodesOnce) {
    const auto findings = findingsOf(CheckNav(navs));
    for (const std::string finding :
         {"=> There are no Child Nodes for Fixed-Type: [ID=50] Staff\r\n",
          "=> There are more than one Child Nodes for Generating-Type: [ID=9] Open repair jobs\r\n",
          "=> There are no Child Nodes for Generating-Type: [ID=8] Bicycle types\r\n",
          "=> There is no Query Specifed for Generating-Type: [ID=3] Due back today\r\n",
          "=> There is a Fixed-Type Node below the Generating-Type: [ID=25] Jobs by mechanic\r\n",
          "=> There are Child Nodes for Recurring-Type: [ID=15] Goods categories\r\n",
          "=> There is no Query Specifed for Recurring-Type: [ID=7] Part with its parts\r\n",
          "=> There are Child Nodes for Non-Generating-Type: [ID=35] Reorder list\r\n"})
        EXPECT_EQ(timesIn(findings, finding), 1U) << finding;
    EXPECT_EQ(timesIn(findings, "=>"), 8U);
}

TEST_F(Faults, HaveEachFindingOnParagraphsOnceAndTwoOrphans) {
    const auto findings = findingsOf(CheckScheme(navs));
    for (const std::string finding :
         {"=> No Query Specifed for (S)-Type: [ID=2] All hires going out today\r\nRULE #1.",
          "=> Column Field Specified for (H)-Type: [ID=3] Hire of:\r\nRULE #3.",
          "=>THIS IS NOT A VIOLATION OF RULE. JUST A COMMENT: No Column Field Specified for (S)-Type: [ID=4] "
          "Bicycles and extras on this hire\r\nRULE #4.",
          "=> Form#  Field is Specified for (E)-Type: [ID=5] Work out the late charges\r\nRULE #2.",
          "=> No Column Field Specified for (C)-Type: [ID=6] Bicycles by type\r\nRULE #3.",
          "=> Form# Field is Specified for (S)-Type: [ID=7] Open jobs with estimates\r\nRULE #2."})
        EXPECT_EQ(timesIn(findings, finding), 1U) << finding;
    EXPECT_EQ(timesIn(findings, "=>"), 6U);
    EXPECT_TRUE(
        findings.ends_with("THE ORPHANS: \r\n\r\n[ID=10] Vouchers handed out this month\r\n"
                           "[ID=11] Hours by mechanic and day\r\n"));
}

// A comma in the title, which no analysis finds.
TEST_F(Faults, HaveAShiftedLine) {
    const auto shifted = navs.oWebs.Item(8);
    ASSERT_NE(shifted, nullptr);
    EXPECT_EQ(shifted->titleIs, "Job ticket");
    EXPECT_EQ(shifted->queryIs, " in full:");
    EXPECT_EQ(shifted->parmIs, "spW_JobHead");
    EXPECT_EQ(shifted->typeIs, "Lkey");
    EXPECT_EQ(shifted->formIs, 0);
    EXPECT_EQ(shifted->colsAre, "4");
}

TEST_F(Faults, HaveNumbersOutOfTreeOrder) {
    std::vector<std::int32_t> ids;
    for (const auto& node : navs.NewEnum()) ids.push_back(node->ID);
    EXPECT_EQ(ids, std::vector<std::int32_t>(
                       {1, 20, 5, 12, 3, 14, 8, 30, 9, 17, 6, 25, 11, 18, 40, 22, 7, 15, 28, 35, 31, 50}));
    EXPECT_TRUE(navs.Renumber());
    std::int32_t next = 1;
    for (const auto& node : navs.NewEnum()) EXPECT_EQ(node->ID, next++) << "the file is in tree order";
}
