// SPDX-License-Identifier: MIT
#include "tests/commands/Commands.h"
#include "tests/database/Process.h"

// The command line itself: help, bad input, exit status. Some of it with the program, as a script runs it.

namespace {

const std::vector<std::string> all = {"check",  "todo",   "tree", "orphans", "renumber", "fmt", "sql", "stubs",
#ifdef WIZARD_DATABASE
                                      "verify", "preview"
#endif
};

void expectRefused(const Ran& ran, const std::string& message) {
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "pelmo-scheme: " + message + "\n");
}

}  // namespace

TEST(Program, ListsItsCommands) {
    const auto ran = pelmo({"--help"});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.err, "");
    for (const auto& name : all) EXPECT_NE(ran.out.find("\n  " + name + " "), std::string::npos) << name;
    EXPECT_NE(ran.out.find("Exit status: 0 nothing was found, 1 something was, 2 the input cannot be used."),
              std::string::npos);
    EXPECT_EQ(pelmo({"--version"}).out, "pelmo-scheme 1.02\n");
}

// One that ends with Ctrl+C, and would open a browser.
static std::string untilInterrupted(std::string example) {
    example.insert(example.find_first_of('\n'), " --no-browser");
    return "timeout --foreground --preserve-status --signal=INT 5 " PROGRAM " " + example;
}

// Each example is run as it stands, in a folder with the samples.
TEST(Program, ShowsAnExampleOfEachCommandThatWorks) {
    if (!isInstalled("sqlite3")) GTEST_SKIP() << "sqlite3 is not installed";
    const SchemeFolder folder(bytesOf(sampleNodes), bytesOf(sampleParagraphs));
    std::filesystem::create_directory(folder / "FOLDER");
    for (const auto& name : all) {
        const auto help = pelmo({name, "--help"});
        EXPECT_EQ(help.status, 0);
        const std::string heading = "\nExample:\n  pelmo-scheme ";
        const auto first = help.out.find(heading);
        ASSERT_NE(first, std::string::npos) << help.out;
        const auto example = help.out.substr(first + heading.size());
        EXPECT_TRUE(example.starts_with(name + " ")) << example;
        const auto command = name == "preview" ? untilInterrupted(example) : PROGRAM " " + example;
        const auto ran = run({"sh", "-c", "cd '" + folder.folder.path().string() + "' && " + command});
        EXPECT_EQ(ran.code, 0) << example << ran.err;
        EXPECT_EQ(ran.err, "");
    }
    EXPECT_EQ(folder.folder.names(), Rows({"FOLDER", "XST1.txt", "XST2.txt", "numbers.csv", "shop.db"}));
}

TEST(Program, RefusesWhatItDoesNotUnderstand) {
    expectRefused(pelmo({}), "A subcommand is required; see pelmo-scheme --help");
    expectRefused(pelmo({"check"}), "XST1 is required; see pelmo-scheme check --help");
    expectRefused(pelmo({"check", "--format", "xml", sampleNodes}),
                  "--format: xml not in {text,json,sarif}; see pelmo-scheme check --help");
    expectRefused(pelmo({"check", "--encoding", "utf-16", sampleNodes}),
                  "--encoding: utf-16 not in {utf-8,windows-1252}; see pelmo-scheme check --help");
    expectRefused(pelmo({"renumber", sampleNodes, sampleParagraphs}),
                  "--output is required; see pelmo-scheme renumber --help");
    expectRefused(pelmo({"check", "--frmat", "json"}), "there is no option --frmat; see pelmo-scheme check --help");
    expectRefused(pelmo({"check", sampleNodes, sampleParagraphs, "third.txt", "fourth.txt"}),
                  "\"third.txt\" is one argument too many; see pelmo-scheme check --help");
    expectRefused(pelmo({"chekc", sampleNodes}), "there is no command \"chekc\"; see pelmo-scheme --help");
    expectRefused(pelmo({"--chekc"}), "there is no option --chekc; see pelmo-scheme --help");
    const auto ran = pelmo({"\x1B[2J\xFF"});
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.err.find('\x1B'), std::string::npos);
    EXPECT_EQ(ran.err.find('\xFF'), std::string::npos);
}

TEST(Program, SaysWhatIsWrongWithAFile) {
    const TempFolder folder;
    const auto name = folder.path().string();
    const auto missing = name + "/missing.txt";
    for (const auto& command : {"check", "todo", "tree", "fmt"}) {
        expectRefused(pelmo({command, missing}), missing + ": there is no such file");
        expectRefused(pelmo({command, name}), name + ": this is a folder");
        expectRefused(pelmo({command, "/dev/null"}),
                      "/dev/null: this is no regular file; \"-\" reads the standard input");
    }
    for (const auto& command : {"check", "todo", "tree", "orphans"}) {
        expectRefused(pelmo({command, sampleNodes, missing}), missing + ": there is no such file");
        expectRefused(pelmo({command, "-", "-"}), "only one of the files can be the standard input");
    }
    for (const auto& command : {"sql", "stubs"})
        expectRefused(pelmo({command, "-", "-", "--dialect", "sqlite"}),
                      "only one of the files can be the standard input");
    for (const auto& command : {"check", "todo"})
        expectRefused(pelmo({command, sampleParagraphs}),
                      sampleParagraphs + ":1: this is a file of table XST2, not of XST1");
    for (const auto& command : {"check", "todo", "tree", "orphans"})
        expectRefused(pelmo({command, sampleNodes, sampleNodes}),
                      sampleNodes + ":1: this is a file of table XST1, not of XST2");
}

#ifdef WIZARD_DATABASE
TEST(Program, TellsThePreviewAndVerifyWhatTheirFilesMayNotBe) {
    const auto previewed = [](const std::string& nodes, const std::string& paragraphs) {
        return pelmo({"preview", nodes, paragraphs, "--db", "sqlite:/nowhere.db"});
    };
    const std::string words = "the preview reads its files again and again, which the standard input does not allow";
    expectRefused(previewed("-", sampleParagraphs), words);
    expectRefused(previewed(sampleNodes, "-"), words);
    expectRefused(pelmo({"verify", "-", "-", "--db", "sqlite:/nowhere.db"}),
                  "only one of the files can be the standard input");
}

// A copy of the program that looks for Qt's plugins where none are.
TEST(Program, SaysWhichPackageHasTheDriverThatIsMissing) {
    const SchemeFolder folder(bytesOf(sampleNodes), bytesOf(sampleParagraphs));
    const auto copy = folder / "pelmo-scheme";
    std::filesystem::copy_file(PROGRAM, copy);
    writeBytes(folder / "qt.conf", "[Paths]\nPlugins=/nowhere\n");
    using Driver = std::pair<std::string, std::string>;  // an address that needs it, and its package
    for (const auto& [address, package] :
         {Driver("sqlite:" + sampleNodes, "libqt6sql6-sqlite"), Driver("postgresql:///shop", "libqt6sql6-psql"),
          Driver("mariadb:///shop", "libqt6sql6-mysql"), Driver("odbc:DSN=shop", "libqt6sql6-odbc")}) {
        const auto ran = run({copy, "verify", sampleNodes, sampleParagraphs, "--db", address});
        EXPECT_EQ(ran.code, 2) << address;
        EXPECT_EQ(ran.err,
                  "pelmo-scheme: Qt's driver for this database is missing; on Debian, it is in the package " +
                      package + ".\n");
    }
}
#endif

TEST(Program, SaysThatAFileMayNotBeRead) {
    const TempFolder folder(std::filesystem::temp_directory_path());
    const auto name = writeBytes(folder / "secret.txt", "1,a,F,0,,,,\n");
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(name, std::filesystem::perms::none);
    const auto ran = run({PROGRAM, "check", name.string()}, {}, As::Unprivileged);
    if (ran.code == 127 || ran.code == 126) GTEST_SKIP() << "the other user cannot start the program";
    EXPECT_EQ(ran.code, 2);
    EXPECT_EQ(ran.err, "pelmo-scheme: " + name.string() + ": you may not read it\n");
}

namespace {

// An input that fails in the middle.
template <class Failure>
class FailingInput final : public std::streambuf {
  protected:
    int_type underflow() override { throw Failure("broken"); }
};

struct NoMemory final : std::bad_alloc {
    explicit NoMemory(const char*) {}
};

template <class Failure>
std::string messageAfter() {
    FailingInput<Failure> buffer;
    std::istream in(&buffer);
    in.exceptions(std::ios::badbit);
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(runProgram({"check", "-"}, {.in = in, .out = out, .err = err}), 2);
    EXPECT_EQ(out.str(), "");
    return err.str();
}

}  // namespace

TEST(Program, SaysThatTheStandardInputFails) {
    std::istringstream in("1,a,F,0,,,,\n");
    in.setstate(std::ios::badbit);
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(runProgram({"check", "-"}, {.in = in, .out = out, .err = err}), 2);
    EXPECT_EQ(err.str(), "pelmo-scheme: standard input: cannot be read\n");
}

TEST(Program, SaysThatMemoryIsShortOrWhatElseWentWrong) {
    EXPECT_EQ(messageAfter<NoMemory>(), "pelmo-scheme: there is not enough memory\n");
    EXPECT_EQ(messageAfter<std::runtime_error>(), "pelmo-scheme: broken\n");
}

TEST(Program, EndsWithTheStatusOfTheCommand) {
    EXPECT_EQ(run({PROGRAM, "check", sampleNodes, sampleParagraphs}).code, 0);
    const auto checked = run({PROGRAM, "check", "-"}, "x\n");
    EXPECT_EQ(checked.code, 1);
    EXPECT_EQ(checked.err, "");
    EXPECT_TRUE(checked.out.starts_with("<stdin>:1: warning: ")) << "no colours: it is no terminal";
    EXPECT_EQ(run({PROGRAM, "frobnicate"}).code, 2);
}

TEST(Program, SaysThatItsOutputCannotBeWritten) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
    const auto ran = run({"sh", "-c", PROGRAM " fmt " + sampleNodes + " > /dev/full"});
    EXPECT_EQ(ran.code, 2);
    EXPECT_EQ(ran.err, "pelmo-scheme: the output cannot be written\n");
}

// The options of a command in its help, and those of all: "--format", "--strict".
TEST(Program, HasEachCommandAndOptionInItsManPageAndCompletions) {
    const auto page = bytesOf(PACKAGING "/pelmo-scheme.1.in");
    const Rows completions = {bytesOf(PACKAGING "/completions/pelmo-scheme.bash"),
                              bytesOf(PACKAGING "/completions/_pelmo-scheme"),
                              bytesOf(PACKAGING "/completions/pelmo-scheme.fish")};
    const auto expectEverywhere = [&](const std::string& word, std::string inPage) {
        for (std::size_t at = 0; (at = inPage.find('-', at)) != std::string::npos; at += 2) inPage.insert(at, "\\");
        EXPECT_NE(page.find(inPage), std::string::npos) << word;
        for (const auto& completion : completions) {
            const bool isFish = completion.find("for fish") != std::string::npos;
            EXPECT_NE(completion.find(isFish && word.starts_with("--") ? "-l " + word.substr(2) + " " : word),
                      std::string::npos)
                << word << completion.substr(0, 60);
        }
    };
    std::size_t options = 0;
    for (const auto& name : all) {
        expectEverywhere(name, "\n.B " + name + "\n");
        const auto help = pelmo({name, "--help"}).out;
        for (std::size_t at = 0; (at = help.find("--", at)) != std::string::npos; at += 2) {
            if (at > help.find("\nExample:")) break;
            const auto option = help.substr(at, help.find_first_of(" :", at) - at);
            expectEverywhere(option, option);
            ++options;
        }
    }
    const std::size_t others = std::ranges::count(all, "verify") == 1 ? 17 + 6 : 9;
    EXPECT_EQ(options, all.size() + others) << "--help of each, and all others";
    for (const char* option : {"--encoding", "--version"}) expectEverywhere(option, option);
}

TEST(Program, CompletesInBash) {
    if (!isInstalled("bash")) GTEST_SKIP() << "bash is not installed";
    const auto completed = [](const std::string& words, int last) {
        return run({"bash", "-c",
                    "source " PACKAGING "/completions/pelmo-scheme.bash; COMP_WORDS=(pelmo-scheme " + words +
                        "); COMP_CWORD=" + std::to_string(last) + "; _pelmo_scheme; echo \"${COMPREPLY[*]}\""})
            .out;
    };
    EXPECT_EQ(completed("''", 1), "check todo tree orphans renumber fmt sql stubs verify preview\n");
    EXPECT_EQ(completed("t", 1), "todo tree\n");
    EXPECT_EQ(completed("check --", 2), "--encoding --help --format --strict\n");
    EXPECT_EQ(completed("check --format ''", 3), "text json sarif\n");
    EXPECT_EQ(completed("tree --n", 2), "--no-ids\n");
    EXPECT_EQ(completed("renumber --m", 2), "--map\n");
    EXPECT_EQ(completed("stubs --dialect s", 3), "sqlite sqlserver\n");
    EXPECT_EQ(completed("sql --d", 2), "--dialect\n");
    EXPECT_EQ(completed("verify --r", 2), "--rows --run-actions\n");
    EXPECT_EQ(completed("verify --db s", 3), "sqlite:\n");
    EXPECT_EQ(completed("fmt --table X", 3), "XST1 XST2\n");
    EXPECT_EQ(completed("check " SAMPLES "/XST1.", 2), SAMPLES "/XST1.txt\n");
}

// `script` runs a program on a terminal of its own.
TEST(Program, ColoursOnATerminalUnlessNoColorIsSet) {
    if (!isInstalled("script")) GTEST_SKIP() << "script is not installed";
    const SchemeFolder folder("x\n", "");
    const auto onTerminal = [&](const std::string& variables) {
        return run({"env", "-u", "NO_COLOR", "TERM=xterm", "script", "-qec",
                    variables + PROGRAM " check " + folder.nodes(), "/dev/null"})
            .out;
    };
    const auto coloured = onTerminal("");
    ASSERT_NE(coloured.find("passed over"), std::string::npos) << coloured;
    EXPECT_NE(coloured.find("\x1B[35mwarning:\x1B[0m"), std::string::npos) << coloured;
    EXPECT_NE(onTerminal("NO_COLOR= ").find('\x1B'), std::string::npos) << "an empty one counts as not set";
    EXPECT_EQ(onTerminal("NO_COLOR=1 ").find('\x1B'), std::string::npos);
    EXPECT_EQ(onTerminal("TERM=dumb ").find('\x1B'), std::string::npos);
}
