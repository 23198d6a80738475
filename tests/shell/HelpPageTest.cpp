#include "shell/HelpPage.h"

#include <gtest/gtest.h>

#include "TemporaryFolder.h"
#include "platform/File.h"

namespace morvane {
namespace {

TEST(HelpPage, IsFoundInABuildAndInAnInstallation)
{
    const TemporaryFolder folder;
    const std::string program = folder / "bin";
    for (const char* made : {"bin/help", "share/morvane/help"})
        std::filesystem::create_directories(folder / made);
    EXPECT_FALSE(HelpPage(program));
    WriteWholeFile(folder / "share/morvane/help/index.html", "installed");
    ASSERT_TRUE(HelpPage(program));
    EXPECT_TRUE(
        std::filesystem::equivalent(*HelpPage(program), folder / "share/morvane/help/index.html"));
    WriteWholeFile(folder / "bin/help/index.html", "built");
    EXPECT_EQ(HelpPage(program), program + "/help/index.html");
}

} // namespace
} // namespace morvane
