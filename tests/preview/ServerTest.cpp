// SPDX-License-Identifier: MIT
#include "preview/Server.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpSocket>
#include <stdexcept>

// The server over a connection of its own: what becomes of an answer that fails, and where it cannot begin.

namespace {

class Asked {
  public:
    explicit Asked(std::function<Answer(const Request&)> answer) : server_("abc123", std::move(answer)) {}

    // The answer to a request of one of our pages, with its headers.
    [[nodiscard]] std::string get(const std::string& path) const {
        const auto address = server_.address();
        const auto host = address.substr(7, address.find('/', 7) - 7);
        const auto port = host.substr(host.find(':') + 1);
        QTcpSocket socket;
        socket.connectToHost(QStringLiteral("127.0.0.1"), static_cast<quint16>(std::stoi(port)));
        socket.write(QByteArray::fromStdString("GET " + path + " HTTP/1.1\r\nHost: " + host +
                                               "\r\nCookie: pelmo_preview_" + port + "=abc123\r\n\r\n"));
        std::string all;
        QElapsedTimer time;
        for (time.start(); !isWhole(all) && time.elapsed() < 20'000;) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
            all += socket.readAll().toStdString();
        }
        return all;
    }

  private:
    static bool isWhole(const std::string& answer) {
        const auto length = answer.find("Content-Length: ");
        const auto body = answer.find("\r\n\r\n");
        return length != std::string::npos && body != std::string::npos &&
               answer.size() - body - 4 >= std::stoul(answer.substr(length + 16));
    }

    static inline int count_ = 1;
    static inline char name_[] = "preview_tests";
    static inline char* arguments_[] = {name_, nullptr};
    QCoreApplication application_{count_, arguments_};
    Server server_;
};

// Lets the process open no more files, and so no sockets, until it goes out of scope.
class NoMoreFiles {
  public:
    NoMoreFiles() {
        getrlimit(RLIMIT_NOFILE, &before_);
        auto none = before_;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_NOFILE, &none);
    }
    NoMoreFiles(const NoMoreFiles&) = delete;
    NoMoreFiles& operator=(const NoMoreFiles&) = delete;
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &before_); }

  private:
    rlimit before_{};
};

}  // namespace

TEST(PreviewServer, PassesOnWhatIsAnswered) {
    const Asked asked([](const Request& request) {
        return Answer{.status = 200, .type = "text/plain", .body = request.method + " " + request.path};
    });
    const auto answer = asked.get("/a%20page");
    EXPECT_TRUE(answer.starts_with("HTTP/1.1 200 OK\r\n")) << answer;
    EXPECT_NE(answer.find("\r\nContent-Type: text/plain\r\n"), std::string::npos) << answer;
    EXPECT_NE(answer.find("\r\nContent-Security-Policy: "), std::string::npos) << answer;
    EXPECT_TRUE(answer.ends_with("\r\n\r\nGET /a%20page")) << answer;
}

TEST(PreviewServer, SaysWhatWentWrong) {
    const Asked failing([](const Request&) -> Answer { throw std::runtime_error("the <disk> is on fire"); });
    const auto failed = failing.get("/");
    EXPECT_TRUE(failed.starts_with("HTTP/1.1 500 ")) << failed;
    EXPECT_TRUE(failed.ends_with("\r\n\r\nthe <disk> is on fire\n")) << failed;
    EXPECT_NE(failed.find("\r\nContent-Type: text/plain; charset=utf-8\r\n"), std::string::npos) << failed;
}

TEST(PreviewServer, SaysThatMemoryIsShort) {
    const Asked failing([](const Request&) -> Answer { throw std::bad_alloc(); });
    const auto failed = failing.get("/");
    EXPECT_TRUE(failed.starts_with("HTTP/1.1 500 ")) << failed;
    EXPECT_TRUE(failed.ends_with("There is not enough memory for this page.\n")) << failed;
}

TEST(PreviewServer, CannotBeginWithoutAPort) {
    // The first one is also for the sanitizer, which opens a pipe to look at a type that it has not met before.
    EXPECT_NE(LocalConnections().serverPort(), 0);
    std::string words;
    try {
        const NoMoreFiles limit;
        const LocalConnections connections;
    } catch (const std::runtime_error& error) {
        words = error.what();
    }
    EXPECT_TRUE(words.starts_with("no port is free: ")) << words;
}
