// SPDX-License-Identifier: MIT
#include "preview/Guard.h"

#include "tests/preview/Made.h"

namespace {

const Guard guard("abc123", 8080);

Request asked(const std::string& method, const std::string& path, Headers more, const std::string& query = {}) {
    Headers headers = {{"Host", "127.0.0.1:8080"}};
    headers.insert(headers.end(), more.begin(), more.end());
    return {.method = method, .path = path, .query = query, .headers = std::move(headers), .body = {}};
}

int statusFor(const Request& request) {
    const auto answer = guard.stop(request);
    return answer ? answer->status : 0;
}

const std::pair<std::string, std::string> cookie = {"Cookie", "pelmo_preview_8080=abc123"};
const std::pair<std::string, std::string> origin = {"Origin", "http://127.0.0.1:8080"};

}  // namespace

TEST(PreviewGuard, TurnsTheKeyOfTheAddressIntoACookie) {
    EXPECT_EQ(guard.address(), "http://127.0.0.1:8080/?key=abc123");
    const auto answer = guard.stop(asked("GET", "/", {}, "key=abc123"));
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 303);
    EXPECT_EQ(answer->body, "");
    EXPECT_EQ(answer->headers, Headers({{"Location", "/"},
                                        {"Set-Cookie",
                                         "pelmo_preview_8080=abc123; Path=/; HttpOnly; "
                                         "SameSite=Strict"}}));
}

TEST(PreviewGuard, LetsTheCookieThrough) {
    EXPECT_EQ(statusFor(asked("GET", "/", {cookie})), 0);
    EXPECT_EQ(statusFor(asked("GET", "/picture/x", {cookie})), 0);
    EXPECT_EQ(statusFor(asked("GET", "/", {{"cookie", "a=b; pelmo_preview_8080=abc123 ; c=d"}})), 0);
    EXPECT_EQ(statusFor(asked("POST", "/page", {cookie, origin})), 0);
    EXPECT_EQ(statusFor(asked("GET", "/", {cookie, {"Sec-Fetch-Site", "none"}})), 0);
    EXPECT_EQ(statusFor(asked("GET", "/", {cookie, {"Sec-Fetch-Site", "same-origin"}})), 0);
}

TEST(PreviewGuard, RefusesAWrongOrMissingKey) {
    EXPECT_EQ(statusFor(asked("GET", "/", {})), 403);
    for (const auto* query : {"key=abc124", "key=abc12", "key=abc1234", "key=", "key", "abc123", "x=1&key=abc123"})
        EXPECT_EQ(statusFor(asked("GET", "/", {}, query)), 403) << query;
    EXPECT_EQ(statusFor(asked("GET", "/preview.js", {}, "key=abc123")), 403);
    EXPECT_EQ(statusFor(asked("POST", "/", {origin}, "key=abc123")), 403);
    for (const auto* value : {"pelmo_preview_8080=abc124", "pelmo_preview_8080=", "pelmo_preview_8081=abc123",
                              "abc123", "xpelmo_preview_8080=abc123", "pelmo_preview_8080=abc123abc123", ";;;", ""})
        EXPECT_EQ(statusFor(asked("GET", "/", {{"Cookie", value}})), 403) << value;
    EXPECT_EQ(guard.stop(asked("GET", "/", {}))->body,
              "Open the address that pelmo-scheme preview prints, with its key.\n");
}

TEST(PreviewGuard, RefusesAnotherHost) {
    const auto status = [](Headers headers) {
        headers.push_back(cookie);
        return statusFor({.method = "GET", .path = "/", .query = {}, .headers = std::move(headers), .body = {}});
    };
    EXPECT_EQ(status({{"Host", "localhost:8080"}}), 0);
    EXPECT_EQ(status({{"HOST", "127.0.0.1:8080"}}), 0);
    for (const auto* host :
         {"shop.example", "127.0.0.1", "127.0.0.1:8081", "127.0.0.1:8080.shop.example", "0.0.0.0:8080", ""})
        EXPECT_EQ(status({{"Host", host}}), 421) << host;
    EXPECT_EQ(status({}), 421);
    EXPECT_EQ(status({{"Host", "127.0.0.1:8080"}, {"Host", "shop.example"}}), 421) << "named twice";
}

TEST(PreviewGuard, RefusesWhatAnotherSiteAsks) {
    for (const auto* site : {"cross-site", "same-site", ""})
        EXPECT_EQ(statusFor(asked("GET", "/", {cookie, {"Sec-Fetch-Site", site}})), 403) << site;
    for (const auto* from : {"http://shop.example", "http://127.0.0.1:9090", "https://127.0.0.1:8080", "null",
                             "http://localhost:8080", ""})
        EXPECT_EQ(statusFor(asked("GET", "/", {cookie, {"Origin", from}})), 403) << from;
    EXPECT_EQ(statusFor(asked("POST", "/page", {cookie})), 403) << "browsers name the origin of a POST always";
    EXPECT_EQ(statusFor(asked("GET", "/", {{"Sec-Fetch-Site", "cross-site"}}, "key=abc123")), 403);
}

TEST(PreviewGuard, RefusesWhatThePagesNeverAsk) {
    EXPECT_EQ(statusFor(asked("another", "/", {cookie, origin})), 405);
    EXPECT_EQ(statusFor(asked("GET", "/", {cookie}, "x=1")), 400);
}

TEST(PreviewGuard, LetsABrowserStayInWithTheAddressThatItWasGiven) {
    EXPECT_EQ(statusFor(asked("GET", "/", {cookie}, "key=abc123")), 303);
}

TEST(PreviewGuard, LoadsNothingFromElsewhere) {
    EXPECT_EQ(
        Guard::headers(),
        Headers({{"Content-Security-Policy",
                  "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
                  "base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
                 {"Referrer-Policy", "no-referrer"},
                 {"X-Content-Type-Options", "nosniff"},
                 {"X-Frame-Options", "DENY"},
                 {"Cross-Origin-Opener-Policy", "same-origin"},
                 {"Cross-Origin-Resource-Policy", "same-origin"},
                 {"Cache-Control", "no-store"}}));
}
