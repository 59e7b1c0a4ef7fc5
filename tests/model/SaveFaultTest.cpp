// SPDX-License-Identifier: MIT
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <csignal>
#include <functional>
#include <utility>

#include "Faults.h"
#include "model/FileWriter.h"

// Disks that do not take what is written. Linux only.

namespace {

// While it exists no file of this process may grow beyond `bytes`.
class SizeLimit {
  public:
    explicit SizeLimit(std::size_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~SizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int);
};

constexpr int cannotMount = 77;

// Runs `check` in a process of its own. Only that process sees a small file system at `folder`.
// @return what it answers, `cannotMount` where mounting is not allowed
int onSmallDisk(const std::filesystem::path& folder, const char* limit, const std::function<int()>& check) {
    const auto child = fork();
    if (child == 0) {
        if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", folder.c_str(), "tmpfs", 0, limit) != 0)
            _exit(cannotMount);
        _exit(check());
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Schemes that are saved as about `bytes` bytes in lines of a hundred.
void fill(clsNavSchemes& navs, std::size_t bytes) {
    navs.Add(makeNode(1, 0));
    for (int id = 2; static_cast<std::size_t>(id) * 100 < bytes; ++id)
        navs.Add(makeNode(id, 1, "F", std::string(80, 'n')));
}

void fill(clsWebSchemes& webs, std::size_t bytes) {
    for (int id = 1; static_cast<std::size_t>(id) * 100 < bytes; ++id)
        webs.Add(makeParagraph(id, 1, id, std::string(72, 'p')));
}

template <class Scheme>
class SaveFault : public testing::Test {
  protected:
    TempFolder folder_;
    std::filesystem::path file_ = folder_ / "XST.txt";
    std::string old_ = std::string(20'000, 'o');

    void expectOldFile(const std::string& when) {
        EXPECT_EQ(folder_.names(), Rows{"XST.txt"}) << when;
        EXPECT_TRUE(bytesOf(file_) == old_) << "the old file has changed " << when;
    }
    void expectFailureBelowItsSize(std::size_t size) {
        Scheme scheme;
        fill(scheme, size);
        const auto whole = savedBytes(scheme);
        ASSERT_GT(whole.size(), size / 2);
        writeBytes(file_, old_);
        for (const auto limit : {std::size_t{0}, std::size_t{1}, whole.size() / 2, whole.size() - 1}) {
            bool saved = true;
            {
                const SizeLimit full(limit);
                saved = scheme.SaveData(file_);
            }
            const auto when = "at " + std::to_string(limit) + " of " + std::to_string(whole.size()) + " bytes";
            EXPECT_FALSE(saved) << when;
            expectOldFile(when);
        }
        bool saved = false;
        {
            const SizeLimit justEnough(whole.size());
            saved = scheme.SaveData(file_);
        }
        EXPECT_TRUE(saved) << whole.size();
        EXPECT_TRUE(bytesOf(file_) == whole) << whole.size();
    }
};
using Schemes = testing::Types<clsNavSchemes, clsWebSchemes>;
struct SchemeNames {
    template <class Scheme>
    static std::string GetName(int) {
        return std::is_same_v<Scheme, clsNavSchemes> ? "Nodes" : "Paragraphs";
    }
};
TYPED_TEST_SUITE(SaveFault, Schemes, SchemeNames);

}  // namespace

TYPED_TEST(SaveFault, IntoAMissingFolder) {
    TypeParam scheme;
    fill(scheme, 1000);
    EXPECT_FALSE(scheme.SaveData(this->folder_ / "missing" / "XST.txt"));
    EXPECT_FALSE(scheme.SaveData(writeBytes(this->folder_ / "a file", "x") / "XST.txt"));
    EXPECT_FALSE(scheme.SaveData(""));
    EXPECT_EQ(this->folder_.names(), Rows{"a file"});
}

TYPED_TEST(SaveFault, OntoAFolder) {
    TypeParam scheme;
    fill(scheme, 1000);
    std::filesystem::create_directory(this->file_);
    EXPECT_FALSE(scheme.SaveData(this->file_));
    EXPECT_TRUE(std::filesystem::is_directory(this->file_));
    writeBytes(this->file_ / "inside", "kept");
    EXPECT_FALSE(scheme.SaveData(this->file_));
    EXPECT_EQ(bytesOf(this->file_ / "inside"), "kept");
    EXPECT_EQ(this->folder_.names(), Rows{"XST.txt"});
}

TYPED_TEST(SaveFault, OntoAPipe) {
    const Deadline deadline;
    TypeParam scheme;
    fill(scheme, 1000);
    ASSERT_EQ(mkfifo(this->file_.c_str(), 0600), 0);
    EXPECT_FALSE(scheme.SaveData(this->file_));
    EXPECT_TRUE(std::filesystem::is_fifo(this->file_));
    EXPECT_EQ(this->folder_.names(), Rows{"XST.txt"});
}

TYPED_TEST(SaveFault, OntoADevice) {
    constexpr unsigned memory = 1;
    constexpr unsigned full = 7;
    if (mknod(this->file_.c_str(), S_IFCHR | 0600, makedev(memory, full)) != 0)
        GTEST_SKIP() << "making a device is not allowed here";
    TypeParam scheme;
    fill(scheme, 1000);
    EXPECT_FALSE(scheme.SaveData(this->file_));
    EXPECT_TRUE(std::filesystem::is_character_file(this->file_));
    EXPECT_EQ(this->folder_.names(), Rows{"XST.txt"});
}

TYPED_TEST(SaveFault, IntoAFolderThatMayNotBeChanged) {
    TypeParam scheme;
    fill(scheme, 1000);
    writeBytes(this->file_, this->old_);
    std::filesystem::permissions(this->file_, std::filesystem::perms(0666));
    std::filesystem::permissions(this->folder_.path(), std::filesystem::perms(0777));
    {
        const OrdinaryUser user;
        if (!user.bound()) GTEST_SKIP() << "no way to become an ordinary user here";
        EXPECT_TRUE(scheme.SaveData(this->file_)) << "nothing else refuses it";
    }
    writeBytes(this->file_, this->old_);
    std::filesystem::permissions(this->folder_.path(), std::filesystem::perms(0555));
    {
        const OrdinaryUser user;
        EXPECT_FALSE(scheme.SaveData(this->file_));
        EXPECT_FALSE(scheme.SaveData(this->folder_ / "new.txt"));
    }
    std::filesystem::permissions(this->folder_.path(), std::filesystem::perms(0755));
    this->expectOldFile("");
}

TYPED_TEST(SaveFault, WhereFilesMayNotGrow) {
    for (std::size_t kib = 5; kib <= 40; ++kib) this->expectFailureBelowItsSize(kib * 1024);
}

TYPED_TEST(SaveFault, WhereLargeFilesMayNotGrow) {
    for (const std::size_t mib : {3U, 4U, 9U}) this->expectFailureBelowItsSize(mib * 1024 * 1024);
}

// By default, the operating system ends a program whose file outgrows the limit.
TYPED_TEST(SaveFault, BeyondTheSizeLimitIsNotTheEndOfTheProgram) {
    writeBytes(this->file_, this->old_);
    const auto child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_DFL);
        TypeParam scheme;
        fill(scheme, std::size_t{1} << 20);
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const auto before = std::exchange(limit.rlim_cur, 4096);
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(2);
        const bool saved = scheme.SaveData(this->file_);
        const bool isDefaultAgain = std::signal(SIGXFSZ, SIG_DFL) == SIG_DFL;
        limit.rlim_cur = before;
        setrlimit(RLIMIT_FSIZE, &limit);
        if (__gcov_exit) __gcov_exit();  // writes files larger than that limit
        _exit(saved ? 1 : isDefaultAgain ? 0 : 3);
    }
    int status = -1;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), 0) << "1: claimed success, 2: no limit, 3: the signal stays switched off";
    this->expectOldFile("");
}

TYPED_TEST(SaveFault, KeepsGroupAndModeOfTheFile) {
    TypeParam scheme;
    fill(scheme, 1000);
    const bool canGiveAway = geteuid() == 0;
    constexpr gid_t another = 1234;
    for (const mode_t mode : {0600U, 0640U, 0664U, 0604U, 0755U, 02664U}) {
        writeBytes(this->file_, this->old_);
        if (canGiveAway) {
            ASSERT_EQ(chown(this->file_.c_str(), geteuid(), another), 0);
        }
        ASSERT_EQ(chmod(this->file_.c_str(), mode), 0);
        EXPECT_TRUE(scheme.SaveData(this->file_));
        EXPECT_EQ(bytesOf(this->file_), savedBytes(scheme));
        struct stat now {};
        ASSERT_EQ(stat(this->file_.c_str(), &now), 0);
        EXPECT_EQ(now.st_mode & 07777U, mode) << std::oct << (now.st_mode & 07777U) << " for " << mode;
        EXPECT_EQ(now.st_gid, canGiveAway ? another : getegid());
        std::filesystem::remove(this->file_);
    }
}

// Ordinary users can only give a file to groups that they belong to.
TYPED_TEST(SaveFault, SavesWhereTheGroupCannotBeKept) {
    if (geteuid() != 0) GTEST_SKIP() << "no way to make a file of another group";
    TypeParam scheme;
    fill(scheme, 1000);
    writeBytes(this->file_, this->old_);
    ASSERT_EQ(chmod(this->folder_.path().c_str(), 0777), 0);
    ASSERT_EQ(chmod(this->file_.c_str(), 0666), 0);
    const OrdinaryUser user;
    if (!user.bound()) GTEST_SKIP() << "no way to become an ordinary user here";
    EXPECT_TRUE(scheme.SaveData(this->file_));
    EXPECT_EQ(bytesOf(this->file_), savedBytes(scheme));
}

// Whoever is in the new group may then do no more than everybody may.
TYPED_TEST(SaveFault, GivesAnotherGroupNoMoreRightsThanEverybody) {
    if (geteuid() != 0) GTEST_SKIP() << "no way to make a file of another group";
    TypeParam scheme;
    fill(scheme, 1000);
    ASSERT_EQ(chmod(this->folder_.path().c_str(), 0777), 0);
    constexpr gid_t another = 1234;
    constexpr std::pair<mode_t, mode_t> modes[] = {
        {0664, 0644}, {0660, 0600}, {0666, 0666}, {0775, 0755}, {0607, 0607}};
    for (const auto& [mode, expected] : modes) {
        writeBytes(this->file_, this->old_);
        ASSERT_EQ(chown(this->file_.c_str(), OrdinaryUser::nobody, another), 0);
        ASSERT_EQ(chmod(this->file_.c_str(), mode), 0);
        const OrdinaryUser user;
        if (!user.bound()) GTEST_SKIP() << "no way to become an ordinary user here";
        EXPECT_TRUE(scheme.SaveData(this->file_));
        struct stat now {};
        ASSERT_EQ(stat(this->file_.c_str(), &now), 0);
        EXPECT_NE(now.st_gid, another);
        EXPECT_EQ(now.st_mode & 07777U, expected) << std::oct << (now.st_mode & 07777U) << " for " << mode;
    }
}

TYPED_TEST(SaveFault, OntoAFullDisk) {
    const auto answer = onSmallDisk(this->folder_.path(), "size=64k", [this] {
        constexpr std::size_t kib = 1024;
        constexpr std::size_t page = 4 * kib;
        const auto filler = this->folder_ / "filler";
        writeBytes(this->file_, this->old_);
        const auto room = std::filesystem::space(this->folder_.path()).available;
        for (std::size_t size = 1; size <= 64; ++size) {
            TypeParam scheme;
            fill(scheme, size * kib);
            const auto whole = savedBytes(scheme).size();
            // The largest room, in whole pages, that is too small for the whole.
            const auto left = std::min<std::size_t>((whole - 1) / page * page, room);
            writeBytes(filler, std::string(room - left, 'f'));
            if (scheme.SaveData(this->file_)) return 1;
            if (bytesOf(this->file_) != this->old_) return 2;
            if (this->folder_.names() != Rows{"XST.txt", "filler"}) return 3;
        }
        std::filesystem::remove(filler);
        TypeParam scheme;
        fill(scheme, 20'000);
        return scheme.SaveData(this->file_) && bytesOf(this->file_) != this->old_ ? 0 : 4;
    });
    if (answer == cannotMount) GTEST_SKIP() << "mounting a small file system is not allowed here";
    EXPECT_EQ(answer, 0) << "1: claimed success, 2: lost the old file, 3: left something behind, 4: still fails";
    EXPECT_EQ(this->folder_.names(), Rows());
}

// There is room for bytes, but not for one more file.
TYPED_TEST(SaveFault, OntoADiskThatTakesNoMoreFiles) {
    const auto answer = onSmallDisk(this->folder_.path(), "nr_inodes=3", [this] {
        TypeParam scheme;
        fill(scheme, 1000);
        writeBytes(this->file_, this->old_);
        writeBytes(this->folder_ / "filler", "");
        if (scheme.SaveData(this->file_)) return 1;
        if (bytesOf(this->file_) != this->old_) return 2;
        if (this->folder_.names() != Rows{"XST.txt", "filler"}) return 3;
        std::filesystem::remove(this->folder_ / "filler");
        return scheme.SaveData(this->file_) && bytesOf(this->file_) == savedBytes(scheme) ? 0 : 4;
    });
    if (answer == cannotMount) GTEST_SKIP() << "mounting a small file system is not allowed here";
    EXPECT_EQ(answer, 0) << "1: claimed success, 2: lost the old file, 3: left something behind, 4: still fails";
}

TYPED_TEST(SaveFault, WithoutMemory) {
#ifdef WIZARD_SANITIZED
    GTEST_SKIP() << "the sanitizer takes memory by its own rules";
#endif
    TypeParam scheme;
    fill(scheme, std::size_t{50} << 20);
    writeBytes(this->file_, this->old_);
    EXPECT_EQ(withLittleMemory(1 << 17, [&] { return scheme.SaveData(this->file_) ? 1 : 0; }), 0);
    this->expectOldFile("");
}

TYPED_TEST(SaveFault, OntoAFileThatMayNotBeWritten) {
    TypeParam scheme;
    fill(scheme, 1000);
    writeBytes(this->file_, this->old_);
    std::filesystem::permissions(this->folder_.path(), std::filesystem::perms(0777));
    std::filesystem::permissions(this->file_, std::filesystem::perms(0444));
    {
        const OrdinaryUser user;
        if (!user.bound()) GTEST_SKIP() << "no way to become an ordinary user here";
        EXPECT_FALSE(scheme.SaveData(this->file_));
    }
    this->expectOldFile("");
}

TYPED_TEST(SaveFault, UnderAPathThatIsTooLong) {
    TypeParam scheme;
    fill(scheme, 1000);
    EXPECT_FALSE(scheme.SaveData(this->folder_ / std::string(300, 'n')));
    auto deep = this->folder_.path();
    while (deep.native().size() < 5000) deep /= std::string(100, 'd');
    EXPECT_FALSE(scheme.SaveData(deep / "XST.txt"));
    EXPECT_EQ(this->folder_.names(), Rows());
}

// Replacing a file takes a longer name for a moment. If only that name is too long, the first save must fail, too.
TYPED_TEST(SaveFault, UnderALongNameSavesAlwaysOrNever) {
    TypeParam scheme;
    fill(scheme, 1000);
    constexpr std::size_t longest = NAME_MAX - std::string_view(".XXXXXX").size();
    for (std::size_t length = longest - 8; length <= NAME_MAX + 1; ++length) {
        const std::string name(length, 'n');
        for (int save = 1; save <= 3; ++save)
            EXPECT_EQ(scheme.SaveData(this->folder_ / name), length <= longest) << length << ", save " << save;
        if (length <= longest) {
            EXPECT_EQ(bytesOf(this->folder_ / name), savedBytes(scheme));
        }
        EXPECT_EQ(this->folder_.names(), length <= longest ? Rows{name} : Rows());
        if (length <= longest) std::filesystem::remove(this->folder_ / name);
    }
}

// The name that counts is that of the file that the link leads to.
TYPED_TEST(SaveFault, ThroughALinkToALongName) {
    TypeParam scheme;
    fill(scheme, 1000);
    const std::string name(NAME_MAX - 1, 'n');
    writeBytes(this->folder_ / name, "before");
    std::filesystem::create_symlink(name, this->folder_ / "link");
    EXPECT_FALSE(scheme.SaveData(this->folder_ / "link"));
    EXPECT_FALSE(FileWriter(this->folder_ / "link").isGood()) << "not known until the end";
    EXPECT_EQ(bytesOf(this->folder_ / name), "before");
}

TYPED_TEST(SaveFault, NamesMayHaveAnyCharacter) {
    TypeParam scheme;
    fill(scheme, 1000);
    Rows characters = {"\u00e9", "\u20ac", "\u2028", "\ufeff", "\U0001f6b2", "e\u0301"};
    for (char ascii = 1; ascii > 0; ++ascii)
        if (ascii != '/') characters.emplace_back(1, ascii);
    for (const auto& character : characters) {
        const auto name = character + "X" + character;
        EXPECT_TRUE(scheme.SaveData(this->folder_ / name)) << name;
        EXPECT_EQ(this->folder_.names(), Rows{name});
        EXPECT_EQ(bytesOf(this->folder_ / name), savedBytes(scheme)) << name;
        TypeParam loaded;
        loaded.LoadData(this->folder_ / name);
        EXPECT_EQ(loaded.Count(), scheme.Count()) << name;
        std::filesystem::remove(this->folder_ / name);
    }
}

TYPED_TEST(SaveFault, UnderANameThatIsNoText) {
    TypeParam scheme;
    fill(scheme, 1000);
    for (const std::string name : {"\x80.txt", "X\xff.txt", "\xc3(.txt"})
        EXPECT_FALSE(scheme.SaveData(this->folder_ / name));
    EXPECT_EQ(this->folder_.names(), Rows()) << "nor under another name";
}

TYPED_TEST(SaveFault, ThroughALinkReplacesWhatItPointsTo) {
    TypeParam scheme;
    fill(scheme, 1000);
    writeBytes(this->folder_ / "target.txt", this->old_);
    std::filesystem::create_symlink("target.txt", this->file_);
    EXPECT_TRUE(scheme.SaveData(this->file_));
    EXPECT_TRUE(std::filesystem::is_symlink(this->file_));
    EXPECT_EQ(bytesOf(this->folder_ / "target.txt"), savedBytes(scheme));
    EXPECT_EQ(this->folder_.names(), (Rows{"XST.txt", "target.txt"}));
}

TYPED_TEST(SaveFault, ThroughALinkToNothingMakesWhatItPointsTo) {
    TypeParam scheme;
    fill(scheme, 1000);
    std::filesystem::create_symlink("target.txt", this->file_);
    EXPECT_TRUE(scheme.SaveData(this->file_));
    EXPECT_TRUE(std::filesystem::is_symlink(this->file_));
    EXPECT_EQ(bytesOf(this->folder_ / "target.txt"), savedBytes(scheme));
    EXPECT_EQ(this->folder_.names(), (Rows{"XST.txt", "target.txt"}));

    std::filesystem::create_symlink("loop", this->folder_ / "loop");
    EXPECT_FALSE(scheme.SaveData(this->folder_ / "loop"));
    EXPECT_EQ(this->folder_.names(), (Rows{"XST.txt", "loop", "target.txt"}));
}

// Lines are gathered into pieces of 256 KiB before they are written; none may get lost between two of them.
TEST(LargeFile, IsSavedWhole) {
    constexpr std::size_t piece = std::size_t{256} << 10;
    const std::string header =
        lines({R"("ID","descriptionIs","typeIs","parentIs","queryIs","parmIs","iconIs","roleIs")"});
    const std::string around = lines({R"(1,"","F",0,"","","","")"});
    for (const auto size : {piece - 1, piece, piece + 1, 2 * piece + 3}) {
        clsNavSchemes navs;
        const std::string text(size - header.size() - around.size(), 't');
        navs.Add(makeNode(1, 0, "F", text));
        navs.Add(makeNode(2, 1, "F", "second"));
        EXPECT_TRUE(savedBytes(navs) ==
                    header + "1,\"" + text + lines({R"(","F",0,"","","","")", R"(2,"second","F",1,"","","","")"}))
            << size;
    }
}

TEST(LargeFile, OfManyLinesComesBackWhole) {
    clsWebSchemes webs;
    fill(webs, std::size_t{2} << 20);
    const auto rows = rowsOf(webs);
    clsWebSchemes loaded;
    loadBytes(loaded, savedBytes(webs));
    EXPECT_TRUE(rowsOf(loaded) == rows);
}
