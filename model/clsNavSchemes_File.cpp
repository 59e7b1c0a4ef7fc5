// SPDX-License-Identifier: MIT
#include <new>

#include "model/FileWriter.h"
#include "model/LineBuilder.h"
#include "model/LoadedFile.h"
#include "model/NodeTree.h"
#include "model/clsNavSchemes.h"

namespace {

constexpr std::string_view header = R"("ID","descriptionIs","typeIs","parentIs","queryIs","parmIs","iconIs","roleIs")"
                                    "\r\n";

void fill(clsNavScheme& node, const FileReader::Pieces& pieces) {
    node.ID = pieces[0].number();
    node.descriptionIs = pieces[1].text();
    node.setTypeIs(pieces[2].text());  // before the query and the parameter, which the type may refuse
    node.parentIs = pieces[3].number();
    node.setQueryIs(pieces[4].text());
    node.setParmIs(pieces[5].text());
    node.iconIs = pieces[6].text();
    node.roleIs = pieces[7].text();
}

}  // namespace

void clsNavSchemes::WriteData(const std::function<void(std::string_view)>& write) const {
    write(header);
    LineBuilder line;
    walkTree(nodes_, [&](const Pointer& node, std::size_t) {
        write(line.start()
                  .number(node->ID)
                  .text(node->descriptionIs)
                  .text(node->typeIs())
                  .number(node->parentIs)
                  .text(node->queryIs())
                  .text(node->parmIs())
                  .text(node->iconIs)
                  .text(node->roleIs)
                  .end());
        return true;
    });
}

bool clsNavSchemes::SaveData(const std::filesystem::path& vFile) const try {
    if (Count() == 0) return false;
    FileWriter file(vFile);
    WriteData([&](std::string_view bytes) { file.write(bytes); });
    return file.commit();
} catch (const std::bad_alloc&) {
    return false;
}

bool clsNavSchemes::LoadData(const std::filesystem::path& vFile) {
    nodes_.Clear();
    try {
        LoadBytes(readFile(vFile));
    } catch (const std::bad_alloc&) {
        nodes_.Clear();  // a file that is too large for the memory counts as one that cannot be read
        DispInTV();
    }
    return true;
}

void clsNavSchemes::LoadBytes(FileBytes content) {
    nodes_.Clear();
    const auto loaded = LoadedFile<clsNavScheme>::read(std::move(content), fill);
    nodes_.Reserve(loaded->count());
    LoadedFile<clsNavScheme>::handOver(loaded, [this](Pointer node) { nodes_.Add(std::move(node)); });
    DispInTV();
}

bool clsNavSchemes::LoadWeb(const std::filesystem::path& oFile) {
    oWebs.LoadData(oFile);
    try {
        oWebs.DispInGrid(0);
    } catch (const std::bad_alloc&) {
        oWebs.ClearAll();  // as above
        oWebs.DispInGrid(0);
    }
    return false;
}
