// Any bytes as the blocks of a document, each on its own: the first byte chooses among tokenizer,
// fringes, shapes and grid. What a block has read it writes, reads again the same, and draws. Built
// with clang++ -fsanitize=fuzzer,address,undefined.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "../RecordingDevice.h"
#include "MemoryFile.h"
#include "document/clsGrid.h"
#include "document/clsParser.h"
#include "geometry/clsFringes.h"
#include "geometry/clsShape.h"

namespace {

using namespace morvane;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void readTokens(const std::string& path)
{
    LineReader lines(path);
    clsParser parser(lines);
    while (parser.Readline()) {
        const int count = parser.Tokencount();
        require(parser.GetToken().empty());
        parser.ReReadLine();
        for (int i = 0; i < count; ++i) {
            const std::string_view token = parser.GetToken();
            require(!token.empty());
            clsParser::BooleanParse(token);
        }
        parser.ReReadLine();
        parser.GetLong();
        parser.SkipLine();
        require(parser.GetToken().empty());
    }
}

template <typename Block>
std::string read(Block& into, const std::string& path)
{
    LineReader lines(path);
    clsParser parser(lines);
    into.LoadFromFile(parser);
    std::string text;
    into.SaveToFile(text);
    return text;
}

// The first line of a block is the document's to read.
template <typename Block>
void travel(Block& first, Block& second, const MemoryFile& file, const std::string& path)
{
    const std::string text = read(first, path);
    const std::string body = text.substr(text.find('\n') + 1);
    require(read(second, file.Write(body.data(), body.size())) == text);
}

class ClientDevice final : public RecordingDevice {
public:
    DeviceRect Bounds() const override { return {0, 0, 40, 30}; }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size)
{
    if (Size == 0)
        return 0;
    static const MemoryFile file;
    const std::string path = file.Write(Data + 1, Size - 1);
    ClientDevice device;
    const ImageMapping zoomed{16, 3, 5};
    switch (Data[0] % 4) {
    case 0:
        readTokens(path);
        break;
    case 1: {
        // A store is too large to be made for each input.
        static clsFringes first, second;
        first.DeleteAll();
        second.DeleteAll();
        travel(first, second, file, path);
        first.Find({1, 1});
        first.DrawAll(device, zoomed, {});
        break;
    }
    case 2: {
        clsShape first(ShapeRole::Aperture), second(ShapeRole::Aperture);
        travel(first, second, file, path);
        first.Draw(device, zoomed, RasterOp::Xor);
        first.Find({1, 1});
        first.Rotate(1);
        first.Resize({5, 5}, 1);
        first.Draw(device, zoomed, RasterOp::Xor);
        break;
    }
    default: {
        clsGrid first, second;
        travel(first, second, file, path);
        first.Find({1, 1});
        first.GetStatistics();
        first.Draw(device, zoomed, RasterOp::Xor);
        require(device.Calls.size() <= 100);
    }
    }
    return 0;
}
