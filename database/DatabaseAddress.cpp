// SPDX-License-Identifier: MIT
#include "database/DatabaseAddress.h"

#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>
#include <algorithm>

#include "database/Database.h"
#include "database/Values.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto noPassword =
    "The address of the database holds a password, which other users of this computer could see. Leave it out: it is "
    "taken from the database's password file or from the environment, or asked for.";
constexpr auto forms = "sqlite:FILE, postgresql://USER@HOST/NAME, mariadb://USER@HOST/NAME or odbc:DSN";

struct Scheme {
    std::string_view begin;
    DatabaseAddress::Kind kind;
    bool isUrl;
};
constexpr Scheme schemes[] = {
    {"sqlite:", DatabaseAddress::Kind::Sqlite, false},
    {"odbc:", DatabaseAddress::Kind::Odbc, false},
    {"postgresql://", DatabaseAddress::Kind::PostgreSql, true},
    {"postgres://", DatabaseAddress::Kind::PostgreSql, true},
    {"mariadb://", DatabaseAddress::Kind::MariaDb, true},
    {"mysql://", DatabaseAddress::Kind::MariaDb, true},
};

// What may follow the "?": files of certificates and places, nothing that is secret.
constexpr std::string_view knownOptions[] = {"host",   "socket",      "service",         "sslmode",         "sslcert",
                                             "sslkey", "sslrootcert", "connect_timeout", "application_name"};

bool isSecret(const QString& name) {
    static const QRegularExpression secret(u"pass|pwd|secret"_s, QRegularExpression::CaseInsensitiveOption);
    return secret.match(name).hasMatch();
}

void readOptions(const QString& query, DatabaseAddress& address) {
    for (const auto& [name, value] : QUrlQuery(query).queryItems(QUrl::FullyDecoded)) {
        if (isSecret(name)) throw DatabaseError(noPassword);
        if (std::ranges::find(knownOptions, toText(name)) == std::end(knownOptions) || value.contains(u';'))
            throw DatabaseError(
                "The address of the database has an option that is not known; those known are host, "
                "socket, service, sslmode, sslcert, sslkey, sslrootcert, connect_timeout and "
                "application_name.");
        address.options.emplace_back(toText(name), toText(value));
    }
}

QString decoded(const QString& text) {
    return QUrl::fromPercentEncoding(text.toUtf8());
}

// USER@HOST:PORT/NAME?OPTIONS, all of which may be missing.
void readUrl(std::string_view rest, DatabaseAddress& address) {
    static const QRegularExpression form(
        uR"(\A(?:([^/?]*)@)?(\[[^\]]*\]|[^/?:@]*)(?::([0-9]{1,5}))?(?:/([^/?]*))?(?:\?(.*))?\z)"_s);
    const auto parts = form.match(fromText(rest));
    const auto place = rest.substr(0, rest.find('?'));
    const auto at = place.rfind('@');
    if (at != std::string_view::npos && decoded(fromText(place.substr(0, at))).contains(u':'))
        throw DatabaseError(noPassword);
    if (!parts.hasMatch()) throw DatabaseError(std::string("This is no address of a database: write ") + forms + ".");
    address.user = toText(decoded(parts.captured(1)));
    address.host = toText(decoded(parts.captured(2)).remove(u'[').remove(u']'));
    if (!parts.captured(3).isEmpty()) address.port = parts.captured(3).toInt();
    address.database = toText(decoded(parts.captured(4)));
    readOptions(parts.captured(5), address);
}

void readPlain(std::string_view rest, DatabaseAddress& address) {
    address.database = rest;
    static const QRegularExpression setting(u"(^|;)\\s*([^=;]*)="_s);
    if (address.kind == DatabaseAddress::Kind::Sqlite && rest.starts_with("//") && !rest.starts_with("///"))
        throw DatabaseError(
            "The address of a file has no slashes of its own: write sqlite:" + std::string(rest.substr(2)) + ".");
    if (address.kind != DatabaseAddress::Kind::Odbc) return;
    for (auto matches = setting.globalMatch(fromText(rest)); matches.hasNext();)
        if (isSecret(matches.next().captured(2))) throw DatabaseError(noPassword);
}

}  // namespace

DatabaseAddress DatabaseAddress::of(std::string_view text) {
    const auto* const scheme =
        std::ranges::find_if(schemes, [&](const Scheme& row) { return text.starts_with(row.begin); });
    if (scheme == std::end(schemes))
        throw DatabaseError(std::string("The address of the database begins with none that is known: write ") +
                            forms + ".");
    DatabaseAddress address;
    address.kind = scheme->kind;
    address.shown = text;
    (scheme->isUrl ? readUrl : readPlain)(text.substr(scheme->begin.size()), address);
    if (address.database.empty() && !scheme->isUrl)
        throw DatabaseError(std::string("The address of the database ends too early: write ") + forms + ".");
    return address;
}
