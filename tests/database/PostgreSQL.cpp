// SPDX-License-Identifier: MIT
#include "tests/database/PostgreSQL.h"

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace fs = std::filesystem;

fs::path PostgreSQL::programs() {
    // Debian keeps each version in a folder of its own, none of them on the path.
    fs::path newest;
    int version = 0;
    std::error_code none;
    for (const auto& entry : fs::directory_iterator("/usr/lib/postgresql", none)) {
        const int number = std::atoi(entry.path().filename().c_str());
        if (number <= version || !fs::exists(entry.path() / "bin" / "initdb")) continue;
        version = number;
        newest = entry.path() / "bin";
    }
    if (!newest.empty()) return newest;
    std::istringstream folders(std::getenv("PATH") != nullptr ? std::getenv("PATH") : "");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (fs::exists(fs::path(folder) / "initdb") && fs::exists(fs::path(folder) / "postgres")) return folder;
    return {};
}

PostgreSQL::PostgreSQL() {
    using namespace std::chrono_literals;
    const auto data = folder_ / "server";
    const auto account = unprivilegedAccount();
    fs::create_directory(data);
    fs::permissions(folder_.path(), fs::perms::others_exec | fs::perms::group_exec, fs::perm_options::add);
    EXPECT_EQ(chown(data.c_str(), account.user, account.group), 0);

    const auto made = ::run({(programs() / "initdb").string(), "-D", (data / "data").string(), "--username=wizard",
                             "--auth=trust", "--encoding=UTF8", "--locale=C", "--no-sync"},
                            {}, As::Unprivileged);
    EXPECT_EQ(made.code, 0) << made.out << made.err;
    if (made.code != 0) return;

    server_ = std::make_unique<Background>(
        Command{(programs() / "postgres").string(), "-D", (data / "data").string(), "-k", data.string(), "-c",
                "listen_addresses=", "-c", "fsync=off", "-c", "shared_buffers=8MB", "-c", "max_connections=10"},
        folder_ / "log", As::Unprivileged);
    for (int i = 0; i < 300 && server_->runs(); ++i) {
        if (tryOut("SELECT 1;").code == 0) return;
        std::this_thread::sleep_for(50ms);
    }
    ADD_FAILURE() << "the server did not start:\n" << bytesOf(folder_ / "log");
}

Finished PostgreSQL::tryOut(const std::string& script) const {
    // -X: do not read the user's own settings.
    return ::run({(programs() / "psql").string(), "-X", "-q", "-A", "-t", "-v", "ON_ERROR_STOP=1", "-h",
                  (folder_ / "server").string(), "-U", "wizard", "-d", "postgres"},
                 "SET client_encoding = 'UTF8';\n" + script);
}

Command PostgreSQL::environment() const {
    return {"PGHOST=" + (folder_ / "server").string(), "PGUSER=wizard", "PGCLIENTENCODING=UTF8",
            "PSQLRC=" + (folder_ / "none").string()};
}

std::string PostgreSQL::run(const std::string& script) const {
    const auto finished = tryOut(script);
    EXPECT_EQ(finished.code, 0) << script.substr(0, 500);
    EXPECT_EQ(finished.err, "") << script.substr(0, 500);
    return finished.out;
}
