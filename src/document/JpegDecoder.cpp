#include "document/JpegDecoder.h"

#include <algorithm>
#include <csetjmp>
#include <cstddef>
#include <cstdio>

#include <jpeglib.h>

#include <jerror.h>

#include "document/PictureLimits.h"
#include "platform/LargePages.h"

namespace morvane {

namespace {

// A progressive file can order a pass over the whole picture with a few bytes. Encoders make
// about ten.
constexpr int MaxScans = 100;

// Cameras are known to leave a few stray bytes before a marker. More of them are picture data
// that the decoder has lost its place in.
constexpr int MaxStrayBytes = 16;

// The library knows only the first member and hands back a pointer to it.
struct ErrorManager {
    jpeg_error_mgr Base{};
    std::jmp_buf Escape{};
};

[[noreturn]] void escape(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<ErrorManager*>(info->err)->Escape, 1);
}

bool isHarmless(const jpeg_error_mgr& error)
{
    switch (error.msg_code) {
    case JWRN_ADOBE_XFORM:
    case JWRN_JFIF_MAJOR:
        return true;
    case JWRN_EXTRANEOUS_DATA:
        return error.msg_parm.i[0] <= MaxStrayBytes;
    default:
        return false;
    }
}

// The library only warns of damaged or missing data and paints it grey.
void onMessage(j_common_ptr info, int level)
{
    if (level < 0 && !isHarmless(*info->err))
        escape(info);
}

void onProgress(j_common_ptr info)
{
    if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > MaxScans)
        escape(info);
}

// Calls into the library come back by a jump when it meets an error: the functions that make them
// hold nothing that would have to be destroyed.
class JpegReader {
public:
    explicit JpegReader(std::span<const std::uint8_t> File) : m_file(File)
    {
        m_info.err = jpeg_std_error(&m_error.Base);
        m_error.Base.error_exit = escape;
        m_error.Base.emit_message = onMessage;
        m_progress.progress_monitor = onProgress;
    }
    ~JpegReader() { jpeg_destroy_decompress(&m_info); }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    bool ReadHeader();
    // Target has its size and memory.
    bool ReadRows(Bitmap& Target);

    std::int64_t Width() const { return m_info.image_width; }
    std::int64_t Height() const { return m_info.image_height; }

private:
    bool isInked() const
    {
        return m_info.jpeg_color_space == JCS_CMYK || m_info.jpeg_color_space == JCS_YCCK;
    }
    void readInkedRow(std::uint8_t* target);

    std::span<const std::uint8_t> m_file;
    jpeg_decompress_struct m_info{};
    jpeg_progress_mgr m_progress{};
    ErrorManager m_error;
    std::vector<std::uint8_t> m_inks; // a row of cyan, magenta, yellow, black
};

bool JpegReader::ReadHeader()
{
    if (setjmp(m_error.Escape) != 0)
        return false;
    jpeg_create_decompress(&m_info);
    m_info.progress = &m_progress;
    jpeg_mem_src(&m_info, m_file.data(), m_file.size());
    jpeg_read_header(&m_info, TRUE);
    return true;
}

bool JpegReader::ReadRows(Bitmap& Target)
{
    if (isInked())
        m_inks.resize(static_cast<std::size_t>(Target.Width) * 4);
    if (setjmp(m_error.Escape) != 0)
        return false;
    m_info.out_color_space = isInked() ? JCS_CMYK : JCS_EXT_BGR;
    jpeg_start_decompress(&m_info);
    while (m_info.output_scanline < m_info.output_height) {
        const std::size_t row = m_info.output_height - 1 - m_info.output_scanline;
        JSAMPROW target = Target.Rows.data() + row * Target.Stride();
        if (isInked())
            readInkedRow(target);
        else
            jpeg_read_scanlines(&m_info, &target, 1);
    }
    jpeg_finish_decompress(&m_info);
    return true;
}

// Files with an Adobe marker hold the inks inverted: 255 is no ink.
void JpegReader::readInkedRow(std::uint8_t* target)
{
    JSAMPROW inks = m_inks.data();
    jpeg_read_scanlines(&m_info, &inks, 1);
    const int inversion = m_info.saw_Adobe_marker ? 0 : 255;
    for (JDIMENSION x = 0; x < m_info.output_width; ++x) {
        const std::uint8_t* ink = inks + std::size_t{4} * x;
        const int light = ink[3] ^ inversion;
        for (int channel = 0; channel < 3; ++channel)
            *target++ =
                static_cast<std::uint8_t>(((ink[2 - channel] ^ inversion) * light + 127) / 255);
    }
}

} // namespace

bool IsJpeg(std::span<const std::uint8_t> File)
{
    constexpr std::array<std::uint8_t, 3> start{0xFF, 0xD8, 0xFF};
    return File.size() >= start.size() && std::equal(start.begin(), start.end(), File.begin());
}

std::optional<Bitmap> DecodeJpeg(std::span<const std::uint8_t> File)
{
    JpegReader reader(File);
    if (!reader.ReadHeader() || !CanHoldCompressed(File.size(), reader.Width(), reader.Height()))
        return std::nullopt;
    Bitmap picture;
    picture.Width = static_cast<int>(reader.Width());
    picture.Height = static_cast<int>(reader.Height());
    picture.BitCount = 24;
    ResizeInLargePages(picture.Rows, picture.Stride() * static_cast<std::size_t>(picture.Height));
    if (!reader.ReadRows(picture))
        return std::nullopt;
    return picture;
}

} // namespace morvane
