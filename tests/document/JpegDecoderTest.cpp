#include "document/JpegDecoder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace morvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

// At the best quality steps of half a level remain, and the colour space rounds too.
constexpr int CodingTolerance = 2;

struct JpegPicture {
    int Width, Height;
    J_COLOR_SPACE Space = JCS_RGB;
    Bytes Color{0, 0, 0}; // of every pixel, but for the ramp
    bool IsProgressive = false;
    bool HasRamp = false; // the first channel counts the columns
};

Bytes encode(const JpegPicture& picture)
{
    jpeg_compress_struct info{};
    jpeg_error_mgr error{};
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    info.err = jpeg_std_error(&error);
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &memory, &size);
    info.image_width = static_cast<JDIMENSION>(picture.Width);
    info.image_height = static_cast<JDIMENSION>(picture.Height);
    info.input_components = static_cast<int>(picture.Color.size());
    info.in_color_space = picture.Space;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 100, TRUE);
    // Steady part, then the rest. Full precision from the start, so that either may be repeated.
    constexpr std::array<jpeg_scan_info, 2> passes{
        jpeg_scan_info{1, {0}, 0, 0, 0, 0}, jpeg_scan_info{1, {0}, 1, 63, 0, 0}};
    if (picture.IsProgressive && picture.Space == JCS_GRAYSCALE) {
        info.scan_info = passes.data();
        info.num_scans = static_cast<int>(passes.size());
    } else if (picture.IsProgressive) {
        jpeg_simple_progression(&info);
    }
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        Bytes row;
        for (int x = 0; x < picture.Width; ++x) {
            row.insert(row.end(), picture.Color.begin(), picture.Color.end());
            if (picture.HasRamp)
                row[row.size() - picture.Color.size()] =
                    static_cast<std::uint8_t>(x + 10 * static_cast<int>(info.next_scanline));
        }
        JSAMPROW rows = row.data();
        jpeg_write_scanlines(&info, &rows, 1);
    }
    jpeg_finish_compress(&info);
    Bytes file(memory, memory + size);
    jpeg_destroy_compress(&info);
    std::free(memory);
    return file;
}

TEST(JpegDecoder, EveryColorSpaceAsBlueGreenRed)
{
    const struct {
        const char* Name;
        JpegPicture Source;
        std::array<int, 3> BlueGreenRed;
    } cases[] = {
        {"color", {5, 3, JCS_RGB, {200, 100, 50}}, {50, 100, 200}},
        {"grey", {5, 3, JCS_GRAYSCALE, {77}}, {77, 77, 77}},
        {"progressive", {5, 3, JCS_RGB, {200, 100, 50}, true}, {50, 100, 200}},
        // The inks of a file by this encoder are inverted: 255 is none.
        {"inks", {5, 3, JCS_CMYK, {255, 128, 0, 255}}, {0, 128, 255}},
        {"inks with half black", {5, 3, JCS_CMYK, {255, 128, 0, 128}}, {0, 64, 128}},
        {"one pixel", {1, 1, JCS_RGB, {10, 20, 30}}, {30, 20, 10}},
        {"one column", {1, 40, JCS_RGB, {10, 20, 30}}, {30, 20, 10}},
    };
    for (const auto& c : cases) {
        const std::optional<Bitmap> bitmap = DecodeJpeg(encode(c.Source));
        ASSERT_TRUE(bitmap) << c.Name;
        EXPECT_EQ(bitmap->BitCount, 24) << c.Name;
        ASSERT_EQ(bitmap->Width, c.Source.Width) << c.Name;
        ASSERT_EQ(bitmap->Height, c.Source.Height) << c.Name;
        const std::uint8_t* last =
            bitmap->Rows.data() + bitmap->Rows.size() - bitmap->Stride() + 3 * (bitmap->Width - 1);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(last[i], c.BlueGreenRed[i], CodingTolerance) << c.Name << " " << i;
    }
}

TEST(JpegDecoder, RowsAreBottomUp)
{
    JpegPicture source{20, 16, JCS_GRAYSCALE, {0}};
    source.HasRamp = true;
    const std::optional<Bitmap> bitmap = DecodeJpeg(encode(source));
    ASSERT_TRUE(bitmap);
    EXPECT_NEAR(bitmap->Rows[0], 150, CodingTolerance);
    EXPECT_NEAR(bitmap->Rows[15 * bitmap->Stride() + 3 * 19], 19, CodingTolerance);
}

TEST(JpegDecoder, EveryCutIsRefused)
{
    for (const bool isProgressive : {false, true}) {
        JpegPicture source{24, 24, JCS_RGB, {200, 100, 50}, isProgressive};
        source.HasRamp = true;
        const Bytes file = encode(source);
        for (std::size_t size = 0; size < file.size(); ++size)
            ASSERT_FALSE(DecodeJpeg(std::span(file).first(size))) << size;
        Bytes withTail = file;
        withTail.resize(file.size() + 100);
        EXPECT_TRUE(DecodeJpeg(withTail)) << "bytes behind the end do no harm";
    }
}

std::size_t markerOf(const Bytes& file, std::uint8_t code)
{
    std::size_t at = 0;
    while (file[at] != 0xFF || file[at + 1] != code)
        ++at;
    return at;
}

TEST(JpegDecoder, RefusesDamageAndLies)
{
    JpegPicture source{64, 64, JCS_GRAYSCALE, {0}};
    source.HasRamp = true;
    const Bytes file = encode(source);
    ASSERT_TRUE(DecodeJpeg(file));

    Bytes huge = file; // 60000 x 60000 in the frame header
    const std::size_t frame = markerOf(file, 0xC0);
    huge[frame + 5] = huge[frame + 7] = 60000 >> 8;
    huge[frame + 6] = huge[frame + 8] = 60000 & 255;
    EXPECT_FALSE(DecodeJpeg(huge));

    Bytes large = file; // 16384 x 16384: allowed, but not in so few bytes
    large[frame + 5] = large[frame + 7] = 16384 >> 8;
    large[frame + 6] = large[frame + 8] = 0;
    EXPECT_FALSE(DecodeJpeg(large));

    Bytes gap = file; // a part of the middle is lost
    gap.erase(gap.end() - 400, gap.end() - 100);
    EXPECT_FALSE(DecodeJpeg(gap));
}

TEST(JpegDecoder, ForgivesAFewStrayBytesBeforeAMarker)
{
    const Bytes file = encode({16, 16, JCS_GRAYSCALE, {128}});
    const auto withStray = [&](std::size_t count) {
        Bytes longer = file;
        longer.insert(longer.end() - 2, count, 0);
        return longer;
    };
    EXPECT_TRUE(DecodeJpeg(withStray(14)));
    EXPECT_FALSE(DecodeJpeg(withStray(100)));
}

// One pass over the picture costs a few bytes: the same one, many times over.
TEST(JpegDecoder, RefusesEndlessScans)
{
    const Bytes file = encode({64, 64, JCS_GRAYSCALE, {128}, true});
    std::size_t lastScan = file.size() - 2;
    while (file[lastScan] != 0xFF || file[lastScan + 1] != 0xDA)
        --lastScan;
    const Bytes scan(file.begin() + static_cast<std::ptrdiff_t>(lastScan), file.end() - 2);
    const auto repeated = [&](int times) {
        Bytes longer = file;
        for (int i = 0; i < times; ++i)
            longer.insert(longer.end() - 2, scan.begin(), scan.end());
        return longer;
    };
    EXPECT_TRUE(DecodeJpeg(repeated(20)));
    EXPECT_FALSE(DecodeJpeg(repeated(200)));
}

} // namespace
} // namespace morvane
