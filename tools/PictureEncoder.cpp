#include "tools/PictureEncoder.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <jpeglib.h>

namespace morvane {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Row = std::span<const std::uint8_t>;

constexpr int CompressionNone = 0, CompressionRle8 = 1, CompressionRle4 = 2;
constexpr std::size_t FileHeaderSize = 14, InfoHeaderSize = 40;

int bitCount(PictureFormat format)
{
    switch (format) {
    case PictureFormat::Bmp1:
        return 1;
    case PictureFormat::Bmp4:
    case PictureFormat::Rle4:
        return 4;
    case PictureFormat::Bmp16:
        return 16;
    case PictureFormat::Bmp24:
        return 24;
    case PictureFormat::Bmp32:
        return 32;
    default:
        return 8;
    }
}

void append16(Bytes& bytes, std::uint32_t value)
{
    bytes.push_back(value & 255);
    bytes.push_back(value >> 8 & 255);
}

void append32(Bytes& bytes, std::size_t value)
{
    append16(bytes, static_cast<std::uint32_t>(value & 65535));
    append16(bytes, static_cast<std::uint32_t>(value >> 16));
}

// Palette index of a grey level in a ramp of 2^bits entries, to the nearest entry.
std::uint8_t paletteIndex(std::uint8_t grey, int bits)
{
    const int highest = (1 << bits) - 1;
    return static_cast<std::uint8_t>((grey * highest + 127) / 255);
}

// Indices of less than a byte, the leftmost pixel in the highest bits.
void appendPacked(Bytes& bytes, Row indices, int bits)
{
    const std::size_t perByte = 8 / bits;
    for (std::size_t x = 0; x < indices.size(); x += perByte) {
        unsigned packed = 0;
        for (std::size_t i = 0; i < perByte; ++i)
            packed = packed << bits | (x + i < indices.size() ? indices[x + i] : 0U);
        bytes.push_back(static_cast<std::uint8_t>(packed));
    }
}

void appendPlainRow(Bytes& bytes, Row greys, int bits)
{
    const std::size_t start = bytes.size();
    if (bits <= 8) {
        Bytes indices(greys.size());
        std::transform(greys.begin(), greys.end(), indices.begin(),
            [bits](std::uint8_t grey) { return paletteIndex(grey, bits); });
        appendPacked(bytes, indices, bits);
    } else if (bits == 16) {
        for (const std::uint8_t grey : greys)
            append16(bytes, paletteIndex(grey, 5) * 0x421U); // the same in all three fields
    } else {
        for (const std::uint8_t grey : greys) {
            bytes.insert(bytes.end(), 3, grey);
            if (bits == 32)
                bytes.push_back(0);
        }
    }
    while ((bytes.size() - start) % 4 != 0)
        bytes.push_back(0);
}

std::size_t runLength(Row indices, std::size_t x)
{
    std::size_t length = 1;
    while (length < 255 && x + length < indices.size() && indices[x + length] == indices[x])
        ++length;
    return length;
}

// Pixels as they are, 3 to 255 of them, padded to a whole word; fewer go as short runs.
void appendLiterals(Bytes& bytes, Row indices, int bits)
{
    if (indices.size() < 3) {
        for (const std::uint8_t index : indices) {
            bytes.push_back(1);
            appendPacked(bytes, Bytes(8 / bits, index), bits);
        }
        return;
    }
    bytes.push_back(0);
    bytes.push_back(static_cast<std::uint8_t>(indices.size()));
    const std::size_t start = bytes.size();
    appendPacked(bytes, indices, bits);
    if ((bytes.size() - start) % 2 != 0)
        bytes.push_back(0);
}

void appendPackedRuns(Bytes& bytes, Row greys, int bits)
{
    Bytes indices(greys.size());
    std::transform(greys.begin(), greys.end(), indices.begin(),
        [bits](std::uint8_t grey) { return paletteIndex(grey, bits); });
    std::size_t literals = 0; // pixels before x that are not written yet
    for (std::size_t x = 0; x < indices.size();) {
        const std::size_t run = runLength(indices, x);
        if (run < 4 && literals < 250) {
            x += run;
            literals += run;
            continue;
        }
        appendLiterals(bytes, Row(indices).subspan(x - literals, literals), bits);
        literals = 0;
        bytes.push_back(static_cast<std::uint8_t>(run));
        appendPacked(bytes, Bytes(8 / bits, indices[x]), bits);
        x += run;
    }
    appendLiterals(bytes, Row(indices).last(literals), bits);
    bytes.insert(bytes.end(), {0, 0}); // end of the line
}

Bytes bmpHeaders(RasterSize size, int bits, int compression, std::size_t pixelBytes)
{
    const std::size_t colors = bits <= 8 ? std::size_t{1} << bits : 0;
    const std::size_t pixelsAt = FileHeaderSize + InfoHeaderSize + 4 * colors;
    Bytes bytes{'B', 'M'};
    append32(bytes, pixelsAt + pixelBytes);
    append32(bytes, 0);
    append32(bytes, pixelsAt);
    append32(bytes, InfoHeaderSize);
    append32(bytes, size.Width);
    append32(bytes, size.Height);
    append16(bytes, 1); // planes
    append16(bytes, bits);
    append32(bytes, compression);
    append32(bytes, pixelBytes);
    append32(bytes, 0); // pixels per metre, not known
    append32(bytes, 0);
    append32(bytes, colors);
    append32(bytes, 0);
    for (std::size_t i = 0; i < colors; ++i) {
        const auto grey = static_cast<std::uint8_t>(i * 255 / (colors - 1));
        bytes.insert(bytes.end(), {grey, grey, grey, 0});
    }
    return bytes;
}

Bytes encodeBmp(Row pixels, RasterSize size, PictureFormat format)
{
    const int bits = bitCount(format);
    const bool isPacked = format == PictureFormat::Rle4 || format == PictureFormat::Rle8;
    Bytes body;
    for (int y = size.Height - 1; y >= 0; --y) {
        const Row row = pixels.subspan(static_cast<std::size_t>(y) * size.Width, size.Width);
        if (isPacked)
            appendPackedRuns(body, row, bits);
        else
            appendPlainRow(body, row, bits);
    }
    if (isPacked)
        body.insert(body.end(), {0, 1}); // end of the picture
    const int compression = format == PictureFormat::Rle8 ? CompressionRle8
        : format == PictureFormat::Rle4                   ? CompressionRle4
                                                          : CompressionNone;
    Bytes file = bmpHeaders(size, bits, compression, body.size());
    file.insert(file.end(), body.begin(), body.end());
    return file;
}

struct JpegFailure {
    jpeg_error_mgr Manager; // first: the library hands back a pointer to it
    std::jmp_buf Return;
};

struct FreeByLibrary {
    void operator()(unsigned char* memory) const { std::free(memory); }
};

// No object with a destructor may live in here: an error leaves by a jump.
bool compressJpeg(Row pixels, RasterSize size, bool isColor, int quality, std::uint8_t* line,
    unsigned char** file, unsigned long* fileSize)
{
    jpeg_compress_struct jpeg;
    JpegFailure failure;
    jpeg.err = jpeg_std_error(&failure.Manager);
    failure.Manager.error_exit = [](j_common_ptr failed) {
        std::longjmp(reinterpret_cast<JpegFailure*>(failed->err)->Return, 1);
    };
    jpeg_create_compress(&jpeg);
    if (setjmp(failure.Return) != 0) {
        jpeg_destroy_compress(&jpeg);
        return false;
    }
    jpeg_mem_dest(&jpeg, file, fileSize);
    jpeg.image_width = size.Width;
    jpeg.image_height = size.Height;
    jpeg.input_components = isColor ? 3 : 1;
    jpeg.in_color_space = isColor ? JCS_RGB : JCS_GRAYSCALE;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, quality, TRUE);
    jpeg_start_compress(&jpeg, TRUE);
    const int channels = jpeg.input_components;
    while (jpeg.next_scanline < jpeg.image_height) {
        const std::size_t start = static_cast<std::size_t>(jpeg.next_scanline) * size.Width;
        for (int x = 0; x < size.Width; ++x)
            std::fill_n(
                line + static_cast<std::ptrdiff_t>(x) * channels, channels, pixels[start + x]);
        jpeg_write_scanlines(&jpeg, &line, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    return true;
}

Bytes encodeJpeg(Row pixels, RasterSize size, bool isColor, int quality)
{
    Bytes line(static_cast<std::size_t>(size.Width) * (isColor ? 3 : 1));
    unsigned char* file = nullptr;
    unsigned long fileSize = 0;
    const bool isDone = compressJpeg(pixels, size, isColor, quality, line.data(), &file, &fileSize);
    const std::unique_ptr<unsigned char, FreeByLibrary> owner(file);
    return isDone ? Bytes(file, file + fileSize) : Bytes();
}

} // namespace

std::optional<PictureFormat> PictureFormatByName(std::string_view Name)
{
    static constexpr struct {
        std::string_view Name;
        PictureFormat Format;
    } formats[] = {
        {"bmp1", PictureFormat::Bmp1},
        {"bmp4", PictureFormat::Bmp4},
        {"bmp8", PictureFormat::Bmp8},
        {"bmp16", PictureFormat::Bmp16},
        {"bmp24", PictureFormat::Bmp24},
        {"bmp32", PictureFormat::Bmp32},
        {"rle4", PictureFormat::Rle4},
        {"rle8", PictureFormat::Rle8},
        {"jpeg-grey", PictureFormat::JpegGrey},
        {"jpeg-color", PictureFormat::JpegColor},
    };
    for (const auto& format : formats)
        if (format.Name == Name)
            return format.Format;
    return std::nullopt;
}

std::vector<std::uint8_t> EncodePicture(
    std::span<const std::uint8_t> Pixels, RasterSize Size, PictureFormat Format, int Quality)
{
    if (Size.Width < 1 || Size.Height < 1
        || Pixels.size() != static_cast<std::size_t>(Size.Width) * Size.Height)
        return {};
    if (Format == PictureFormat::JpegGrey || Format == PictureFormat::JpegColor)
        return encodeJpeg(Pixels, Size, Format == PictureFormat::JpegColor, Quality);
    return encodeBmp(Pixels, Size, Format);
}

} // namespace morvane
