// SPDX-License-Identifier: MIT
#include "preview/Guard.h"

#include <algorithm>
#include <array>

namespace {

// Takes the same time wherever the texts differ.
bool isSame(std::string_view given, std::string_view key) {
    unsigned difference = given.size() == key.size() ? 0 : 1;
    for (std::size_t at = 0; at < given.size(); ++at)
        difference |= static_cast<unsigned>(given[at] ^ key[at % key.size()]);
    return difference == 0;
}

std::string_view withoutBlanks(std::string_view text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

constexpr std::string_view keyParameter = "key=";
constexpr std::array methods = {"GET", "POST"};

}  // namespace

Guard::Guard(std::string key, std::uint16_t port)
    : key_(std::move(key)), port_(std::to_string(port)), cookie_("pelmo_preview_" + port_) {
}

std::string Guard::address() const {
    return "http://127.0.0.1:" + port_ + "/?" + std::string(keyParameter) + key_;
}

std::optional<Answer> Guard::stop(const Request& request) const {
    if (!isOurHost(request.header("Host"))) return plainAnswer(421, "This is not the host of the preview.");
    if (std::ranges::find(methods, request.method) == methods.end())
        return plainAnswer(405, "The preview answers GET and POST.");
    if (!isFromOurPages(request)) return plainAnswer(403, "Another site may not ask the preview.");
    const std::string_view query = request.query;
    const bool hasKey = request.method == "GET" && request.path == "/" && query.starts_with(keyParameter) &&
                        isSame(query.substr(keyParameter.size()), key_);
    if (!hasKey && !hasCookie(request))
        return plainAnswer(403, "Open the address that pelmo-scheme preview prints, with its key.");
    if (!hasKey && !query.empty()) return plainAnswer(400, "The preview's addresses have no questions.");
    if (!hasKey) return {};
    return Answer{
        .status = 303,
        .headers = {{"Location", "/"}, {"Set-Cookie", cookie_ + "=" + key_ + "; Path=/; HttpOnly; SameSite=Strict"}}};
}

bool Guard::isOurHost(std::string_view host) const {
    return host == "127.0.0.1:" + port_ || host == "localhost:" + port_;
}

// A page of another port of this computer counts as of the same site for cookies; browsers name it in these headers.
bool Guard::isFromOurPages(const Request& request) const {
    const auto origin = request.header("Origin");
    if ((request.hasHeader("Origin") || request.method == "POST") &&
        origin != "http://" + std::string(request.header("Host")))
        return false;
    const auto site = request.header("Sec-Fetch-Site");
    return !request.hasHeader("Sec-Fetch-Site") || site == "same-origin" || site == "none";
}

bool Guard::hasCookie(const Request& request) const {
    auto rest = request.header("Cookie");
    while (!rest.empty()) {
        const auto end = std::min(rest.find(';'), rest.size());
        const auto cookie = withoutBlanks(rest.substr(0, end));
        if (cookie.starts_with(cookie_ + "=") && isSame(cookie.substr(cookie_.size() + 1), key_)) return true;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return false;
}

const Headers& Guard::headers() {
    static const Headers all = {
        {"Content-Security-Policy",
         "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
         "base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
        {"Referrer-Policy", "no-referrer"},
        {"X-Content-Type-Options", "nosniff"},
        {"X-Frame-Options", "DENY"},
        {"Cross-Origin-Opener-Policy", "same-origin"},
        {"Cross-Origin-Resource-Policy", "same-origin"},
        {"Cache-Control", "no-store"},
    };
    return all;
}
