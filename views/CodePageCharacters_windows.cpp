// SPDX-License-Identifier: MIT
#include "views/CodePageCharacters.h"
#include "views/WindowsCodePage.h"

namespace {

const WindowsCodePage& codePageOfFiles() {
    static const WindowsCodePage codePage(systemCodePage());
    return codePage;
}

}  // namespace

QString decodeCharacters(std::string_view bytes, std::size_t most) {
    return codePageOfFiles().decode(bytes, most);
}

std::optional<std::string> encodeCharacter(const QString& character) {
    return codePageOfFiles().encode(character);
}
