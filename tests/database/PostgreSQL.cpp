// SPDX-License-Identifier: MIT
#include "tests/database/PostgreSQL.h"

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

// The data of a new server: made once, then copied.
static Finished copyDataOfPostgreSQL(const fs::path& to) {
    static const TempFolder folder;
    static const auto place = folderOfTheServer(folder.path());
    static const auto made =
        ::run({(PostgreSQL::programs() / "initdb").string(), "-D", (place / "data").string(), "--username=wizard",
               "--auth=trust", "--encoding=UTF8", "--locale=C", "--no-sync"},
              {}, As::Unprivileged);
    return made.code != 0 ? made : ::run({"cp", "-a", (place / "data").string(), to.string()}, {}, As::Unprivileged);
}

PostgreSQL::PostgreSQL() {
    using namespace std::chrono_literals;
    const auto data = folderOfTheServer(folder_.path());
    const auto made = copyDataOfPostgreSQL(data / "data");
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
