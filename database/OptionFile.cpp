// SPDX-License-Identifier: MIT
#include "database/OptionFile.h"

#include <QRegularExpression>
#include <QStringList>

#include "database/Values.h"

using namespace Qt::StringLiterals;

namespace {

QString unquoted(QString value) {
    const bool isQuoted =
        value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') && value.back() == value.front();
    if (isQuoted) value = value.mid(1, value.size() - 2);
    return value.replace(u"\\s"_s, u" "_s).replace(u"\\t"_s, u"\t"_s).replace(u"\\\\"_s, u"\\"_s);
}

}  // namespace

std::map<std::string, std::string> readOptionFile(std::string_view text) {
    static const QRegularExpression group(uR"(\A\[(.*)\]\z)"_s);
    static const QRegularExpression setting(uR"(\A(user|password|host|port|socket)\s*=\s*(.*)\z)"_s);
    const QStringList groups = {u"client"_s, u"client-server"_s, u"client-mariadb"_s};
    std::map<std::string, std::string> settings;
    bool isForAll = false;
    for (const auto& line : fromText(text).split(u'\n')) {
        const auto words = line.trimmed();
        if (const auto begin = group.match(words); begin.hasMatch()) isForAll = groups.contains(begin.captured(1));
        if (const auto given = setting.match(words); isForAll && given.hasMatch())
            settings[toText(given.captured(1))] = toText(unquoted(given.captured(2)));
    }
    return settings;
}
