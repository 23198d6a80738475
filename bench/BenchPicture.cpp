#include "bench/BenchPicture.h"

#include <cstdio>

#include <jpeglib.h>

#include "tools/PictureEncoder.h"

namespace morvane {
namespace {

BenchPicture makePicture(int side, int numFringes)
{
    InterferogramRecipe recipe;
    recipe.Size = {side, side};
    const double center = (side - 1) / 2.0, radius = 0.49 * side;
    recipe.Aperture = CircleOutline({center, center}, {radius, radius});
    recipe.FringesX = numFringes;
    recipe.Piston = 0.5; // half an order from the rim to the first fringe and to the last
    recipe.Aberrations[4] = 0.1; // astigmatism
    recipe.Aberrations[6] = -0.1; // coma
    recipe.Contrast = 0.9;
    recipe.Background = 20;
    recipe.Noise = 2;

    BenchPicture picture;
    picture.Size = recipe.Size;
    picture.NumFringes = numFringes;
    picture.Pixels = MakeInterferogram(recipe);
    picture.Jpeg = EncodePicture(picture.Pixels, picture.Size, PictureFormat::JpegColor, 90);
    picture.Aperture = recipe.Aperture.Shape(ShapeRole::Aperture);
    picture.Mask.CreateMask(side, side);
    picture.Mask.UpdateApertureMask(picture.Aperture, false);
    return picture;
}

} // namespace

BenchPicture& LargePicture()
{
    static BenchPicture picture = makePicture(4096, 120);
    return picture;
}

BenchPicture& SmallPicture()
{
    static BenchPicture picture = makePicture(1024, 30);
    return picture;
}

bool DecodeJpeg(const std::vector<std::uint8_t>& File, std::vector<std::uint8_t>& Target)
{
    jpeg_decompress_struct jpeg;
    jpeg_error_mgr errors;
    jpeg.err = jpeg_std_error(&errors); // ends the program on a fault: the file is our own
    jpeg_create_decompress(&jpeg);
    jpeg_mem_src(&jpeg, File.data(), File.size());
    jpeg_read_header(&jpeg, TRUE);
    jpeg_start_decompress(&jpeg);
    const std::size_t stride = std::size_t{jpeg.output_width} * jpeg.output_components;
    const bool fits = stride * jpeg.output_height == Target.size();
    while (fits && jpeg.output_scanline < jpeg.output_height) {
        JSAMPROW row = Target.data() + jpeg.output_scanline * stride;
        jpeg_read_scanlines(&jpeg, &row, 1);
    }
    if (fits)
        jpeg_finish_decompress(&jpeg);
    jpeg_destroy_decompress(&jpeg);
    return fits;
}

} // namespace morvane
