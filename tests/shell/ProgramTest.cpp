// SPDX-License-Identifier: MIT
#include <sys/stat.h>
#include <unistd.h>

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <set>
#include <sstream>

#include "Helpers.h"

// The program itself, with its own main function, used from start to end; and every file that it touches on its way.

namespace {

constexpr int longest = 90'000;  // milliseconds

const std::string whatItFinds =
    "name: Reporting Scheme Wizard for Pelmo\n"
    "icon: given\n"
    "style: fusion\n"
    "font: Arial\n"
    "maximized: yes\n"
    "new nodes: 1\n"
    "nodes: 70\n"
    "paragraphs: 105\n"
    "end: reached\n";

struct Call {
    std::string line;
    std::string name;
    Rows paths;  // absolute
};

bool startsWith(const std::string& path, const std::string& folder) {
    return path == folder || path.starts_with(folder + "/");
}

// Devices and processes; but not the folders of the tests, which may be in memory.
bool isOfTheSystem(const std::string& path) {
    return (startsWith(path, "/dev") || startsWith(path, "/proc")) && path.find("/wizard-test-") == std::string::npos;
}

// The calls of a log that name files.
std::vector<Call> readLog(const std::filesystem::path& log) {
    // 123 openat(AT_FDCWD</home>, "in/it", O_RDONLY) = 3</home/in/it>
    static const QRegularExpression call(text(R"(^\d+ +([a-z_0-9]+)\((.*)$)"));
    static const QRegularExpression path(text(R"re((?:<([^>]*)>, )?"((?:[^"\\]|\\.)*)")re"));
    std::vector<Call> calls;
    std::ifstream in(log);
    for (std::string line; std::getline(in, line);) {
        const auto match = call.match(text(line));
        if (!match.hasMatch()) continue;
        Call found{line, match.captured(1).toStdString(), {}};
        for (auto each = path.globalMatch(match.captured(2)); each.hasNext();) {
            const auto named = each.next();
            const std::filesystem::path folder(named.captured(1).toStdString());
            found.paths.push_back((folder / named.captured(2).toStdString()).lexically_normal().string());
        }
        calls.push_back(found);
    }
    return calls;
}

bool changesFiles(const Call& call) {
    if (call.line.ends_with("EEXIST (File exists)")) return false;  // it would only have been made
    static const std::set<std::string> changing = {
        "creat",    "mkdir",     "mkdirat",   "rmdir",     "unlink",   "unlinkat",  "rename",
        "renameat", "renameat2", "link",      "linkat",    "symlink",  "symlinkat", "mknod",
        "mknodat",  "truncate",  "chmod",     "fchmodat",  "chown",    "lchown",    "fchownat",
        "utime",    "utimes",    "utimensat", "futimesat", "setxattr", "lsetxattr", "removexattr"};
    if (changing.contains(call.name)) return true;
    static const QRegularExpression writing(text("O_(WRONLY|RDWR|CREAT|TRUNC|APPEND)"));
    return call.name.starts_with("open") && text(call.line).contains(writing);
}

class Program : public testing::Test {
  protected:
    Program() {
        for (const char* name : {"XST1.txt", "XST2.txt"}) std::filesystem::copy_file(sample(name), files / name);
        environment.remove(text("LD_PRELOAD"));
        for (const auto& name : environment.keys())
            if (name.startsWith(text("XDG_"))) environment.remove(name);
        environment.insert(text("WIZARD_JOURNEY"), text(files.path().string()));
        environment.insert(text("ASAN_OPTIONS"), text("detect_leaks=0"));  // it cannot look for leaks under a tracer
    }

    static std::string whyNoTrace() {
        if (QStandardPaths::findExecutable(text("strace")).isEmpty()) return "strace is not installed";
        QProcess trace;
        trace.start(text("strace"), {text("-o"), text("/dev/null"), text("true")});
        const bool isPossible = trace.waitForFinished(longest) && trace.exitCode() == 0;
        return isPossible ? "" : "system calls cannot be traced here";
    }

    void run(const std::string& program, const QStringList& arguments) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(text(program), arguments);
        ASSERT_TRUE(process.waitForFinished(longest)) << "the program does not end";
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
        output = process.readAllStandardOutput().toStdString();
        EXPECT_EQ(output, whatItFinds) << process.readAllStandardError().toStdString();
    }

    void trace() {
        // On an X server Qt looks for its icons in hundreds of folders, and each look stops the traced program.
        std::filesystem::create_directory(logs / "data");
        std::filesystem::create_directory_symlink("/usr/share/mime", logs / "data/mime");
        environment.insert(text("XDG_DATA_DIRS"), text((logs / "data").string()));
        run("strace", {text("-f"), text("--seccomp-bpf"), text("-y"), text("-s"), text("4096"), text("-e"),
                       text("trace=%file"), text("-o"), text((logs / "log").string()), text(JOURNEY)});
        calls = readLog(logs / "log");
        EXPECT_GT(calls.size(), 500U) << "the log was not read";
    }

    // Whether this is the file that a save writes, under its temporary or its final name.
    [[nodiscard]] bool belongsToASave(const std::string& path) const {
        for (const char* name : {"renumbered.txt", "XST2.txt"}) {
            const auto target = (files / name).string();
            if (path == target) return true;
            if (path.size() == target.size() + 7 && path.starts_with(target + ".")) return true;
        }
        return false;
    }

    // @param folder the beginning of the name of a folder that may be made, too
    void expectOnlyTheTwoFilesWritten(const std::string& folder = {}) const {
        Rows saved;
        for (const auto& call : calls) {
            if (!changesFiles(call)) continue;
            for (const auto& path : call.paths) {
                if (isOfTheSystem(path) || path.ends_with(".gcda")) continue;  // the files of the coverage count
                if (path == files.path() && call.line.find("O_TMPFILE") != std::string::npos) continue;
                if (!folder.empty() && call.name == "mkdir" && path.starts_with(folder)) continue;
                EXPECT_TRUE(belongsToASave(path)) << call.line;
                saved.push_back(path);
            }
        }
        for (const char* name : {"renumbered.txt", "XST2.txt"})
            EXPECT_GT(std::ranges::count(saved, (files / name).string()), 0) << "the log does not show the saves";
        EXPECT_EQ(files.names(), Rows({"XST1.txt", "XST2.txt", "renumbered.txt"}));
        EXPECT_EQ(bytesOf(files / "XST1.txt"), bytesOf(sample("XST1.txt")));
        EXPECT_EQ(bytesOf(files / "renumbered.txt"), bytesOf(sample("XST1.txt")));
        EXPECT_EQ(bytesOf(files / "XST2.txt"), bytesOf(sample("XST2.txt")));
    }

    const TempFolder files;
    const TempFolder logs;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    std::string output;
    std::vector<Call> calls;
};

// A settings file of Qt's file dialog, as other programs leave it behind.
const std::string settings =
    "[FileDialog]\nhistory=file:///somewhere\nlastVisited=file:///somewhere\nviewMode=List\n"
    "qtVersion=6.4.2\nsidebarWidth=77\n";

// What may be looked up in a user's home: fonts, icons, file types, and the permission to use the screen.
bool isLookUp(const std::string& path) {
    static const QRegularExpression lookUp(
        text(R"(/\.Xauthority$|font|/\.?icons|/\.?themes|/mime|/qtlogging\.ini$|/\.Xdefaults)"));
    return text(path).contains(lookUp);
}

}  // namespace

TEST_F(Program, RunsFromStartToEnd) {
    run(JOURNEY, {});
    EXPECT_EQ(bytesOf(files / "renumbered.txt"), bytesOf(sample("XST1.txt")));
    EXPECT_EQ(bytesOf(files / "XST2.txt"), bytesOf(sample("XST2.txt")));
}

// Arguments that Qt would obey: with such a platform, no program starts.
TEST_F(Program, HasNoOptions) {
    run(JOURNEY, {text("-platform"), text("none"), text("-stylesheet"), text((files / "XST1.txt").string())});
}

TEST_F(Program, HandsTheHelpFileBesideItToTheDesktop) {
    const ProgramsFolder programs;
    const auto wizard = programs / "wizard";
    const auto opener = programs / "xdg-open";
    std::filesystem::copy_file(JOURNEY, wizard);
    writeBytes(programs / "Pelmo.chm", "help");
    writeBytes(opener, "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$@\" > '" + (files / "calls").string() + "'\n");
    std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    environment.insert(text("PATH"), text(programs.path().string() + ":") + environment.value(text("PATH")));
    run(wizard.string(), {});
    EXPECT_EQ(bytesOf(files / "calls"), "1\n" + (programs / "Pelmo.chm").string() + "\n");
}

TEST_F(Program, WritesTheTwoNamedFilesAndNothingElse) {
    if (const auto why = whyNoTrace(); !why.empty()) GTEST_SKIP() << why;
    const TempFolder home;
    const TempFolder runtime;
    std::filesystem::permissions(runtime.path(), std::filesystem::perms::owner_all);
    std::filesystem::create_directory(home / ".config");
    writeBytes(home / ".config/QtProject.conf", settings);
    environment.insert(text("HOME"), text(home.path().string()));
    environment.insert(text("XDG_RUNTIME_DIR"), text(runtime.path().string()));
    trace();
    expectOnlyTheTwoFilesWritten();
    EXPECT_EQ(home.names(), Rows({".config"})) << "nothing is left in the home folder";
    EXPECT_EQ(bytesOf(home / ".config/QtProject.conf"), settings);
    EXPECT_EQ(runtime.names(), Rows());
}

// To find out what kind of file it is, Qt would open each one whose name does not tell, and wait for a pipe forever.
TEST_F(Program, OpensNoFileButThoseThatTheUserNames) {
    if (const auto why = whyNoTrace(); !why.empty()) GTEST_SKIP() << why;
    for (const char* name : {"noext", "b.dat", ".hid"}) writeBytes(files / name, "bytes");
    std::filesystem::create_symlink("noext", files / "link");
    ASSERT_EQ(mkfifo((files / "pipe").c_str(), 0600), 0);
    trace();
    Rows opened;
    for (const auto& call : calls)
        for (const auto& path : call.paths)
            if (call.name.starts_with("open") && path.starts_with(files.path().string() + "/")) {
                EXPECT_TRUE(path == files / "XST1.txt" || belongsToASave(path)) << call.line;
                opened.push_back(path);
            }
    for (const char* name : {"XST1.txt", "XST2.txt"})
        EXPECT_GT(std::ranges::count(opened, (files / name).string()), 0) << "the log does not show what is opened";
}

TEST_F(Program, ReadsNoSettings) {
    if (const auto why = whyNoTrace(); !why.empty()) GTEST_SKIP() << why;
    const TempFolder home;
    std::filesystem::create_directory(home / ".config");
    writeBytes(home / ".config/QtProject.conf", settings);
    environment.insert(text("HOME"), text(home.path().string()));
    trace();
    int lookedAt = 0;
    for (const auto& call : calls)
        for (const auto& path : call.paths) {
            EXPECT_FALSE(path.ends_with("QtProject.conf") && startsWith(path, home.path())) << call.line;
            if (!startsWith(path, home.path()) || path == home.path()) continue;
            ++lookedAt;
            const bool opens = call.name.starts_with("open");
            EXPECT_TRUE(isLookUp(path) || !opens) << call.line;
        }
    EXPECT_GT(lookedAt, 0) << "the log does not show the home folder";
}

// Without XDG_RUNTIME_DIR Qt makes an empty folder "runtime-USER" for temporary
// files before any code of the program runs.
TEST_F(Program, NeedsNoHome) {
    if (const auto why = whyNoTrace(); !why.empty()) GTEST_SKIP() << why;
    writeBytes(logs / "file", "");
    const auto nowhere = logs / "file/home";  // nobody can make a folder in a file
    environment.insert(text("HOME"), text(nowhere.string()));
    trace();
    expectOnlyTheTwoFilesWritten(std::filesystem::temp_directory_path().string() + "/runtime-");
    EXPECT_EQ(bytesOf(logs / "file"), "");
}
