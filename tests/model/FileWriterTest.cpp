// SPDX-License-Identifier: MIT
#include "model/FileWriter.h"

#include "Helpers.h"

TEST(FileWriter, PutsTheFileInItsPlaceOnlyWhenToldTo) {
    const TempFolder folder;
    const auto file = writeBytes(folder / "file.txt", "old");
    {
        FileWriter writer(file);
        EXPECT_TRUE(writer.isGood());
        writer.write("new ");
        writer.write("");
        writer.write("bytes");
        EXPECT_EQ(bytesOf(file), "old");
        EXPECT_TRUE(writer.commit());
    }
    EXPECT_EQ(bytesOf(file), "new bytes");
    EXPECT_EQ(folder.names(), Rows{"file.txt"});
}

TEST(FileWriter, LeavesNothingBehindWhenItIsGivenUp) {
    const TempFolder folder;
    writeBytes(folder / "file.txt", "old");
    {
        FileWriter writer(folder / "file.txt");
        writer.write(std::string(std::size_t{1} << 20, 'x'));
        FileWriter untouched(folder / "new.txt");
        EXPECT_TRUE(untouched.isGood()) << "a way to ask whether a file can be written";
    }
    EXPECT_EQ(bytesOf(folder / "file.txt"), "old");
    EXPECT_EQ(folder.names(), Rows{"file.txt"});
}

TEST(FileWriter, KnowsFromTheStartWhatCannotBeWritten) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "folder");
    for (const auto& file : {folder / "folder", folder / "missing" / "file.txt"}) {
        FileWriter writer(file);
        EXPECT_FALSE(writer.isGood()) << file;
        writer.write("bytes");
        EXPECT_FALSE(writer.commit()) << file;
    }
    EXPECT_EQ(folder.names(), Rows{"folder"});
}

TEST(FileWriter, WritesLongTextsPieceByPiece) {
    const TempFolder folder;
    std::string bytes;
    for (int i = 0; bytes.size() < std::size_t{1} << 20; ++i) bytes += std::to_string(i) + " ";
    FileWriter writer(folder / "file.txt");
    writer.write("start ");
    writer.write(bytes);
    writer.write("end");
    EXPECT_TRUE(writer.commit());
    EXPECT_TRUE(bytesOf(folder / "file.txt") == "start " + bytes + "end");
}

TEST(FileWriter, MakesAnEmptyFileWhereNothingIsWritten) {
    const TempFolder folder;
    FileWriter writer(folder / "file.txt");
    EXPECT_TRUE(writer.commit());
    EXPECT_EQ(bytesOf(folder / "file.txt"), "");
}

TEST(FileWriter, TakesNamesForTheSameHoweverTheirAccentsAreWritten) {
    using Path = std::filesystem::path;
    const Path composed(u8"/a/\u00E9\u1EA5.txt");
    EXPECT_TRUE(isSameName(composed, composed));
    EXPECT_TRUE(isSameName(composed, Path(u8"/a/e\u0301a\u0302\u0301.txt"))) << "as macOS writes it";
    EXPECT_FALSE(isSameName(composed, Path(u8"/a/e\u1EA5.txt"))) << "without the accent";
    EXPECT_FALSE(isSameName(composed, Path(u8"/b/\u00E9\u1EA5.txt")));
    EXPECT_FALSE(isSameName(Path(u8"/a/x"), Path(u8"/a/X")));
#ifndef _WIN32  // where names are not bytes
    EXPECT_FALSE(isSameName(Path("/a/\xE9"), Path(u8"/a/\uFFFD"))) << "what an invalid byte looks like";
    EXPECT_FALSE(isSameName(Path("/a/\xE9"), Path("/a/\xE8")));
    EXPECT_TRUE(isSameName(Path("/a/\xE9"), Path("/a/\xE9")));
#endif
}
