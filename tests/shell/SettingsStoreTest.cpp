#include "shell/SettingsStore.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>
#include <thread>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "TemporaryFolder.h"

namespace morvane {
namespace {

constexpr std::size_t WholeFile = SettingsStore::MaxFileBytes * 2;

class SettingsStoreFile : public ::testing::Test {
protected:
    // A store as a program has it that starts now.
    SettingsStore Open() const { return SettingsStore(path); }

    SettingsStore OpenWith(const std::string& Text) const
    {
        WriteWholeFile(path, Text);
        return Open();
    }

    std::string Text() const
    {
        std::vector<std::uint8_t> bytes;
        ReadWholeFile(path, WholeFile, bytes);
        return {bytes.begin(), bytes.end()};
    }

    TemporaryFolder folder;
    std::string path = folder / "settings.ini";
};

TEST_F(SettingsStoreFile, NumbersAreParsedDefaultedAndClamped)
{
    SettingsStore store = OpenWith("[S]\nn = 12\nunit = 12.5 nm\nword = x\nempty =\nbig = 1e999\n"
                                   "low = -7\nquoted = \"8\"\n");
    const struct {
        const char* Name;
        int Min, Max, Default, Long;
        double Double;
    } cases[] = {
        {"n", 0, 100, 5, 12, 12},
        {"unit", 0, 100, 5, 12, 12.5}, // halves to even
        {"word", -9, 100, 5, 0, 0},
        {"word", 1, 100, 5, 1, 1},
        {"empty", 1, 100, 5, 1, 1},
        {"big", 0, 100, 5, 100, 100},
        {"low", 0, 100, 5, 0, 0},
        {"quoted", 0, 100, 5, 8, 8},
        {"absent", 0, 100, 5, 5, 5},
        {"absent", 7, 100, 5, 7, 7},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(store.GetSettingLong("S", c.Name, c.Min, c.Max, c.Default), c.Long) << c.Name;
        EXPECT_EQ(store.GetSettingDouble("S", c.Name, c.Min, c.Max, c.Default), c.Double) << c.Name;
    }
}

TEST_F(SettingsStoreFile, WithoutARangeThereIsNoDefaultEither)
{
    SettingsStore store = OpenWith("[S]\nlow = -7\n");
    const int none = 2147483647;
    EXPECT_EQ(store.GetSettingLong("S", "low", none, 3, 5), -7);
    EXPECT_EQ(store.GetSettingLong("S", "low", 0, none, 5), -7);
    EXPECT_EQ(store.GetSettingLong("S", "absent", 1, none, 5), 0);
    EXPECT_EQ(store.GetSettingLong("S", "absent", 1, 3, none), 0);
    EXPECT_EQ(store.GetSettingDouble("S", "low", 0, 1E+308, 5), -7);
    EXPECT_EQ(store.GetSettingDouble("S", "absent", 1, 1E+308, 5), 0);
}

TEST_F(SettingsStoreFile, OnlyNumbersAreTrue)
{
    SettingsStore store = OpenWith("[S]\nyes = yes\none = 1\ntwo = -2\nzero = 0\nempty =\n");
    EXPECT_FALSE(store.GetSettingBool("S", "yes", true));
    EXPECT_TRUE(store.GetSettingBool("S", "one", false));
    EXPECT_TRUE(store.GetSettingBool("S", "two", false));
    EXPECT_FALSE(store.GetSettingBool("S", "zero", true));
    EXPECT_FALSE(store.GetSettingBool("S", "empty", true));
    EXPECT_TRUE(store.GetSettingBool("S", "absent", true));
}

TEST_F(SettingsStoreFile, LongTextsAreCutBetweenCharacters)
{
    const std::string accents = [] {
        std::string text;
        for (int i = 0; i < 2500; ++i)
            text += "\xC3\xA9";
        return text;
    }();
    SettingsStore store =
        OpenWith("[S]\nlong = " + std::string(5000, 'x') + "\naccents = " + accents + "\nexact = "
            + std::string(1023, 'y') + "\nbytes = " + std::string(5000, '\x80') + "\n");
    EXPECT_EQ(store.GetSettingString("S", "long", ""), std::string(1023, 'x'));
    EXPECT_EQ(store.GetSettingString("S", "accents", ""), accents.substr(0, 1022));
    EXPECT_EQ(store.GetSettingString("S", "exact", ""), std::string(1023, 'y'));
    EXPECT_EQ(store.GetSettingString("S", "bytes", ""), std::string(1023, '\x80'));
    SettingsStore numbers = OpenWith("[S]\nn = " + std::string(2000, '0') + "25\n");
    EXPECT_EQ(numbers.GetSettingLong("S", "n", 0, 100, 5), 0);
    EXPECT_EQ(numbers.GetSettingDouble("S", "n", 0, 100, 5), 0);
    EXPECT_FALSE(numbers.GetSettingBool("S", "n", true));
    store.SaveSettingString("S", "new", accents);
    EXPECT_EQ(store.GetSettingString("S", "new", ""), accents.substr(0, 1022));
    store.SaveSettingString("S", "nul", std::string("a\0b", 3));
    EXPECT_EQ(store.GetSettingString("S", "nul", ""), "a");
}

TEST_F(SettingsStoreFile, WhatIsSavedComesBack)
{
    SettingsStore store(folder / "not/yet/settings.ini");
    store.SaveSettingString("S", "text", " two\nlines ");
    store.SaveSettingLong("S", "long", -2147483647 - 1);
    store.SaveSettingDouble("S", "double", 0.1 + 0.2);
    store.SaveSettingBool("S", "bool", true);
    store.SaveSettingLong("S", "gone", 1);
    store.DeleteSetting("S", "gone");
    EXPECT_EQ(store.GetSettingLong("S", "gone", 0, 9, 4), 4);
    ASSERT_TRUE(store.Save());
    SettingsStore next(folder / "not/yet/settings.ini");
    EXPECT_EQ(next.GetSettingString("S", "text", ""), " two\nlines ");
    EXPECT_EQ(next.GetSettingLong("S", "long", NoLongRange, 0, 0), -2147483647 - 1);
    EXPECT_EQ(next.GetSettingDouble("S", "double", 0, 1, 0), 0.1 + 0.2);
    EXPECT_TRUE(next.GetSettingBool("S", "bool", false));
    EXPECT_EQ(next.GetSettingString("S", "gone", "absent"), "absent");
}

TEST_F(SettingsStoreFile, EqualValuesLeaveTheTypedLines)
{
    const std::string typed = "[S]\n  n=30.0 cells\nd = 1e0\nb = 7\n# end";
    SettingsStore store = OpenWith(typed);
    store.SaveSettingLong("S", "n", 30);
    store.SaveSettingDouble("S", "d", 1);
    store.SaveSettingBool("S", "b", true);
    ASSERT_TRUE(store.Save());
    EXPECT_EQ(Text(), typed);
}

TEST_F(SettingsStoreFile, AClampedValueGoesBack)
{
    SettingsStore store = OpenWith("[S]\nn = 500\n");
    store.SaveSettingLong("S", "n", store.GetSettingLong("S", "n", 1, 100, 10));
    ASSERT_TRUE(store.Save());
    EXPECT_EQ(Text(), "[S]\nn = 100\n");
}

// Each program writes all its values at its end; what the other has changed must stand.
TEST_F(SettingsStoreFile, TwoProgramsKeepWhatEachChanged)
{
    const struct {
        const char* Name;
        std::string Before;
    } cases[] = {{"first start ever", ""}, {"stored", "[S]\na = 10\nb = 20\nc = 30\n"},
        {"typed by hand", "[S]\na = 10.0\nb = 20 \nc = \"30\"\n"},
        {"out of range", "[S]\na = 10\nb = 20000\nc = 30\n"}};
    for (const auto& c : cases) {
        SettingsStore first = OpenWith(c.Before), second = Open();
        const auto read = [](SettingsStore& from) {
            from.GetSettingLong("S", "a", 0, 100, 10);
            from.GetSettingLong("S", "b", 0, 20, 20);
            from.GetSettingLong("S", "c", 0, 100, 30);
        };
        const auto write = [](SettingsStore& into, int a, int b, int c) {
            into.SaveSettingLong("S", "a", a);
            into.SaveSettingLong("S", "b", b);
            into.SaveSettingLong("S", "c", c);
        };
        const auto expectStored = [&](int a, int b, int c, const char* name) {
            SettingsStore next = Open();
            EXPECT_EQ(next.GetSettingLong("S", "a", 0, 100, 0), a) << name;
            EXPECT_EQ(next.GetSettingLong("S", "b", 0, 100, 0), b) << name;
            EXPECT_EQ(next.GetSettingLong("S", "c", 0, 100, 0), c) << name;
        };
        read(first);
        read(second);
        write(first, 11, 20, 30);
        ASSERT_TRUE(first.Save()) << c.Name;
        write(second, 10, 5, 30);
        ASSERT_TRUE(second.Save()) << c.Name;
        expectStored(11, 5, 30, c.Name);
        // The first goes on, and sets back what it had set.
        write(first, 10, 20, 30);
        ASSERT_TRUE(first.Save()) << c.Name;
        expectStored(10, 5, 30, c.Name);
    }
}

TEST_F(SettingsStoreFile, AnUnreadableFileGivesDefaultsAndStays)
{
    const std::string large = "[S]\nn = 9\n#" + std::string(SettingsStore::MaxFileBytes, 'x');
    SettingsStore tooLarge = OpenWith(large);
    EXPECT_EQ(tooLarge.GetSettingLong("S", "n", 0, 10, 3), 3);
    tooLarge.SaveSettingLong("S", "n", 4);
    EXPECT_FALSE(tooLarge.Save());
    EXPECT_EQ(Text(), large);

    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    SettingsStore aFolder = Open();
    EXPECT_EQ(aFolder.GetSettingLong("S", "n", 0, 10, 3), 3);
    aFolder.SaveSettingLong("S", "n", 4);
    EXPECT_FALSE(aFolder.Save());
    std::filesystem::remove(path);
    EXPECT_TRUE(aFolder.Save()) << "the change has waited";
    EXPECT_EQ(Open().GetSettingLong("S", "n", 0, 10, 3), 4);
}

TEST_F(SettingsStoreFile, NothingGrowsBeyondWhatIsRead)
{
    const std::string full = "[S]\n#" + std::string(SettingsStore::MaxFileBytes - 6, 'x') + "\n";
    SettingsStore store = OpenWith(full);
    store.SaveSettingLong("S", "n", 4);
    EXPECT_FALSE(store.Save());
    EXPECT_EQ(Text(), full);
}

// Runs Work in a process of its own.
pid_t Start(const std::function<void()>& Work)
{
    const pid_t child = fork();
    if (child == 0) {
        Work();
        _exit(0);
    }
    return child;
}

TEST_F(SettingsStoreFile, ProgramsThatEndAtOnceLoseNothing)
{
    constexpr int programs = 4, values = 25;
    std::vector<pid_t> children;
    for (int p = 0; p < programs; ++p)
        children.push_back(Start([&] {
            for (int v = 0; v < values; ++v) {
                SettingsStore store = Open();
                store.SaveSettingLong("P" + std::to_string(p), "v" + std::to_string(v), v + 1);
                store.Save();
            }
        }));
    for (const pid_t child : children)
        waitpid(child, nullptr, 0);
    SettingsStore store = Open();
    for (int p = 0; p < programs; ++p)
        for (int v = 0; v < values; ++v)
            EXPECT_EQ(store.GetSettingLong(
                          "P" + std::to_string(p), "v" + std::to_string(v), 0, values, 0),
                v + 1)
                << p;
}

TEST_F(SettingsStoreFile, AKilledProgramLeavesAWholeFile)
{
    constexpr int rounds = 60, values = 200;
    const auto name = [](int value) { return "value " + std::to_string(value); };
    std::mt19937 random(1);
    std::uniform_int_distribution<int> delay(0, 20000); // microseconds
    for (int round = 0; round < rounds; ++round) {
        const pid_t child = Start([&] {
            for (int n = 1;; ++n) {
                SettingsStore store = Open();
                for (int v = 0; v < values; ++v)
                    store.SaveSettingLong("S", name(v), n);
                store.Save();
            }
        });
        std::this_thread::sleep_for(std::chrono::microseconds(delay(random)));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        SettingsStore store = Open();
        const int first = store.GetSettingLong("S", name(0), NoLongRange, 0, 0);
        for (int v = 1; v < values; ++v)
            ASSERT_EQ(store.GetSettingLong("S", name(v), NoLongRange, 0, 0), first) << round;
        // The lock of the killed program holds nobody up.
        store.SaveSettingLong("S", "after", round);
        const auto begin = std::chrono::steady_clock::now();
        ASSERT_TRUE(store.Save());
        ASSERT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
    }
}

TEST(SettingsPath, FollowsTheUsersFolders)
{
    const auto set = [](const char* name, const char* value) {
        value != nullptr ? setenv(name, value, 1) : unsetenv(name);
    };
    const auto get = [](const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    };
    const auto folder = get("XDG_CONFIG_HOME"), home = get("HOME"), own = get("MORVANE_SETTINGS");
    set("HOME", "/home/me");
    const struct {
        const char* Folder;
        const char* Path;
    } cases[] = {{"/etc/me", "/etc/me/morvane/settings.ini"},
        {nullptr, "/home/me/.config/morvane/settings.ini"},
        {"", "/home/me/.config/morvane/settings.ini"},
        {"relative", "/home/me/.config/morvane/settings.ini"}};
    for (const auto& c : cases) {
        set("XDG_CONFIG_HOME", c.Folder);
        for (const char* none : {static_cast<const char*>(nullptr), ""}) {
            set("MORVANE_SETTINGS", none);
            EXPECT_EQ(SettingsPath(), c.Path);
        }
    }
    set("MORVANE_SETTINGS", "/tmp/a copy");
    EXPECT_EQ(SettingsPath(), "/tmp/a copy");
    set("MORVANE_SETTINGS", own ? own->c_str() : nullptr);
    set("XDG_CONFIG_HOME", folder ? folder->c_str() : nullptr);
    set("HOME", home ? home->c_str() : nullptr);
}

std::vector<std::string> ListIn(const std::string& Path)
{
    return SettingsStore(Path).GetSettingList("Recent File List", "File");
}

TEST(SettingsStoreLists, TwoProgramsKeepWhatEachAddedAndRemoved)
{
    const TemporaryFolder folder;
    const std::string path = folder / "settings.ini";
    using List = std::vector<std::string>;
    const auto save = [](SettingsStore& store, const List& list) {
        store.SaveSettingList("Recent File List", "File", list, ListOrder::NewFirst, 4);
        EXPECT_TRUE(store.Save());
    };
    {
        SettingsStore first(path);
        save(first, {"1", "2", "3"});
    }
    SettingsStore one(path), two(path), three(path);
    save(one, {"2", "3"});
    save(two, {"4", "1", "2", "3"});
    EXPECT_EQ(ListIn(path), (List{"4", "2", "3"}));
    save(three, {"1", "2", "3"});
    EXPECT_EQ(ListIn(path), (List{"4", "2", "3"})) << "what was not changed is not written";
    save(two, {"5", "6", "4", "2", "3"});
    EXPECT_EQ(ListIn(path), (List{"5", "6", "4", "2"}));
    save(two, {});
    EXPECT_EQ(ListIn(path), List{});
}

TEST(SettingsStoreLists, AListInTheOrderOfItsSavingKeepsIt)
{
    const TemporaryFolder folder;
    const std::string path = folder / "settings.ini";
    using List = std::vector<std::string>;
    const auto save = [](SettingsStore& store, const List& list) {
        store.SaveSettingList("Recent File List", "File", list, ListOrder::AsSaved, 9);
        EXPECT_TRUE(store.Save());
    };
    {
        SettingsStore first(path);
        save(first, {"a", "b"});
    }
    SettingsStore one(path), two(path);
    save(one, {"a", "b", "c"});
    EXPECT_EQ(ListIn(path), (List{"a", "b", "c"}));
    save(two, {"b", "d"});
    EXPECT_EQ(ListIn(path), (List{"b", "d", "c"}));
}

TEST(SettingsStoreLists, AListTypedByHandEndsAtItsGapAndHoldsEachOnce)
{
    const TemporaryFolder folder;
    const std::string path = folder / "settings.ini";
    WriteWholeFile(path, "[Recent File List]\nFile1 = a\nFile2 = b\nFile3 = a\nFile5 = c\n");
    EXPECT_EQ(ListIn(path), (std::vector<std::string>{"a", "b"}));
}

} // namespace
} // namespace morvane
