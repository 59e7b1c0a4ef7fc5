// SPDX-License-Identifier: MIT
#include "model/ParameterKind.h"

#include <algorithm>
#include <string>

namespace {

char upper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}  // namespace

std::optional<ParameterKind> readParameterKind(std::string_view parmIs) {
    const auto first = parmIs.find_first_not_of(' ');
    auto letters = first == std::string_view::npos ? std::string() : std::string(parmIs.substr(first, 2));
    letters += "**";  // an empty text has the tag "**"
    letters.resize(2);
    std::ranges::transform(letters, letters.begin(), upper);
    const auto* found = std::ranges::find(parameterKinds, letters, &StoredParameter::tag);
    if (found == std::end(parameterKinds)) return {};
    return found->kind;
}

std::string_view keyLengthOf(std::string_view parmIs) {
    return parmIs.substr(parmIs.size() - std::min<std::size_t>(parmIs.size(), 2));
}
