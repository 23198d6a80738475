#include "platform/File.h"

#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "TemporaryFolder.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

std::string Content(const std::string& path)
{
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(ReadWholeFile(path, 1 << 24, bytes)) << path;
    return {bytes.begin(), bytes.end()};
}

std::vector<std::string> Lines(const std::string& path)
{
    LineReader reader(path);
    std::vector<std::string> lines;
    for (std::string line; reader.ReadLine(line);)
        lines.push_back(line);
    return lines;
}

TEST(File, LinesEndWithLfOrCrLf)
{
    const TemporaryFolder folder;
    const struct {
        const char* Text;
        std::vector<std::string> Lines;
    } cases[] = {
        {"", {}},
        {"one", {"one"}},
        {"one\r\ntwo\n", {"one", "two"}},
        {"\n\r\nend", {"", "", "end"}},
        {"a\rb\r\r\n", {"a\rb\r"}},
        {"\xef\xbb\xbfmarked\n\xef\xbb\xbfnot\n", {"marked", "\xef\xbb\xbfnot"}},
        {"\xef\xbb\xbf", {}},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(WriteWholeFile(folder / "text", c.Text));
        EXPECT_EQ(Lines(folder / "text"), c.Lines) << c.Text;
    }
}

TEST(File, ALongLineIsCutAndTheNextOneIsWhole)
{
    const TemporaryFolder folder;
    const std::string endless(LineReader::MaxLineLength + 5, 'x');
    ASSERT_TRUE(WriteWholeFile(folder / "text", endless + "\nnext\n"));
    const auto lines = Lines(folder / "text");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].size(), LineReader::MaxLineLength);
    EXPECT_EQ(lines[1], "next");
}

TEST(File, WhatIsNoFileHasNoLinesAndNoBytes)
{
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0); // would wait for a writer
    for (const std::string& path : {folder / "", folder / "pipe", folder / "missing"}) {
        std::vector<std::uint8_t> bytes{1};
        EXPECT_FALSE(ReadWholeFile(path, 100, bytes)) << path;
        EXPECT_TRUE(bytes.empty()) << path;
        EXPECT_TRUE(Lines(path).empty()) << path;
        EXPECT_NE(LineReader(path).Opened().Error, "") << path;
    }
}

TEST(File, AFileIsReadUpToItsLimit)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(WriteWholeFile(folder / "file", "12345"));
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(ReadWholeFile(folder / "file", 5, bytes));
    EXPECT_EQ(bytes.size(), 5u);
    EXPECT_FALSE(ReadWholeFile(folder / "file", 4, bytes));
    fs::resize_file(folder / "file", std::uintmax_t{1} << 40); // sparse: takes no room
    EXPECT_FALSE(ReadWholeFile(folder / "file", std::uint64_t{1} << 30, bytes));
    EXPECT_TRUE(bytes.empty());
}

TEST(FileWrite, ReplacesTheWholeFileAndKeepsItsPermissions)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(WriteWholeFile(folder / "file", "a long old text"));
    fs::permissions(folder / "file", fs::perms{0640});
    const std::string bytes("new\0\n", 5);
    ASSERT_TRUE(WriteWholeFile(folder / "file", bytes));
    EXPECT_EQ(Content(folder / "file"), bytes);
    EXPECT_EQ(fs::status(folder / "file").permissions(), fs::perms{0640});
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / ""), {}), 1) << "something was left";
}

TEST(FileWrite, AStagedFileTakesItsNameOnlyWhenCommitted)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(WriteWholeFile(folder / "first", "old"));
    {
        StagedFile first(folder / "first", "new");
        const StagedFile second(folder / "second", "given up");
        ASSERT_TRUE(first.Prepared() && second.Prepared());
        EXPECT_EQ(Content(folder / "first"), "old");
        EXPECT_TRUE(first.Commit());
    }
    EXPECT_EQ(Content(folder / "first"), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / ""), {}), 1) << "something was left";
    EXPECT_FALSE(StagedFile(folder / "missing/file", "text").Prepared());
}

TEST(FileWrite, ASymbolicLinkStays)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "there");
    ASSERT_TRUE(WriteWholeFile(folder / "there/file", "old"));
    fs::create_symlink("there/file", folder / "link");
    fs::create_symlink("there/new", folder / "dangling");
    ASSERT_TRUE(WriteWholeFile(folder / "link", "through"));
    ASSERT_TRUE(WriteWholeFile(folder / "dangling", "made"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(Content(folder / "there/file"), "through");
    EXPECT_EQ(Content(folder / "there/new"), "made");
}

TEST(FileWrite, AFailureTellsItsReasonAndLeavesNothingBehind)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "folder");
    fs::create_symlink("circle", folder / "circle");
    const std::string tooLong(300, 'x');
    for (const std::string& path : {folder / "folder", folder / "missing/file", folder / "circle",
             folder / tooLong, std::string()})
        EXPECT_NE(StagedFile(path, "text").Prepared().Error, "") << path;
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / ""), {}), 2);
    EXPECT_TRUE(fs::is_empty(folder / "folder"));
}

TEST(FileWrite, AWriteProtectedFileIsNotReplaced)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(WriteWholeFile(folder / "file", "kept"));
    fs::permissions(folder / "file", fs::perms{0444});
    fs::permissions(folder / ".", fs::perms::all);
    // Nothing is write-protected from root, so the attempt is nobody's.
    constexpr uid_t root = 0, nobody = 65534;
    const bool isRoot = geteuid() == root;
    ASSERT_TRUE(!isRoot || seteuid(nobody) == 0);
    const FileResult written = WriteWholeFile(folder / "file", "lost");
    ASSERT_TRUE(!isRoot || seteuid(root) == 0);
    EXPECT_FALSE(written);
    EXPECT_EQ(Content(folder / "file"), "kept");
}

} // namespace
} // namespace morvane
