// SPDX-License-Identifier: MIT
#include "analysis/FileFlaws.h"

namespace {

constexpr FileFlaw flaws[] = {
    flaw::passedOver,    flaw::twinId,           flaw::comma,
    flaw::tooManyFields, flaw::tooFewFields,     flaw::unknownType,
    flaw::quote,         flaw::droppedText,      flaw::notANumber,
    flaw::rounded,       flaw::unknownParameter, flaw::freeByte,
    flaw::noRoot,        flaw::secondRoot,       flaw::missingParent,
    flaw::loop,          flaw::unwritten,        flaw::orphan,
};

}  // namespace

constinit const std::span<const FileFlaw> fileFlaws(flaws);

std::string FileFinding::words() const {
    const auto at = flaw->words.find('%');
    if (at == std::string_view::npos) return std::string(flaw->words);
    return std::string(flaw->words.substr(0, at)).append(detail).append(flaw->words.substr(at + 1));
}
