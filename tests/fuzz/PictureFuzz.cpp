// Any bytes as a picture file, from decoding to intensities. Built with
// clang++ -fsanitize=fuzzer,address,undefined.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

#include "document/LoadPicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size)
{
    using namespace morvane;
    const PictureResult result = DecodePicture(std::span(Data, Size));
    if (result.Error != PictureError::None)
        return 0;
    // What the decoder hands out is convertible; all of its pixels are looked at.
    ImageBuffer buffer;
    std::string error;
    if (!ConvertBitmapToData(result.Picture, buffer, error))
        std::abort();
    return 0;
}
