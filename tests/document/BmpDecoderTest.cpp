#include "document/BmpDecoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "BmpFile.h"

namespace morvane {
namespace {

using test::BmpFile;
using test::Bytes;

constexpr std::uint32_t White24 = 0xFFFFFF, Grey24 = 0x646464; // 100

// The intensities row by row from the top; the reason if the file is refused.
std::string greys(const BmpFile& file)
{
    const std::optional<Bitmap> bitmap = DecodeBmp(file.Make());
    if (!bitmap)
        return "refused";
    ImageBuffer buffer;
    std::string text, error;
    if (!ConvertBitmapToData(*bitmap, buffer, error))
        return error;
    for (std::size_t i = 0; i < buffer.Pixels.size(); ++i) {
        if (i > 0)
            text += i % static_cast<std::size_t>(buffer.Size.Width) == 0 ? " / " : " ";
        text += std::to_string(buffer.Pixels[i]);
    }
    return text;
}

std::vector<std::uint32_t> ramp(std::uint32_t count)
{
    std::vector<std::uint32_t> colors;
    for (std::uint32_t i = 0; i < count; ++i)
        colors.push_back(i * 0x010101);
    return colors;
}

struct Case {
    const char* Name;
    BmpFile File;
    const char* Greys;
};

void expectGreys(std::span<const Case> cases)
{
    for (const Case& c : cases)
        EXPECT_EQ(greys(c.File), c.Greys) << c.Name;
}

TEST(BmpDecoder, EveryDepth)
{
    const std::vector<std::uint32_t> twoColors{Grey24, White24};
    const Case cases[] = {
        {"1 bit", {10, 1, 1, 0, 40, 0, twoColors, {0b10000001, 0b01000000, 0, 0}},
            "255 100 100 100 100 100 100 255 100 255"},
        {"4 bits, odd width", {3, 1, 4, 0, 40, 0, ramp(16), {0x1F, 0x70, 0, 0}}, "1 15 7"},
        {"8 bits", {2, 2, 8, 0, 40, 0, ramp(256), {1, 2, 0, 0, 3, 4, 0, 0}}, "3 4 / 1 2"},
        {"8 bits of few colors", {2, 1, 8, 0, 40, 2, twoColors, {1, 0, 0, 0}}, "255 100"},
        {"16 bits", {2, 1, 16, 0, 40, 0, {}, {0xFF, 0x7F, 0x44, 0x04}}, "31 2"},
        {"24 bits", {1, 2, 24, 0, 40, 0, {}, {10, 20, 30, 0, 1, 2, 3, 0}}, "2 / 20"},
        {"32 bits, fourth byte set", {2, 1, 32, 0, 40, 0, {}, {9, 9, 9, 255, 255, 255, 255, 0}},
            "9 255"},
        {"top-down", {2, -2, 8, 0, 40, 0, ramp(256), {1, 2, 0, 0, 3, 4, 0, 0}}, "1 2 / 3 4"},
        {"top-down, odd height", {1, -3, 24, 0, 40, 0, {}, {1, 1, 1, 0, 2, 2, 2, 0, 3, 3, 3, 0}},
            "1 / 2 / 3"},
        {"OS/2, 1 bit", {2, 1, 1, 0, 12, 0, twoColors, {0x40, 0, 0, 0}}, "100 255"},
        {"OS/2, 24 bits", {1, 1, 24, 0, 12, 0, {}, {10, 20, 30, 0}}, "20"},
        {"longer header", {1, 1, 24, 0, 124, 0, {}, {10, 20, 30, 0}}, "20"},
        {"last padding missing", {1, 2, 24, 0, 40, 0, {}, {10, 20, 30, 0, 1, 2, 3}}, "2 / 20"},
        {"offset left 0", {1, 1, 8, 0, 40, 3, ramp(3), {2, 0, 0, 0}, 0}, "2"},
        {"gap before the pixels", {1, 1, 8, 0, 40, 3, ramp(3), {7, 7, 2, 0}, 14 + 40 + 12 + 2},
            "2"},
    };
    expectGreys(cases);
}

// 16 bits come as 5-5-5, 32 bits in bytes, whatever the widths of the fields.
TEST(BmpDecoder, BitFields)
{
    const auto file = [](int bits, std::vector<std::uint32_t> masks, std::uint32_t pixel) {
        BmpFile made{1, 1, bits, 3, 40, 0, std::move(masks), {}};
        test::append(made.Pixels, pixel, 4);
        return made;
    };
    BmpFile withAlpha = file(32, {0xFF, 0xFF00, 0xFF0000, 0xFF000000}, 0x80010203);
    withAlpha.Compression = 6;
    BmpFile inHeader = file(32, {0xFF, 0xFF00, 0xFF0000}, 0x00010203);
    inHeader.HeaderSize = 56;
    const Case cases[] = {
        {"5-6-5 white", file(16, {0xF800, 0x7E0, 0x1F}, 0xFFFF), "31"},
        {"5-6-5 of 10, 20, 10", file(16, {0xF800, 0x7E0, 0x1F}, 10 << 11 | 20 << 5 | 10), "10"},
        {"4-4-4 white", file(16, {0xF00, 0xF0, 0xF}, 0xFFF), "31"},
        {"10-10-10 white", file(32, {0x3FF00000, 0xFFC00, 0x3FF}, 0x3FFFFFFF), "255"},
        {"10-10-10 half: 512 * 255 / 1023 = 127.6",
            file(32, {0x3FF00000, 0xFFC00, 0x3FF}, 0x20080200), "128"},
        {"8-8-8 in other order", file(32, {0xFF, 0xFF00, 0xFF0000}, 0x00010203), "2"},
        {"with alpha", withAlpha, "2"},
        {"masks inside the header", inHeader, "2"},
        {"one channel only", file(32, {0xFF, 0, 0}, 30), "10"},
        {"32 bits in one channel", file(32, {0xFFFFFFFF, 0, 0}, 0xFFFFFFFF), "85"},
        {"no channel", file(32, {0, 0, 0}, 1), "refused"},
        {"mask with a hole", file(32, {0xF0F, 0xFF0000, 0xFF000000}, 1), "refused"},
        {"mask outside of 16 bits", file(16, {0xFF0000, 0x7E0, 0x1F}, 1), "refused"},
        {"masks missing", {1, 1, 32, 3, 40, 0, {}, {}}, "refused"},
        {"header that ends within the masks", {1, 1, 32, 3, 44, 0, {0xFF}, {}}, "refused"},
    };
    expectGreys(cases);
}

TEST(BmpDecoder, RunLengths)
{
    const auto rle8 = [](Bytes data) {
        return BmpFile{4, 2, 8, 1, 40, 0, ramp(256), std::move(data)};
    };
    const auto rle4 = [](Bytes data) {
        return BmpFile{5, 1, 4, 2, 40, 0, ramp(16), std::move(data)};
    };
    BmpFile topDown = rle8({4, 1, 0, 0, 4, 2, 0, 1});
    topDown.Height = -2;
    const Case cases[] = {
        {"runs", rle8({4, 1, 0, 0, 3, 2, 1, 3, 0, 1}), "2 2 2 3 / 1 1 1 1"},
        {"literal, odd and padded", rle8({0, 3, 5, 6, 7, 0, 1, 8, 0, 0, 4, 2, 0, 1}),
            "2 2 2 2 / 5 6 7 8"},
        {"row ended early", rle8({1, 9, 0, 0, 4, 2, 0, 1}), "2 2 2 2 / 9 0 0 0"},
        {"picture ended early", rle8({1, 9, 0, 1}), "0 0 0 0 / 9 0 0 0"},
        {"move", rle8({1, 9, 0, 2, 1, 1, 2, 8, 0, 1}), "0 0 8 8 / 9 0 0 0"},
        {"no end mark, all pixels there", rle8({4, 1, 0, 0, 4, 2}), "2 2 2 2 / 1 1 1 1"},
        {"top-down", topDown, "1 1 1 1 / 2 2 2 2"},
        {"4 bits, runs", rle4({3, 0x12, 2, 0x34, 0, 1}), "1 2 1 3 4"},
        {"4 bits, literal of one byte and a half", rle4({0, 3, 0x12, 0x30, 2, 0x44, 0, 1}),
            "1 2 3 4 4"},
        {"4 bits, literal padded", rle4({0, 5, 0x12, 0x34, 0x50, 0, 0, 1}), "1 2 3 4 5"},
        {"run past the row", rle8({5, 1, 0, 1}), "refused"},
        {"literal past the row", rle8({0, 5, 1, 2, 3, 4, 5, 0, 0, 1}), "refused"},
        {"run past the picture", rle8({4, 1, 0, 0, 4, 2, 0, 0, 1, 3, 0, 1}), "refused"},
        {"rows past the picture", rle8({0, 0, 0, 0, 0, 0, 0, 1}), "refused"},
        {"move past the row", rle8({0, 2, 5, 0, 0, 1}), "refused"},
        {"move past the picture", rle8({0, 2, 0, 3, 0, 1}), "refused"},
        {"data breaks off", rle8({4, 1, 0, 0, 3, 2}), "refused"},
        {"literal breaks off", rle8({4, 1, 0, 0, 0, 4, 1, 2}), "refused"},
        {"move breaks off", rle8({4, 1, 0, 2, 1}), "refused"},
        {"no data", rle8({}), "refused"},
    };
    expectGreys(cases);
}

TEST(BmpDecoder, RefusesWhatIsDamagedOrLies)
{
    const Bytes pixel{1, 2, 3, 0};
    const struct {
        const char* Name;
        BmpFile File;
    } cases[] = {
        {"60000 x 60000 in a few bytes", {60000, 60000, 8, 0, 40, 0, ramp(256), pixel}},
        {"the same in run lengths", {60000, 60000, 8, 1, 40, 0, ramp(256), {0, 1}}},
        {"16000 x 16000 in run lengths", {16000, 16000, 8, 1, 40, 0, ramp(256), {0, 1}}},
        {"a pixel beyond the largest side", {32768, 1, 1, 0, 40, 0, ramp(2), Bytes(5000)}},
        {"no width", {0, 1, 24, 0, 40, 0, {}, pixel}},
        {"no height", {1, 0, 24, 0, 40, 0, {}, pixel}},
        {"negative width", {-1, 1, 24, 0, 40, 0, {}, pixel}},
        {"lowest height", {1, -2147483647 - 1, 24, 0, 40, 0, {}, pixel}},
        {"last pixel cut", {1, 2, 24, 0, 40, 0, {}, {1, 2, 3, 0, 1, 2}}},
        {"2 bits", {1, 1, 2, 0, 40, 0, ramp(4), pixel}},
        {"0 bits", {1, 1, 0, 0, 40, 0, {}, pixel}},
        {"run lengths of 24 bits", {1, 1, 24, 1, 40, 0, {}, pixel}},
        {"JPEG inside", {1, 1, 24, 4, 40, 0, {}, pixel}},
        {"unknown header", {1, 1, 24, 0, 13, 0, {}, pixel}},
        {"palette missing", {1, 1, 8, 0, 40, 0, {}, pixel}},
        {"pixels inside the header", {1, 1, 24, 0, 40, 0, {}, pixel, 20}},
        {"pixels behind the file", {1, 1, 24, 0, 40, 0, {}, pixel, 1000}},
        {"color that is not there", {1, 1, 8, 0, 40, 3, ramp(3), {3, 0, 0, 0}}},
    };
    for (const auto& c : cases)
        EXPECT_FALSE(DecodeBmp(c.File.Make())) << c.Name;

    Bytes endlessHeader = BmpFile{1, 1, 24, 0, 40, 0, {}, pixel}.Make();
    endlessHeader[17] = 0x7F;
    EXPECT_FALSE(DecodeBmp(endlessHeader));
}

TEST(BmpDecoder, EveryCutIsRefused)
{
    const Bytes file = BmpFile{2, 2, 8, 0, 40, 4, ramp(4), {1, 2, 0, 0, 3, 0}}.Make();
    ASSERT_TRUE(DecodeBmp(file));
    for (std::size_t size = 0; size < file.size(); ++size)
        EXPECT_FALSE(DecodeBmp(std::span(file).first(size))) << size;
}

} // namespace
} // namespace morvane
