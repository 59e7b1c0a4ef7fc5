// SPDX-License-Identifier: MIT
#include "tests/commands/Commands.h"
#include "tests/database/Process.h"

// `tree --no-ids` as what git compares (textconv): a real repository.

namespace {

class Repository {
  public:
    Repository() : folder(bytesOf(sampleNodes), bytesOf(sampleParagraphs)) {
        writeBytes(folder / ".gitattributes", "XST?.txt diff=pelmo\n");
        git("init -q");
        git("config diff.pelmo.textconv '" PROGRAM " tree --no-ids'");
        commit();
    }
    void commit() {
        git("add .");
        git("-c user.name=a -c user.email=a@b.invalid commit -q -m scheme");
    }
    // The lines that `git diff` shows as changed.
    [[nodiscard]] std::string changes() const {
        std::istringstream diff(git("diff"));
        std::string changed;
        for (std::string line; std::getline(diff, line);)
            if ((line.starts_with('+') || line.starts_with('-')) && !line.starts_with("+++") &&
                !line.starts_with("---"))
                changed += line + "\n";
        return changed;
    }
    std::string git(const std::string& arguments) const {
        const auto place = folder.folder.path().string();
        const auto ran =
            run({"sh", "-c", "cd '" + place + "' && HOME='" + place + "' GIT_CONFIG_NOSYSTEM=1 git " + arguments});
        EXPECT_EQ(ran.code, 0) << arguments << ran.err;
        return ran.out;
    }

    SchemeFolder folder;
};

void replace(const std::string& file, const std::string& from, const std::string& to) {
    auto bytes = bytesOf(file);
    const auto at = bytes.find(from);
    ASSERT_NE(at, std::string::npos);
    writeBytes(file, bytes.replace(at, from.size(), to));
}

}  // namespace

TEST(Git, ShowsWhatAPersonChangedAndNotWhatReNumberDid) {
    if (!isInstalled("git")) GTEST_SKIP() << "git is not installed";
    const Repository repository;
    EXPECT_EQ(repository.changes(), "");
    const auto& folder = repository.folder;

    // A new node in the middle, so that all numbers after it change.
    replace(folder.nodes(), "3,\"Today at a glance\"",
            "900,\"Week\",\"N\",2,\"\",\"\",\"calendar\",\"\"\r\n3,\"Today at a glance\"");
    replace(folder.paragraphs(), "\"Our shop\"", "\"Our caf\xE9\"");
    ASSERT_EQ(pelmo({"renumber", folder.nodes(), folder.paragraphs(), "-o", folder.folder.path().string()}).status,
              0);
    EXPECT_NE(bytesOf(folder.nodes()).find("\r\n4,\"Today at a glance\""), std::string::npos);
    EXPECT_EQ(repository.changes(),
              "+    N \"Week\" icon=\"calendar\"\n"
              "-- 1 I \"Our shop\" query=\"spW_ShopFront\"\n"
              "+- 1 I \"Our café\" query=\"spW_ShopFront\"\n");
}
