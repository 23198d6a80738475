#include "shell/CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

namespace morvane {
namespace {

TEST(CommandLine, HoldsOneFileAtMost)
{
    const struct {
        std::vector<const char*> Words;
        bool Embedding;
        std::string File;
    } cases[] = {
        {{}, false, ""},
        {{"-Embedding"}, true, ""},
        {{"-embedding"}, false, "-embedding"},
        {{"-Embedding", "a.bmp"}, false, "-Embedding a.bmp"},
        {{"my", "mirror.bmp"}, false, "my mirror.bmp"},
        {{"\"my mirror.bmp\" behind"}, false, "my mirror.bmp"},
        {{"\"my", "mirror.bmp"}, false, "my mirror.bmp"},
    };
    for (const auto& c : cases) {
        const CommandLine line = ParseCommandLine(c.Words);
        EXPECT_EQ(line.Embedding, c.Embedding) << c.File;
        EXPECT_EQ(line.File, c.File);
    }
}

} // namespace
} // namespace morvane
