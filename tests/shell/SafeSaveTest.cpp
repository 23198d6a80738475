// Saves that are killed, run out of space or have no right to write, each in a process of its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <functional>
#include <random>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "FringePicture.h"
#include "RecordingFrame.h"
#include "TemporaryFolder.h"

namespace morvane {
namespace {

std::string ContentOf(const std::string& Path)
{
    std::vector<std::uint8_t> bytes;
    return ReadWholeFile(Path, 1 << 24, bytes) ? std::string(bytes.begin(), bytes.end())
                                               : std::string();
}

// Unfinished files.
std::ptrdiff_t NumLeftIn(const std::string& Folder)
{
    return std::ranges::count_if(std::filesystem::directory_iterator(Folder),
        [](const auto& entry) { return entry.path().filename().string().starts_with(".morvane"); });
}

// A document whose every byte, text and picture, tells which of two versions it is.
void MakeVersion(clsDocument& Of, int Version)
{
    Of.Optic.Comments = std::string(20000, Version == 0 ? 'a' : 'b');
    Of.ImageDirty = Of.Modified = true;
}

class SafeSave : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (const int version : {0, 1}) {
            const std::string picture = folder / (std::to_string(version) + ".bmp");
            WritePicture(VerticalFringes(200, 200, version == 0 ? 8 : 12), picture);
            documents[version] = session.Main.OpenPicture(picture, true);
            Save(version);
            text[version] = ContentOf(folder / "saved.mvd");
            bitmap[version] = ContentOf(folder / "saved.bmp");
        }
        ASSERT_TRUE(text[0] != text[1] && bitmap[0] != bitmap[1]);
    }

    // Neither document minds that the other takes its file.
    bool Save(int version)
    {
        MakeVersion(*documents[version], version);
        if (documents[1 - version])
            documents[1 - version]->PicturePath.clear();
        return session.Main.WriteDocument(folder / "saved.mvd", *documents[version]);
    }

    // Runs Work in a child and returns its exit status; a child that a signal ended gives -1.
    static int InChild(const std::function<int()>& Work)
    {
        const pid_t child = fork();
        if (child == 0)
            _exit(Work());
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    TemporaryFolder folder;
    SilentSession session;
    std::shared_ptr<clsDocument> documents[2];
    std::string text[2], bitmap[2];
};

TEST_F(SafeSave, KilledAtAnyMomentLeavesTheOldOrTheNewFilesWhole)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> microseconds(0, 8000);
    int saved[2] = {0, 0};
    for (int round = 0; round < 200; ++round) {
        const pid_t child = fork();
        if (child == 0)
            for (int version = round % 2;; version = 1 - version)
                Save(version);
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string found = ContentOf(folder / "saved.mvd");
        const std::string picture = ContentOf(folder / "saved.bmp");
        ASSERT_TRUE(found == text[0] || found == text[1]) << "round " << round;
        ASSERT_TRUE(picture == bitmap[0] || picture == bitmap[1]) << "round " << round;
        ++saved[found == text[1]];
    }
    EXPECT_GT(saved[0], 0) << "the killed programs have saved";
    EXPECT_GT(saved[1], 0);
    // Where files need no name until they are whole, one can be left only between having a name
    // and giving it up for the target's.
    const int nameless = open((folder / ".").c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0600);
    if (nameless < 0)
        GTEST_SKIP() << "this file system has no files without a name";
    close(nameless);
    constexpr int numRarelyLeft = 20;
    EXPECT_LT(NumLeftIn(folder / "."), numRarelyLeft) << "of 200 killed programs";
}

TEST_F(SafeSave, OnAFullDeviceTheOldFilesStay)
{
    const int result = InChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{10000, 10000};
        setrlimit(RLIMIT_FSIZE, &limit);
        session.Answerer.Answers = {MessageAnswer::Abort};
        return !Save(0) && documents[0]->Modified && session.Answerer.Asked.size() == 1 ? 0 : 1;
    });
    EXPECT_EQ(result, 0);
    EXPECT_TRUE(ContentOf(folder / "saved.mvd") == text[1]);
    EXPECT_TRUE(ContentOf(folder / "saved.bmp") == bitmap[1]);
    EXPECT_EQ(NumLeftIn(folder / "."), 0);
}

TEST_F(SafeSave, InAFolderWithoutTheRightToWriteTheOldFilesStay)
{
    chmod((folder / ".").c_str(), 0555);
    const int result = InChild([&] {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && seteuid(nobody) != 0)
            return 2;
        session.Answerer.Answers = {MessageAnswer::Retry, MessageAnswer::Abort};
        return !Save(0) && session.Answerer.Asked.size() == 2 ? 0 : 1;
    });
    chmod((folder / ".").c_str(), 0755);
    EXPECT_EQ(result, 0);
    EXPECT_TRUE(ContentOf(folder / "saved.mvd") == text[1]);
}

} // namespace
} // namespace morvane
