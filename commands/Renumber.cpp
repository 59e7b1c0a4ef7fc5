// SPDX-License-Identifier: MIT
#include <filesystem>
#include <memory>

#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "commands/Input.h"
#include "model/FileWriter.h"
#include "model/Integer.h"
#include "model/NodeTree.h"

namespace {

struct Arguments {
    std::string nodes;
    std::string paragraphs;
    std::string folder;
    std::string map;
};

// One of several files, each of which is written to its end before any of them takes its place.
struct OutputFile {
    explicit OutputFile(const std::filesystem::path& path) : name(shownName(path.string())), writer(path) {}
    void write(std::string_view bytes) { writer.write(bytes); }

    std::string name;
    FileWriter writer;
};

void commitAll(std::vector<std::unique_ptr<OutputFile>>& files) {
    const auto refuse = [](const OutputFile& file) { throw Unusable(file.name + ": cannot be written"); };
    for (const auto& file : files)
        if (!file->writer.isGood()) refuse(*file);
    for (const auto& file : files)
        if (!file->writer.commit()) refuse(*file);
}

// The IDs of the nodes that are saved, in the order in which they are saved.
std::vector<std::int32_t> idsInTreeOrder(const clsNavSchemes& navs) {
    std::vector<std::int32_t> ids;
    walkTree(navs.NewEnum(), [&](const auto& node, std::size_t) {
        ids.push_back(node->ID);
        return true;
    });
    return ids;
}

// The numbers after a renumbering are 1, 2, 3 ... in that order.
void writeMap(const std::vector<std::int32_t>& former, OutputFile& file) {
    file.write("\"old\",\"new\"\r\n");
    std::int32_t now = 0;
    for (const auto id : former) file.write(keyText(id) + "," + keyText(++now) + "\r\n");
}

ExitStatus run(const Arguments& given, const Console& console) {
    clsNavSchemes navs;
    loadSchemes(navs, given.nodes, given.paragraphs, console);
    const auto former = idsInTreeOrder(navs);
    if (former.empty()) throw Unusable(shownName(given.nodes) + ": there is no root in it, and so nothing to save");
    if (navs.oWebs.Count() == 0) throw Unusable(shownName(given.paragraphs) + ": there is no paragraph in it");
    navs.Renumber();

    const std::filesystem::path folder(given.folder);
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error))
        throw Unusable(shownName(given.folder) + ": there is no such folder");
    std::vector<std::unique_ptr<OutputFile>> files;
    const auto open = [&](const std::filesystem::path& path) -> OutputFile& {
        return *files.emplace_back(std::make_unique<OutputFile>(path));
    };
    auto& nodes = open(folder / "XST1.txt");
    navs.WriteData([&](std::string_view bytes) { nodes.write(bytes); });
    auto& paragraphs = open(folder / "XST2.txt");
    navs.oWebs.WriteData([&](std::string_view bytes) { paragraphs.write(bytes); });
    if (!given.map.empty()) writeMap(former, open(given.map));
    commitAll(files);
    return nothingFound;
}

}  // namespace

RunCommand declareRenumber(CommandLine& line) {
    const auto given = std::make_shared<Arguments>();
    line.argument("XST1", given->nodes, "The file of the nodes");
    line.argument("XST2", given->paragraphs, "The file of the paragraphs");
    line.option("-o,--output", given->folder, "FOLDER", "The folder for the new XST1.txt and XST2.txt",
                Need::Required);
    line.option("--map", given->map, "FILE", "Write the old and the new number of each node into this file, too");
    return [given](const Console& console) { return run(*given, console); };
}
