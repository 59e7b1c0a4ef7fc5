// SPDX-License-Identifier: MIT
#include "database/QueryCall.h"

#include <QDate>
#include <array>
#include <cstdio>

#include "model/CodePage.h"

namespace {

// Several blanks in a row separate as one does.
std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find(' ', at), text.size());
        if (end > at) words.push_back(toUtf8(text.substr(at, end - at)));
        at = end + 1;
    }
    return words;
}

std::string supplied(ParameterKind kind, const ClickedNode& clicked, std::string_view today) {
    switch (kind) {
        case ParameterKind::LKey:
        case ParameterKind::CKey: return clicked.key;
        case ParameterKind::Text: return clicked.text;
        case ParameterKind::Today: return std::string(today);
        case ParameterKind::None: break;
    }
    return {};
}

}  // namespace

std::optional<QueryCall> callOf(std::string_view queryIs, std::string_view parmIs, const ClickedNode& clicked,
                                std::string_view today) {
    const auto kind = readParameterKind(parmIs);
    const auto end = std::min(queryIs.find(' '), queryIs.size());
    if (!kind || end == 0) return {};
    return QueryCall{toUtf8(queryIs.substr(0, end)), wordsOf(queryIs.substr(end)), *kind,
                     supplied(*kind, clicked, today)};
}

std::string dayForQueries(std::string_view isoDay) {
    constexpr std::array months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const auto text = QString::fromUtf8(isoDay.data(), static_cast<qsizetype>(isoDay.size()));
    const auto day = isoDay.empty() ? QDate::currentDate() : QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
    if (!day.isValid()) return {};
    std::array<char, 32> written{};
    std::snprintf(written.data(), written.size(), "%02d-%s-%04d", day.day(),
                  months.at(static_cast<std::size_t>(day.month() - 1)), day.year());
    return written.data();
}
