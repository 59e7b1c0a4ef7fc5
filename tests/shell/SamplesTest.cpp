// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "Helpers.h"
#include "tests/Letters.h"

// The samples show a newcomer what the wizard is for, so they must be right: read here without the model.

namespace {

using Fields = std::vector<std::string>;

std::set<std::string> eachOf(const std::string& letters) {
    std::set<std::string> types;
    for (const char letter : letters) types.insert(std::string(1, letter));
    return types;
}

// The lines below the header, each cut at its commas; every line ends with CR LF, and texts stand in quotes.
std::vector<Fields> readSample(const std::string& name, const std::string& header,
                               const std::set<std::size_t>& numbers) {
    const auto bytes = bytesOf(sample(name));
    std::vector<Fields> records;
    std::size_t start = 0;
    for (int line = 1; start < bytes.size(); ++line) {
        const auto end = bytes.find("\r\n", start);
        if (end == std::string::npos) {
            ADD_FAILURE() << name << " line " << line << " does not end with CR LF";
            break;
        }
        const auto content = bytes.substr(start, end - start);
        start = end + 2;
        if (line == 1) {
            EXPECT_EQ(content, header);
            continue;
        }
        Fields fields;
        std::istringstream cut(content);
        for (std::string field; std::getline(cut, field, ',');) {
            const bool isNumber = numbers.contains(fields.size());
            const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
            if (isNumber) {
                EXPECT_TRUE(!field.empty() && std::ranges::all_of(field, isDigit)) << name << " line " << line;
            } else {
                EXPECT_TRUE(field.size() >= 2 && field.front() == '"' && field.back() == '"')
                    << name << " line " << line;
                field = field.substr(1, field.size() - 2);
            }
            EXPECT_EQ(field.find_first_of("\"\r\n\t"), std::string::npos) << name << " line " << line;
            fields.push_back(field);
        }
        records.push_back(fields);
    }
    return records;
}

struct Node {
    int id, parent;
    std::string description, type, query, parm, icon, role;
};

struct Paragraph {
    int id, node, seqNo, form;
    std::string title, query, parm, type, columns, extra;
};

class Samples : public testing::Test {
  protected:
    Samples() {
        for (const auto& f :
             readSample("XST1.txt",
                        R"("ID","descriptionIs","typeIs","parentIs","queryIs","parmIs","iconIs","roleIs")", {0, 3})) {
            EXPECT_EQ(f.size(), 8U) << f[0];
            nodes.push_back(
                {std::stoi(f.at(0)), std::stoi(f.at(3)), f.at(1), f.at(2), f.at(4), f.at(5), f.at(6), f.at(7)});
        }
        for (const auto& f :
             readSample("XST2.txt",
                        R"("ID","XST1","seqNo","titleIs","queryIs","parmIs","typeIs","formIs","colsAre","extra")",
                        {0, 1, 2, 7})) {
            EXPECT_EQ(f.size(), 10U) << f[0];
            paragraphs.push_back({std::stoi(f.at(0)), std::stoi(f.at(1)), std::stoi(f.at(2)), std::stoi(f.at(7)),
                                  f.at(3), f.at(4), f.at(5), f.at(6), f.at(8), f.at(9)});
        }
    }

    [[nodiscard]] std::vector<Node> childrenOf(const Node& parent) const {
        std::vector<Node> children;
        for (const auto& node : nodes)
            if (node.parent == parent.id) children.push_back(node);
        return children;
    }

    std::vector<Node> nodes;
    std::vector<Paragraph> paragraphs;
};

// The kind of a stored parameter; a character key has two digits for its length.
std::string kindOf(const std::string& parm) {
    if (parm.size() == 6 && parm.starts_with("CKey") && std::isdigit(parm[4]) && std::isdigit(parm[5]) &&
        parm != "CKey00")
        return "CKey";
    if (parm.empty() || parm == "Lkey" || parm == "Text" || parm == "Today") return parm;
    return "wrong: " + parm;
}

// "All", or column numbers joined by ":".
bool areColumns(const std::string& columns) {
    if (columns == "All") return true;
    return !columns.empty() && std::isdigit(columns.front()) && std::isdigit(columns.back()) &&
           columns.find_first_not_of("0123456789:") == std::string::npos && columns.find("::") == std::string::npos;
}

// A query is a name, perhaps a blank and a constant after it.
bool hasConstant(const std::string& query) {
    return query.find(' ') != std::string::npos;
}

}  // namespace

TEST_F(Samples, AreSmallEnoughToSurvey) {
    EXPECT_GE(nodes.size(), 40U);
    EXPECT_LE(nodes.size(), 80U);
    EXPECT_GE(paragraphs.size(), 60U);
    EXPECT_LE(paragraphs.size(), 120U);
}

TEST_F(Samples, AreNumberedFromOneOn) {
    for (std::size_t i = 0; i < nodes.size(); ++i) EXPECT_EQ(nodes[i].id, static_cast<int>(i) + 1);
    for (std::size_t i = 0; i < paragraphs.size(); ++i) EXPECT_EQ(paragraphs[i].id, static_cast<int>(i) + 1);
}

TEST_F(Samples, NodesStandInTreeOrder) {
    std::vector<int> path;  // from the root down to the node before
    for (const auto& node : nodes) {
        if (path.empty()) {
            EXPECT_EQ(node.parent, 0) << "the root comes first";
        } else {
            while (!path.empty() && path.back() != node.parent) path.pop_back();
            EXPECT_FALSE(path.empty()) << node.id << " does not follow its parent's branch";
        }
        path.push_back(node.id);
    }
    EXPECT_EQ(std::ranges::count(nodes, 0, &Node::parent), 1);
}

TEST_F(Samples, ParagraphsStandInTheOrderOfTheirNodesAndPages) {
    int node = 0, seqNo = 0;
    for (const auto& paragraph : paragraphs) {
        if (paragraph.node != node) {
            EXPECT_GT(paragraph.node, node) << paragraph.id;
            seqNo = 0;
        }
        EXPECT_EQ(paragraph.seqNo, seqNo + 1) << paragraph.id;
        node = paragraph.node;
        seqNo = paragraph.seqNo;
    }
}

TEST_F(Samples, EveryParagraphHasItsNodeAndEveryNodeAPage) {
    std::set<int> pages;
    for (const auto& paragraph : paragraphs) {
        EXPECT_TRUE(paragraph.node >= 1 && paragraph.node <= static_cast<int>(nodes.size())) << paragraph.id;
        pages.insert(paragraph.node);
    }
    EXPECT_EQ(pages.size(), nodes.size());
}

TEST_F(Samples, UseEveryTypeAndParameterKind) {
    std::set<std::string> typesOfNodes, nodeKinds, typesOfParagraphs, paragraphKinds;
    for (const auto& node : nodes) {
        typesOfNodes.insert(node.type);
        nodeKinds.insert(kindOf(node.parm));
    }
    for (const auto& paragraph : paragraphs) {
        typesOfParagraphs.insert(paragraph.type);
        paragraphKinds.insert(kindOf(paragraph.parm));
    }
    const std::set<std::string> kinds = {"", "CKey", "Lkey", "Text", "Today"};
    EXPECT_EQ(typesOfNodes, eachOf(nodeLetters));
    EXPECT_EQ(typesOfParagraphs, eachOf(paragraphLetters));
    EXPECT_EQ(nodeKinds, kinds);
    EXPECT_EQ(paragraphKinds, kinds);
}

TEST_F(Samples, ShowConstantsInQueries) {
    EXPECT_TRUE(std::ranges::any_of(nodes, hasConstant, &Node::query));
    EXPECT_TRUE(std::ranges::any_of(paragraphs, hasConstant, &Paragraph::query));
}

TEST_F(Samples, NodesObeyTheRules) {
    for (const auto& node : nodes) {
        const auto children = childrenOf(node);
        const bool generates = node.type == "G" || node.type == "R";
        EXPECT_EQ(!node.query.empty(), generates) << node.id << " has a query if and only if it generates";
        if (!generates) {
            EXPECT_EQ(node.parm, "") << node.id;
        }
        if (node.parent == 0) {
            EXPECT_EQ(node.type, "F");
        }
        if (node.type == "F") {
            EXPECT_GE(children.size(), 1U) << node.id;
        } else if (node.type == "G") {
            EXPECT_EQ(children.size(), 1U) << node.id;
            for (const auto& child : children) EXPECT_NE(child.type, "F") << node.id;
        } else {
            EXPECT_TRUE(children.empty()) << node.id;
        }
    }
}

TEST_F(Samples, ParagraphsObeyTheRules) {
    for (const auto& paragraph : paragraphs) {
        const auto& type = paragraph.type;
        EXPECT_NE(paragraph.query, "") << paragraph.id;
        if (type != "H" && type != "I") {
            EXPECT_EQ(paragraph.form, 0) << paragraph.id;
        }
        if (type == "C" || type == "T" || type == "S") {
            EXPECT_NE(paragraph.columns, "") << paragraph.id;
        } else {
            EXPECT_EQ(paragraph.columns, "") << paragraph.id;
        }
    }
    EXPECT_TRUE(std::ranges::any_of(paragraphs, [](const Paragraph& p) { return p.type == "H" && p.form > 0; }));
    EXPECT_TRUE(std::ranges::any_of(paragraphs, [](const Paragraph& p) { return p.type == "I" && p.form > 0; }));
}

TEST_F(Samples, ColumnsAreWrittenAsTheProductReadsThem) {
    for (const auto& paragraph : paragraphs) {
        if (paragraph.type == "S") {
            EXPECT_TRUE(areColumns(paragraph.columns)) << paragraph.id;
        }
        if (paragraph.type == "C") {
            EXPECT_TRUE(areColumns(paragraph.columns) && std::ranges::count(paragraph.columns, ':') == 1)
                << paragraph.id;
        }
    }
}

TEST_F(Samples, EveryTextSaysSomething) {
    for (const auto& node : nodes) {
        EXPECT_NE(node.description, "") << node.id;
        EXPECT_NE(node.icon, "") << node.id;
    }
    for (const auto& paragraph : paragraphs) EXPECT_NE(paragraph.title, "") << paragraph.id;
    EXPECT_EQ(nodes.front().description, "Data Browser");
}
