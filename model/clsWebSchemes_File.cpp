// SPDX-License-Identifier: MIT
#include <new>

#include "model/FileWriter.h"
#include "model/LineBuilder.h"
#include "model/LoadedFile.h"
#include "model/clsWebSchemes.h"

namespace {

constexpr std::string_view header =
    R"("ID","XST1","seqNo","titleIs","queryIs","parmIs","typeIs","formIs","colsAre","extra")"
    "\r\n";

void fill(clsWebScheme& paragraph, const FileReader::Pieces& pieces) {
    paragraph.ID = pieces[0].number();
    paragraph.XST1 = pieces[1].number();
    paragraph.seqNo = pieces[2].number();
    paragraph.formIs = pieces[7].number();
    paragraph.titleIs = pieces[3].text();
    paragraph.queryIs = pieces[4].text();
    paragraph.parmIs = pieces[5].text();
    paragraph.typeIs = pieces[6].text();
    paragraph.colsAre = pieces[8].text();
    paragraph.extra = pieces[9].text();
}

}  // namespace

void clsWebSchemes::WriteData(const std::function<void(std::string_view)>& write) const {
    write(header);
    LineBuilder line;
    for (const auto& paragraph : paragraphs_)
        write(line.start()
                  .number(paragraph->ID)
                  .number(paragraph->XST1)
                  .number(paragraph->seqNo)
                  .text(paragraph->titleIs)
                  .text(paragraph->queryIs)
                  .text(paragraph->parmIs)
                  .text(paragraph->typeIs)
                  .number(paragraph->formIs)
                  .text(paragraph->colsAre)
                  .text(paragraph->extra)
                  .end());
}

bool clsWebSchemes::SaveData(const std::filesystem::path& vFile) const try {
    if (Count() == 0) return false;
    FileWriter file(vFile);
    WriteData([&](std::string_view bytes) { file.write(bytes); });
    return file.commit();
} catch (const std::bad_alloc&) {
    return false;
}

bool clsWebSchemes::LoadData(const std::filesystem::path& vFile) {
    ClearAll();
    try {
        LoadBytes(readFile(vFile));
    } catch (const std::bad_alloc&) {
        ClearAll();  // a file that is too large for the memory counts as one that cannot be read
    }
    return true;
}

void clsWebSchemes::LoadBytes(FileBytes content) {
    ClearAll();
    const auto loaded = LoadedFile<clsWebScheme>::read(std::move(content), fill);
    paragraphs_.Reserve(loaded->count());
    LoadedFile<clsWebScheme>::handOver(loaded, [this](Pointer paragraph) { paragraphs_.Add(std::move(paragraph)); });
}
