// SPDX-License-Identifier: MIT
#include <QPlainTextEdit>
#include <QProcess>
#include <random>

#include "Helpers.h"
#include "ReportText.h"

// pelmo-scheme writes and prints what the wizard saves and shows: both are used here on the same files.

namespace {

// What the program prints, and its exit status.
struct Printed {
    std::string text;
    int status = -1;
};
Printed pelmoScheme(const std::vector<std::filesystem::path>& arguments) {
    QStringList words;
    for (const auto& argument : arguments) words.push_back(QString::fromStdString(argument.string()));
    QProcess program;
    program.start(QStringLiteral(PELMO_SCHEME), words);
    if (!program.waitForFinished()) return {program.errorString().toStdString()};
    return {program.readAllStandardOutput().toStdString(), program.exitCode()};
}

// Files as people leave them: lines in any order, IDs taken twice, commas, quotes, bytes of the upper half, numbers
// with fractions, parents and nodes that do not exist, other line ends.
std::string roughNodes(std::mt19937& random) {
    const auto pick = [&](unsigned count) { return random() % count; };
    std::string lines = "\"ID\",\"descriptionIs\",\"typeIs\"\r\n1,\"Top\",\"F\",0,\"\",\"\",\"leaf\",\"\"\r\n";
    for (unsigned line = 2; line < 20; ++line) {
        const char* const texts[] = {"plain", "with, a comma", "a \"quote\"", "caf\xE9 \x80", ""};
        const char* const ends[] = {"\r\n", "\n", "\r", "\r\n\r\n"};
        lines += std::to_string(1 + pick(30)) + ",\"" + texts[pick(5)] + "\",\"" + "FGRNx"[pick(5)] + "\"," +
                 std::to_string(pick(line)) + (pick(5) == 0 ? ".5" : "") + ",\"spG_A 1\",\"Lkey\",\"leaf\",\"\"" +
                 ends[pick(4)];
    }
    return lines;
}
std::string roughParagraphs(std::mt19937& random) {
    const auto pick = [&](unsigned count) { return random() % count; };
    std::string lines = "\"ID\",\"XST1\"\r\n";
    for (unsigned line = 1; line < 20; ++line)
        lines += std::to_string(1 + pick(30)) + "," + std::to_string(pick(25)) + "," + std::to_string(pick(4)) +
                 ",\"Title\xFF\",\"spW_B\",\"CKey05\",\"" + "CHEMIST"[pick(7)] + "\"," + std::to_string(pick(3)) +
                 ",\"1:2\",\"\"\r\n";
    return lines;
}

class BothPrograms : public testing::TestWithParam<unsigned> {
  protected:
    void SetUp() override {
        std::mt19937 random(GetParam());
        nodes_ = writeBytes(folder_ / "nodes", roughNodes(random));
        paragraphs_ = writeBytes(folder_ / "paragraphs", roughParagraphs(random));
        wizard_.openNodes(nodes_);
        wizard_.openParagraphs(paragraphs_);
    }
    // What the menu item shows in the report window.
    std::string report(const std::string& letters) {
        std::string shown;
        Answers answers;
        answers.then("fOutput", [&](QDialog& window) {
            shown = textOf(find<QPlainTextEdit>(window, "Text1")).toStdString();
            escape(window);
        });
        choose(wizard_.window, letters);
        answers.wait();
        return shown;
    }

    TempFolder folder_;
    std::filesystem::path nodes_, paragraphs_;
    Wizard wizard_;
};

}  // namespace

TEST_P(BothPrograms, WriteTheSameFilesAfterRenumbering) {
    wizard_.choose("NR");
    wizard_.saveNodes(folder_ / "saved1");
    wizard_.saveParagraphs(folder_ / "saved2");
    ASSERT_EQ(pelmoScheme({"renumber", nodes_, paragraphs_, "-o", folder_ / "."}).status, 0);
    EXPECT_EQ(bytesOf(folder_ / "XST1.txt"), bytesOf(folder_ / "saved1.txt"));
    EXPECT_EQ(bytesOf(folder_ / "XST2.txt"), bytesOf(folder_ / "saved2.txt"));
    EXPECT_NE(bytesOf(folder_ / "XST1.txt"), bytesOf(nodes_));
}

TEST_P(BothPrograms, WriteTheSameFilesAsTheyAre) {
    wizard_.saveNodes(folder_ / "saved1");
    wizard_.saveParagraphs(folder_ / "saved2");
    EXPECT_EQ(pelmoScheme({"fmt", "--table", "XST1", nodes_}).text, bytesOf(folder_ / "saved1.txt"));
    EXPECT_EQ(pelmoScheme({"fmt", "--table", "XST2", paragraphs_}).text, bytesOf(folder_ / "saved2.txt"));
}

TEST_P(BothPrograms, ListTheSameToDo) {
    const auto nodes = report("NT");
    const auto paragraphs = report("WT");
    ASSERT_TRUE(nodes.starts_with("THE TO-DO LIST"));
    EXPECT_EQ(pelmoScheme({"todo", nodes_, paragraphs_}).text, nodes + "\n" + paragraphs);
}

INSTANTIATE_TEST_SUITE_P(Seeds, BothPrograms, testing::Range(1U, 7U));
