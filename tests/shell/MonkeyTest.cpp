// SPDX-License-Identifier: MIT
#ifdef __linux__
#include <sys/prctl.h>
#endif

#include <QProcess>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <sstream>

#include "Monkey.h"

// A monkey plays in a process of its own, so that a crash or a hang can be told, too: with the seed, and with a
// script that repeats it, as short as was found. It is kept beside the test program.
//
//   MONKEY_SEED=7 MONKEY_STEPS=5000   another run
//   MONKEY_SCRIPT=monkey-7-123.txt    the steps of a script, in the process of the test itself

namespace {

unsigned numberOf(const char* variable, unsigned otherwise) {
    const char* value = std::getenv(variable);
    return value ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : otherwise;
}

Rows linesOf(const std::filesystem::path& file) {
    std::istringstream in(bytesOf(file));
    Rows lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::string joined(const Rows& lines) {
    std::string all;
    for (const auto& line : lines) all += line + "\n";
    return all;
}

class Player {
  public:
    explicit Player(unsigned seed)
        : seed_(seed),
          script_(QCoreApplication::applicationDirPath().toStdString() + "/monkey-" + std::to_string(seed) + "-" +
                  std::to_string(QCoreApplication::applicationPid()) + ".txt") {}

    // Plays the steps of the seed.
    // @return what is wrong, or nothing
    [[nodiscard]] std::string play(unsigned steps) {
        auto environment = plain();
        environment.insert(text("MONKEY_SEED"), QString::number(seed_));
        environment.insert(text("MONKEY_STEPS"), QString::number(steps));
        return run("Monkey.DISABLED_Plays", environment, script_, std::chrono::seconds(30));
    }
    [[nodiscard]] Rows script() const { return linesOf(script_); }
    [[nodiscard]] std::string scriptName() const { return script_.string(); }

    // Leaves out halves of the script, quarters and so on, as long as what is left fails; for some minutes at most.
    void shorten() {
        const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(4);
        auto shortest = script();
        for (auto piece = shortest.size() / 2; piece > 0; piece /= 2) {
            for (std::size_t at = 0; at < shortest.size() && std::chrono::steady_clock::now() < end;) {
                auto without = shortest;
                const auto begin = without.begin() + static_cast<std::ptrdiff_t>(at);
                without.erase(begin, begin + static_cast<std::ptrdiff_t>(std::min(piece, without.size() - at)));
                if (!without.empty() && fails(without))
                    shortest = without;
                else
                    at += piece;
            }
        }
        writeBytes(script_, joined(shortest));
    }

  private:
    static QProcessEnvironment plain() {
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const auto* name :
             {"GTEST_TOTAL_SHARDS", "GTEST_SHARD_INDEX", "GTEST_SHARD_STATUS_FILE", "GTEST_OUTPUT"})
            environment.remove(text(name));
        return environment;
    }
    [[nodiscard]] bool fails(const Rows& lines) {
        const TempFolder folder;
        auto environment = plain();
        environment.insert(text("MONKEY_SCRIPT"), text(writeBytes(folder / "script.txt", joined(lines)).string()));
        return !run("Monkey.DISABLED_Repeats", environment, folder / "notes.txt", std::chrono::seconds(8)).empty();
    }
    // A monkey that writes no more notes for as long as this hangs.
    // @return the end of what a monkey's process printed, if it did not end well
    static std::string run(const std::string& test, QProcessEnvironment environment,
                           const std::filesystem::path& notes, std::chrono::seconds patience) {
        using Clock = std::chrono::steady_clock;
        environment.insert(text("MONKEY_NOTES"), text(notes.string()));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
#ifdef __linux__
        process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
#endif
        process.start(QCoreApplication::applicationFilePath(),
                      {text("--gtest_also_run_disabled_tests"), text("--gtest_filter=" + test)});
        bool ended = false;
        std::uintmax_t noted = 0;
        for (auto last = Clock::now(); !ended && Clock::now() - last < patience;) {
            // This process may own the clipboard, and must answer when the other one asks for it.
            ended = QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 500);
            std::error_code ignored;
            const auto now = std::filesystem::file_size(notes, ignored);
            if (now != noted) last = Clock::now();
            noted = now;
        }
        if (ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) return "";
        process.kill();
        process.waitForFinished();
        constexpr int most = 6'000;
        return (ended ? "" : "it hangs\n") + process.readAll().right(most).toStdString();
    }

    unsigned seed_;
    std::filesystem::path script_;
};

}  // namespace

class MonkeyTest : public testing::TestWithParam<unsigned> {};

TEST_P(MonkeyTest, BreaksNothing) {
    const auto seed = numberOf("MONKEY_SEED", GetParam());
    const auto steps = numberOf("MONKEY_STEPS", 1500);
    Player player(seed);
    const auto wrong = player.play(steps);
    if (wrong.empty()) {
        EXPECT_GT(player.script().size(), steps * 9 / 10);
        std::filesystem::remove(player.scriptName());
        return;
    }
    const auto made = player.script();
    ADD_FAILURE() << "MONKEY_SEED=" << seed << " MONKEY_STEPS=" << steps << "\n"
                  << wrong << "\nafter " << made.size()
                  << " steps, the last one: " << (made.empty() ? "" : made.back());
    std::cerr << "looking for a short script; all steps are in " << player.scriptName() << std::endl;
    player.shorten();
    std::cerr << "MONKEY_SCRIPT=" << player.scriptName()
              << " with --gtest_filter=Monkey.DISABLED_Repeats --gtest_also_run_disabled_tests repeats it:\n"
              << joined(player.script()) << std::endl;
}

INSTANTIATE_TEST_SUITE_P(Seeds, MonkeyTest, testing::Values(1U, 2U, 3U));

// These two are run by the test above, and by whoever looks for what it found.

TEST(Monkey, DISABLED_Plays) {
    const auto* notes = std::getenv("MONKEY_NOTES");
    Monkey(notes ? notes : "").play(numberOf("MONKEY_SEED", 1), numberOf("MONKEY_STEPS", 1500));
}

TEST(Monkey, DISABLED_Repeats) {
    const auto* script = std::getenv("MONKEY_SCRIPT");
    ASSERT_TRUE(script) << "MONKEY_SCRIPT names no file";
    const auto* notes = std::getenv("MONKEY_NOTES");
    Monkey(notes ? notes : "").repeat(linesOf(script));
}
