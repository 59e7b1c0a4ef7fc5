// SPDX-License-Identifier: MIT
#include "tests/database/MariaDB.h"

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

// The data of a new server: made once, then copied.
Finished copyDataOfMariaDB(const fs::path& to) {
    static const TempFolder folder;
    static const auto place = folderOfTheServer(folder.path());
    static const auto made = ::run({"mariadb-install-db", "--no-defaults", "--auth-root-authentication-method=normal",
                                    "--skip-test-db", "--datadir=" + (place / "data").string()},
                                   {}, As::Unprivileged);
    return made.code != 0 ? made : ::run({"cp", "-a", (place / "data").string(), to.string()}, {}, As::Unprivileged);
}

}  // namespace

bool MariaDB::isThere() {
    return !serverProgram().empty() && isInstalled("mariadb-install-db") && isInstalled("mariadb");
}

MariaDB::MariaDB() {
    using namespace std::chrono_literals;
    const auto place = folderOfTheServer(folder_.path());
    const auto socket = (place / "socket").string();
    fs::create_directory(home());
    writeBytes(home() / ".my.cnf", "[client]\nuser=root\nsocket=" + socket + "\n");

    const auto made = copyDataOfMariaDB(place / "data");
    EXPECT_EQ(made.code, 0) << made.out << made.err;
    if (made.code != 0) return;

    server_ = std::make_unique<Background>(
        Command{serverProgram().string(), "--no-defaults", "--datadir=" + (place / "data").string(),
                "--socket=" + socket, "--skip-networking", "--pid-file=" + (place / "pid").string(),
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
