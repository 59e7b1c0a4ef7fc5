// SPDX-License-Identifier: MIT
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <fstream>
#include <stop_token>
#include <thread>

#include "Faults.h"
#include "model/FileReader.h"

// Files that cannot be read. Linux only.

namespace {

struct LoadFault : testing::Test {
    Deadline deadline;
    TempFolder folder;

    // Neither scheme keeps anything, old or new, and no message comes.
    static void expectNoMemoryFor(const std::filesystem::path& file, std::size_t memory) {
#ifdef WIZARD_SANITIZED
        GTEST_SKIP() << "the sanitizer takes memory by its own rules";
#endif
        const auto answer = withLittleMemory(memory, [&] {
            clsNavSchemes navs;
            addNodes(navs, {{1, 0}, {2, 1}});
            addParagraphs(navs.oWebs, {{1, 1}});
            navs.inform = [](std::string_view) { _exit(3); };
            if (!navs.LoadData(file) || navs.Count() != 0) return 1;
            if (!navs.oWebs.LoadData(file) || navs.oWebs.Count() != 0) return 2;
            return 0;
        });
        EXPECT_EQ(answer, 0) << "1: nodes, 2: paragraphs, 3: a message";
    }
    // Both schemes become empty, the tree is cleared, and that is all.
    static void expectEmpty(const std::filesystem::path& file) {
        Screen screen;
        clsNavSchemes navs;
        screen.show(navs);
        navs.inform = [](std::string_view message) { ADD_FAILURE() << message; };
        addNodes(navs, {{1, 0}, {2, 1}});
        addParagraphs(navs.oWebs, {{1, 1}, {2, 2}});
        EXPECT_TRUE(navs.LoadData(file));
        EXPECT_EQ(navs.Count(), 0);
        EXPECT_EQ(navs.oWebs.Count(), 2);
        EXPECT_EQ(screen.taken(), Calls{"tree "});
        EXPECT_TRUE(navs.oWebs.LoadData(file));
        EXPECT_EQ(navs.oWebs.Count(), 0);
        EXPECT_EQ(screen.taken(), Calls());
        EXPECT_FALSE(navs.LoadWeb(file));
        EXPECT_EQ(screen.taken(), Calls{"paragraphs"});
    }
};

}  // namespace

TEST_F(LoadFault, AMissingFile) {
    expectEmpty(folder / "missing.txt");
    expectEmpty(folder / "missing" / "XST1.txt");
    expectEmpty("");
    EXPECT_EQ(folder.names(), Rows()) << "no file is made";
}

TEST_F(LoadFault, AFolder) {
    expectEmpty(folder.path());
}

TEST_F(LoadFault, APipeThatNobodyWritesInto) {
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    expectEmpty(folder / "pipe");
}

TEST_F(LoadFault, ADeviceThatNeverEnds) {
    constexpr unsigned memory = 1;
    constexpr unsigned zero = 5;
    if (mknod((folder / "zero").c_str(), S_IFCHR | 0600, makedev(memory, zero)) != 0)
        GTEST_SKIP() << "making a device is not allowed here";
    expectEmpty(folder / "zero");
}

TEST_F(LoadFault, ALinkToNothingAndALinkToItself) {
    std::filesystem::create_symlink("missing.txt", folder / "dangling");
    expectEmpty(folder / "dangling");
    std::filesystem::create_symlink("loop", folder / "loop");
    expectEmpty(folder / "loop");
}

TEST_F(LoadFault, AFileWithoutPermission) {
    writeBytes(folder / "secret.txt", "1,a,F,0\r\n");
    std::filesystem::permissions(folder / "secret.txt", std::filesystem::perms::none);
    const OrdinaryUser user;
    if (!user.bound()) GTEST_SKIP() << "no way to become an ordinary user here";
    expectEmpty(folder / "secret.txt");
}

// Files that the operating system makes up claim to have no bytes.
TEST_F(LoadFault, AFileThatIsLongerThanItSays) {
    char before[16] = {};
    ASSERT_EQ(prctl(PR_GET_NAME, before), 0);
    ASSERT_EQ(prctl(PR_SET_NAME, "7,longer,G,1,q"), 0);
    clsNavSchemes navs;
    EXPECT_TRUE(navs.LoadData("/proc/self/comm"));
    EXPECT_EQ(prctl(PR_SET_NAME, before), 0);
    EXPECT_EQ(rowsOf(navs), Rows{"7|longer|G|1|q|||"});
}

TEST_F(LoadFault, AFileMuchLongerThanItSays) {
    const std::filesystem::path file = "/proc/kallsyms";
    std::error_code error;
    if (std::filesystem::file_size(file, error) != 0 || error) GTEST_SKIP() << "there is no such file here";
    const auto expected = bytesOf(file);
    const auto content = readFile(file);
    EXPECT_TRUE(std::string_view(content.bytes.get(), content.size) == expected) << expected.size();
}

// Others claim to be longer than they are, like a file that shrinks while it is read.
TEST_F(LoadFault, AFileThatIsShorterThanItSays) {
    const std::filesystem::path file = "/sys/kernel/mm/transparent_hugepage/enabled";
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    if (error || size <= bytesOf(file).size()) GTEST_SKIP() << "there is no such file here";
    EXPECT_EQ(readFile(file).size, bytesOf(file).size());
    expectEmpty(file);
}

// Meanwhile another thread shortens, removes and replaces the file: what is read is its beginning, or nothing.
TEST_F(LoadFault, AFileThatShrinksAndVanishesWhileItIsRead) {
    constexpr int records = 30'000;
    constexpr int attempts = 400;
    constexpr int most = 20'000;  // on a busy machine the other thread may hardly get a turn
    constexpr std::string_view lineEnd = ",node,F,0\r\n";
    std::string whole;
    for (int id = 1; id <= records; ++id) whole += std::to_string(id) + std::string(lineEnd);
    const auto file = writeBytes(folder / "busy.txt", whole);
    const std::jthread other([&](const std::stop_token& done) {
        for (int round = 0; !done.stop_requested(); ++round) {
            const auto half = std::uintmax_t{whole.size()} / 2 + static_cast<std::uintmax_t>(round % 100);
            std::error_code ignored;
            switch (round % 4) {
                case 0: std::filesystem::resize_file(file, half, ignored); break;
                case 1: std::filesystem::resize_file(file, 0, ignored); break;
                case 2: std::filesystem::remove(file, ignored); break;
                default:
                    writeBytes(folder / "next.txt", whole);
                    std::filesystem::rename(folder / "next.txt", file, ignored);
            }
            // Waits longer while the file is whole.
            std::this_thread::sleep_for(std::chrono::microseconds(round % 4 == 3 ? 3000 : round * 37 % 1000));
        }
    });
    int complete = 0;
    int attempt = 0;
    for (; attempt < attempts || ((complete == 0 || complete == attempt) && attempt < most); ++attempt) {
        const auto content = readFile(file);
        const std::string_view read(content.bytes.get(), content.size);
        ASSERT_TRUE(whole.starts_with(read)) << "attempt " << attempt << ", " << read.size() << " bytes";
        clsNavSchemes navs;
        ASSERT_TRUE(navs.LoadData(file));
        ASSERT_LE(navs.Count(), records);
        complete += navs.Count() == records ? 1 : 0;
        if (const auto last = navs.Count(); last > 1) {
            const auto nodeBefore = navs.Item(last - 1);
            ASSERT_TRUE(nodeBefore && rowOf(*nodeBefore) == std::to_string(last - 1) + "|node|F|0||||");
        }
    }
    EXPECT_GT(complete, 0);
    EXPECT_LT(complete, attempt) << "every attempt has read the whole file";
}

TEST_F(LoadFault, AFileLargerThanTheMemory) {
    const auto file = writeBytes(folder / "large.txt", "1,a,F,0\r\n");
    std::filesystem::resize_file(file, std::uintmax_t{200} << 20);
    expectNoMemoryFor(file, std::size_t{100} << 20);
}

// There is enough memory for the file itself.
TEST_F(LoadFault, RecordsLargerThanTheMemory) {
    std::string lines;
    for (int id = 1; id <= 300'000; ++id) lines += std::to_string(id) + "\n";
    expectNoMemoryFor(writeBytes(folder / "many.txt", lines), std::size_t{8} << 20);
}

// There is enough memory for the records, but not for what the screen makes of them.
TEST_F(LoadFault, RecordsThatTheScreenHasNoMemoryFor) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    const auto fullOnce = [&] {
        return [&, full = true]() mutable {
            if (std::exchange(full, false)) throw std::bad_alloc();
        };
    };
    addParagraphs(navs.oWebs, {{1, 1}});

    screen.tree.whenAsked = fullOnce();
    EXPECT_TRUE(navs.LoadData(writeBytes(folder / "nodes.txt", "1,a,F,0\r\n")));
    EXPECT_EQ(navs.Count(), 0);
    EXPECT_EQ(navs.oWebs.Count(), 1);
    EXPECT_EQ(screen.taken().back(), "tree ");

    screen.web.whenAsked = fullOnce();
    EXPECT_FALSE(navs.LoadWeb(writeBytes(folder / "paragraphs.txt", "1,1,1,a,q,Lkey,H,0,,\r\n")));
    EXPECT_EQ(navs.oWebs.Count(), 0);
    EXPECT_EQ(screen.taken().back(), "paragraphs");
}

// Almost all of it is a hole in a text, which takes no space on the disk.
TEST_F(LoadFault, AFileOfTwoGigabytes) {
    constexpr auto size = std::uintmax_t{2} << 30;
    const std::string begin = "1,a,F,0\r\n3,";
    const auto file = writeBytes(folder / "huge.txt", begin);
    std::filesystem::resize_file(file, size);
    {
        std::fstream end(file, std::ios::binary | std::ios::in | std::ios::out);
        end.seekp(static_cast<std::streamoff>(size));
        end << ",N,1\r\n2,b,F,1\r\n";
    }
    clsNavSchemes navs;
    EXPECT_TRUE(navs.LoadData(file));
    ASSERT_EQ(navs.Count(), 3);
    EXPECT_EQ(rowOf(*navs.Item(1)), "1|a|F|0||||");
    EXPECT_EQ(rowOf(*navs.Item(2)), "2|b|F|1||||");
    const auto& huge = *navs.Item(3);
    EXPECT_EQ(huge.descriptionIs.view().size(), size - begin.size());
    EXPECT_EQ(huge.typeIs(), "N");
    EXPECT_EQ(huge.parentIs, 1);
}
