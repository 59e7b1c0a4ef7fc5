// SPDX-License-Identifier: MIT
#include "preview/Pictures.h"

#include <sys/stat.h>

#include "tests/preview/Made.h"

using namespace std::string_literals;

namespace {

// A BMP header that says how long the file is, and how long its second part.
std::string bmp(char length, char second = 0x28) {
    return "BM"s + length + "\0\0\0\0\0\0\0\x1A\0\0\0"s + second + "\0\0\0"s + std::string(12, '\0');
}

}  // namespace

TEST(PreviewPictures, AreToldByTheirFirstBytes) {
    Pictures pictures(countedNames());
    pictures.beginPage("");
    const auto typeOf = [&](const std::string& bytes) {
        const auto added = pictures.addBytes(bytes);
        return added.problem.empty() ? std::string(pictures.find(added.name)->type) : "none";
    };
    EXPECT_EQ(typeOf("GIF87a..."), "image/gif");
    EXPECT_EQ(typeOf("GIF89a..."), "image/gif");
    EXPECT_EQ(typeOf("\x89PNG\r\n\x1A\n..."), "image/png");
    EXPECT_EQ(typeOf("\xFF\xD8\xFF\xE0..."), "image/jpeg");
    EXPECT_EQ(typeOf("RIFF\x10\0\0\0WEBPVP8 "s), "image/webp");
    EXPECT_EQ(typeOf("\0\0\0\x1C"
                     "ftypavif"s),
              "image/avif");
    EXPECT_EQ(typeOf(bmp(30)), "image/bmp");
    EXPECT_EQ(typeOf(bmp(30, 12)), "image/bmp");
    EXPECT_EQ(typeOf(bmp(30, 124)), "image/bmp");
    EXPECT_EQ(typeOf(bmp(30, 11)), "none") << "there is no such header";
    EXPECT_EQ(typeOf(bmp(30, 125)), "none") << "there is no such header";
    EXPECT_EQ(typeOf(bmp(31)), "none") << "its header gives another size";
    for (const auto* bytes : {"", "GIF", "BM is how this text begins, and then it goes on",
                              "<svg xmlns=", "root:x:0:0:root:/root:/bin/bash\n", "RIFF....WAVEfmt ", "text....WEBP",
                              "%PDF-1.7", "<html>"})
        EXPECT_EQ(typeOf(bytes), "none") << bytes;
}

TEST(PreviewPictures, OfTheDatabaseAreFoundByTheirName) {
    Pictures pictures(countedNames());
    pictures.beginPage("tab");
    const auto added = pictures.addBytes(gif);
    EXPECT_EQ(added.name, "name1");
    EXPECT_EQ(added.problem, "");
    ASSERT_TRUE(pictures.find("name1"));
    EXPECT_EQ(pictures.find("name1")->type, "image/gif");
    EXPECT_EQ(pictures.find("name1")->bytes, gif);
    EXPECT_FALSE(pictures.find("name2"));
    EXPECT_FALSE(pictures.find(""));
}

TEST(PreviewPictures, OfAnEarlierPageAreGone) {
    Pictures pictures(countedNames());
    pictures.beginPage("first");
    (void)pictures.addBytes(gif);
    pictures.beginPage("second");
    EXPECT_TRUE(pictures.find("name1")) << "the page of another tab is still there";
    pictures.beginPage("first");
    EXPECT_TRUE(pictures.find("name1")) << "the browser may still show the page before";
    (void)pictures.addBytes(gif);
    pictures.beginPage("first");
    EXPECT_FALSE(pictures.find("name1"));
    EXPECT_TRUE(pictures.find("name2"));
    for (int tab = 0; tab < 14; ++tab) pictures.beginPage(std::to_string(tab));
    EXPECT_TRUE(pictures.find("name2"));
    pictures.beginPage("one more");
    EXPECT_FALSE(pictures.find("name2"));
}

TEST(PreviewPictures, OfFilesAreReadWhenTheyAreAskedFor) {
    const TempFolder folder;
    const auto path = writeBytes(folder / "a.gif", gif).string();
    Pictures pictures(countedNames());
    pictures.beginPage("");
    EXPECT_EQ(pictures.addFile(path).name, "name1");
    EXPECT_EQ(pictures.find("name1")->bytes, gif);
    writeBytes(path, "GIF87a anew");
    EXPECT_EQ(pictures.find("name1")->bytes, "GIF87a anew");
    writeBytes(path, "no longer a picture");
    EXPECT_FALSE(pictures.find("name1"));
    std::filesystem::remove(path);
    EXPECT_FALSE(pictures.find("name1"));
}

TEST(PreviewPictures, ThatAreNoneHaveNoName) {
    const TempFolder folder;
    Pictures pictures(countedNames());
    pictures.beginPage("");
    const auto problem = [&](const std::string& path) {
        const auto added = pictures.addFile(path);
        EXPECT_EQ(added.name, "") << path;
        return added.problem;
    };
    const std::string noPicture = "it is no picture of type GIF, PNG, JPEG, WebP, AVIF or BMP";
    EXPECT_EQ(problem("/etc/passwd"), noPicture);
    EXPECT_EQ(problem("/proc/self/environ"), noPicture);
    std::filesystem::create_symlink("/etc/passwd", folder / "link.gif");
    EXPECT_EQ(problem((folder / "link.gif").string()), noPicture);
    EXPECT_EQ(problem("../../etc/passwd"), "it is not a full path");
    EXPECT_EQ(problem("C:\\pictures\\1.jpg"), "it is not a full path");
    EXPECT_EQ(problem(""), "it is not a full path");
    EXPECT_EQ(problem((folder / "missing.gif").string()), "there is no such file");
    EXPECT_EQ(problem((folder / "a.gif").string() + "\0.txt"s), "there is no such file");
    EXPECT_EQ(problem(folder.path().string()), "it is not a file");
    EXPECT_EQ(problem("/dev/zero"), "it is not a file");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(problem((folder / "pipe").string()), "it is not a file") << "and it does not wait for the other end";
    EXPECT_EQ(pictures.addBytes("text").problem, noPicture);
    EXPECT_EQ(pictures.addBytes("").problem, noPicture);
}

TEST(PreviewPictures, ThroughALinkAreShownIfTheyArePictures) {
    const TempFolder folder;
    writeBytes(folder / "a.gif", gif);
    std::filesystem::create_symlink(folder / "a.gif", folder / "link");
    Pictures pictures(countedNames());
    pictures.beginPage("");
    EXPECT_EQ(pictures.addFile((folder / "link").string()).name, "name1");
    std::filesystem::remove(folder / "link");
    std::filesystem::create_symlink("/etc/passwd", folder / "link");
    EXPECT_FALSE(pictures.find("name1")) << "the link leads elsewhere now";
}

TEST(PreviewPictures, HaveALargestSize) {
    const TempFolder folder;
    const auto path = writeBytes(folder / "large.gif", gif).string();
    Pictures pictures(countedNames());
    pictures.beginPage("");
    EXPECT_EQ(pictures.addFile(path).name, "name1");
    std::filesystem::resize_file(path, 10 * 1024 * 1024);
    EXPECT_EQ(pictures.find("name1")->bytes.size(), 10U * 1024 * 1024);
    std::filesystem::resize_file(path, 10 * 1024 * 1024 + 1);
    EXPECT_FALSE(pictures.find("name1"));
    EXPECT_EQ(pictures.addFile(path).problem, "it is larger than 10 MiB");
    EXPECT_EQ(pictures.addBytes(gif + std::string(10 * 1024 * 1024, ' ')).problem, "it is larger than 10 MiB");
}
