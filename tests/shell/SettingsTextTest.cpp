#include "shell/SettingsText.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

std::string Read(std::string_view Text, std::string_view Section, std::string_view Name)
{
    const SettingsValues values = ReadSettingsText(Text);
    const std::string* const value = FindSetting(values, Section, Name);
    return value != nullptr ? *value : "(absent)";
}

std::string Change(std::string_view Text, std::vector<SettingChange> Changes)
{
    return ChangeSettingsText(Text, Changes);
}

TEST(SettingsTextRead, TakesWhatAHandTypes)
{
    const struct {
        const char* Name;
        std::string Text, Value;
    } cases[] = {
        {"plain", "[A]\nb c = 30\n", "30"},
        {"blanks everywhere", "  [ A ]  \n\t b c\t=\t 30 \t\n", "30"},
        {"no blanks, no last line end", "[A]\nb c=30", "30"},
        {"carriage returns", "[A]\r\nb c = 30\r\n", "30"},
        {"byte order mark", "\xEF\xBB\xBF[A]\nb c = 30\n", "30"},
        {"other case", "[a]\nB C = 30\n", "30"},
        {"comment behind the section", "[A] # mine\nb c = 30\n", "30"},
        {"twice", "[A]\nb c = 1\nb c = 30\n", "30"},
        {"section twice", "[A]\nb c = 1\n[B]\nb c = 2\n[A]\nb c = 30\n", "30"},
        {"commented out", "[A]\nb c = 30\n# b c = 31\n#b c = 32\n", "30"},
        {"equals sign in the value", "[A]\nb c = x = y\n", "x = y"},
        {"quoted", "[A]\nb c = \" 3\\t0\\n\\\"\\\\\\x1b \" \n", " 3\t0\n\"\\\x1b "},
        {"quotes in the text only", "[A]\nb c = \"Big\" mirror\n", "\"Big\" mirror"},
        {"quote left open", "[A]\nb c = \"30\n", "\"30"},
        {"lone quote", "[A]\nb c = \"\n", "\""},
        {"last quote escaped", "[A]\nb c = \"30\\\"\n", "\"30\\\""},
        {"unknown escapes", "[A]\nb c = \"\\q\\xg1\\\"\"\n", "\\q\\xg1\""},
        {"backslashes without quotes", "[A]\nb c = C:\\new\n", "C:\\new"},
        {"empty", "[A]\nb c =\n", ""},
        {"no equals sign", "[A]\nb c\n", "(absent)"},
        {"before any section", "b c = 30\n[A]\n", "(absent)"},
        {"below a section that cannot be read", "[A]\n[A\nb c = 30\n", "(absent)"},
        {"other section", "[A]\n[B]\nb c = 30\n", "(absent)"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Read(c.Text, "A", "b c"), c.Value) << c.Name;
}

TEST(SettingsTextChange, KeepsEveryOtherLine)
{
    const struct {
        const char* Name;
        std::string Before;
        SettingChange Made;
        std::string After;
    } cases[] = {
        {"replaced in place", "# top\n[A]\n x=1\n\n# b\nb = 2\n", {"A", "x", "3"},
            "# top\n[A]\nx = 3\n\n# b\nb = 2\n"},
        {"added before what introduces the next section", "[A]\nx = 1\n\n# about B\n[B]\ny = 2\n",
            {"A", "z", "3"}, "[A]\nx = 1\nz = 3\n\n# about B\n[B]\ny = 2\n"},
        {"added to an empty section", "[A]\n[B]\n", {"A", "x", "1"}, "[A]\nx = 1\n[B]\n"},
        {"new section", "[A]\nx = 1\n", {"B", "y", "2"}, "[A]\nx = 1\n\n[B]\ny = 2\n"},
        {"the one that counts", "[A]\nx = 1\nx = 2\n", {"A", "X", "3"}, "[A]\nx = 1\nX = 3\n"},
        {"deleted wherever it stands", "[A]\nx = 1\ny = 2\nx = 3\n", {"A", "x", {}},
            "[A]\ny = 2\n"},
        {"deleting what is absent", "[A]\ny = 2\n", {"B", "x", {}}, "[A]\ny = 2\n"},
        {"line ends are those of the file", "[A]\r\nx = 1\r\n", {"A", "x", "2"},
            "[A]\r\nx = 2\r\n"},
        {"last line without its end", "[A]\nx = 1", {"A", "y", "2"}, "[A]\nx = 1\ny = 2\n"},
        {"what is not understood", std::string("\0\xFF[\n!!\n[A\nx = 1\n", 16), {"A", "x", "2"},
            std::string("\0\xFF[\n!!\n[A\nx = 1\n", 16) + "\n[A]\nx = 2\n"},
        {"empty value", "[A]\nx = 1\n", {"A", "x", ""}, "[A]\nx =\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Change(c.Before, {c.Made}), c.After) << c.Name;
}

TEST(SettingsTextChange, ANewFileExplainsItselfAndKeepsTheOrderOfWriting)
{
    const std::string text = Change("", {{"B", "z", "1"}, {"A", "m", "2"}, {"B", "a", "3"}});
    ASSERT_TRUE(text.starts_with("# The settings of Morvane."));
    const std::string body = text.substr(text.find("\n\n") + 1);
    EXPECT_EQ(body, "\n[B]\nz = 1\na = 3\n\n[A]\nm = 2\n");
}

TEST(SettingsTextChange, AnyTextComesBack)
{
    std::string allBytes;
    for (int i = 0; i < 256; ++i)
        allBytes += static_cast<char>(i);
    for (const std::string& value : {std::string(), std::string(" "), std::string("  x\t"),
             std::string("\"x\""), std::string("\""), std::string("a\r\nb\n"), std::string("# x"),
             std::string("[x]"), std::string("x = y"), std::string("C:\\new\\x41"),
             std::string("Spiegel \xC3\xB8 200 mm"), allBytes}) {
        const std::string text = Change("[A]\nn = 0\n", {{"A", "v", value}});
        EXPECT_EQ(Read(text, "A", "v"), value);
        EXPECT_EQ(Read(text, "A", "n"), "0");
    }
}

} // namespace
} // namespace morvane
