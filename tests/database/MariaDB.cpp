// SPDX-License-Identifier: MIT
#include "tests/database/MariaDB.h"

#include <unistd.h>

#include <chrono>
#include <thread>

namespace fs = std::filesystem;

namespace {

// Debian keeps the server where only root looks for programs.
fs::path serverProgram() {
    for (const fs::path program : {"/usr/sbin/mariadbd", "/usr/local/sbin/mariadbd", "/usr/libexec/mariadbd"})
        if (fs::exists(program)) return program;
    return isInstalled("mariadbd") ? "mariadbd" : "";
}

}  // namespace

bool MariaDB::isThere() {
    return !serverProgram().empty() && isInstalled("mariadb-install-db") && isInstalled("mariadb");
}

MariaDB::MariaDB() {
    using namespace std::chrono_literals;
    const auto place = folder_ / "server";
    const auto socket = (place / "socket").string();
    const auto data = "--datadir=" + (place / "data").string();
    const auto account = unprivilegedAccount();
    fs::create_directory(place);
    fs::permissions(folder_.path(), fs::perms::others_exec | fs::perms::group_exec, fs::perm_options::add);
    EXPECT_EQ(chown(place.c_str(), account.user, account.group), 0);
    fs::create_directory(home());
    writeBytes(home() / ".my.cnf", "[client]\nuser=root\nsocket=" + socket + "\n");

    const auto made = ::run(
        {"mariadb-install-db", "--no-defaults", "--auth-root-authentication-method=normal", "--skip-test-db", data},
        {}, As::Unprivileged);
    EXPECT_EQ(made.code, 0) << made.out << made.err;
    if (made.code != 0) return;

    server_ = std::make_unique<Background>(
        Command{serverProgram().string(), "--no-defaults", data, "--socket=" + socket, "--skip-networking",
                "--pid-file=" + (place / "pid").string(),
                // Another server would remove temporary files from a folder of both.
                "--tmpdir=" + place.string(), "--innodb-buffer-pool-size=16M", "--innodb-flush-log-at-trx-commit=0"},
        folder_ / "log", As::Unprivileged);
    for (int i = 0; i < 300 && server_->runs(); ++i) {
        if (::run(client("mysql"), "CREATE DATABASE test CHARACTER SET utf8mb4;").code == 0) return;
        std::this_thread::sleep_for(50ms);
    }
    ADD_FAILURE() << "the server did not start:\n" << bytesOf(folder_ / "log");
}

// The server ignores the signal by which Background asks for an end.
MariaDB::~MariaDB() {
    using namespace std::chrono_literals;
    if (!server_ || !server_->runs()) return;
    const auto ended = tryOut("SHUTDOWN;");
    EXPECT_EQ(ended.code, 0) << ended.err;
    for (int i = 0; i < 1000 && server_->runs(); ++i) std::this_thread::sleep_for(10ms);
}

Command MariaDB::client(const std::string& database) const {
    return {"mariadb",
            "--defaults-file=" + (home() / ".my.cnf").string(),
            "--batch",
            "--raw",
            "--binary-as-hex",
            "--local-infile=1",
            "--default-character-set=utf8mb4",
            database};
}

Finished MariaDB::tryOut(const std::string& script) const {
    return ::run(client("test"), script);
}

std::string MariaDB::run(const std::string& script) const {
    const auto finished = tryOut(script);
    EXPECT_EQ(finished.code, 0) << script.substr(0, 500);
    EXPECT_EQ(finished.err, "") << script.substr(0, 500);
    return finished.out;
}
