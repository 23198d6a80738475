#include "shell/modFileLib.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>

#include "analysis/modSurface.h"
#include "document/clsDocument.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

std::string LowerCase(std::string_view Text)
{
    std::string lower(Text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
        [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

// Blanks, commas and line ends separate the numbers of a coefficient file; each must be one. More
// numbers than coefficients are none: with decimal commas each would be taken for two. A remark may
// stand behind them.
std::optional<ZernikeSet> ReadCoefficientFile(LineReader& Lines)
{
    constexpr std::string_view separators = " ,\t";
    ZernikeSet coefficients{};
    int count = 0;
    std::string line;
    while (Lines.ReadLine(line)) {
        std::size_t start = line.find_first_not_of(separators);
        while (start != std::string::npos) {
            const std::size_t end = std::min(line.find_first_of(separators, start), line.size());
            const std::string token = line.substr(start, end - start);
            const bool isNumber = IsNumeric(token), isFull = count == NumZernikes;
            if (isNumber == isFull)
                return std::nullopt;
            if (isFull)
                return coefficients;
            coefficients[static_cast<std::size_t>(count++)] = LeadingNumber(token);
            start = line.find_first_not_of(separators, end);
        }
    }
    return count == NumZernikes ? std::optional(coefficients) : std::nullopt;
}

// The first line of a document that begins with "Zernikes": each comma starts a number.
std::optional<ZernikeSet> ReadDocumentCoefficients(LineReader& Lines)
{
    constexpr std::string_view key = "zernikes";
    std::string line;
    while (Lines.ReadLine(line)) {
        if (LowerCase(std::string_view(line).substr(0, key.size())) != key)
            continue;
        ZernikeSet coefficients{};
        int count = 0;
        for (std::size_t comma = line.find(',', key.size()); comma != std::string::npos;
             comma = line.find(',', comma + 1)) {
            if (count < NumZernikes)
                coefficients[count] = LeadingNumber(std::string_view(line).substr(comma + 1));
            ++count;
        }
        return count >= NumZernikes ? std::optional(coefficients) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace

std::string FileExtension(std::string_view Path)
{
    const std::string title = FileTitle(Path, false);
    const std::size_t point = title.rfind('.');
    return point == std::string::npos ? "" : LowerCase(std::string_view(title).substr(point + 1));
}

std::string FileTitle(std::string_view Path, bool StripExtension)
{
    const std::size_t separator = Path.rfind('/');
    std::string_view title =
        separator == std::string_view::npos ? Path : Path.substr(separator + 1);
    if (StripExtension)
        title = title.substr(0, title.rfind('.'));
    return std::string(title);
}

std::string FileDirectory(std::string_view Path)
{
    const std::size_t separator = Path.rfind('/');
    return std::string(separator == std::string_view::npos ? "" : Path.substr(0, separator));
}

std::string SidePicture(const std::string& DocumentPath)
{
    const std::string base = FileDirectory(DocumentPath) + "/" + FileTitle(DocumentPath, true);
    const bool isCapital = !FileExistsAt(base + ".bmp") && FileExistsAt(base + ".BMP");
    return base + (isCapital ? ".BMP" : ".bmp");
}

bool IsPictureExtension(std::string_view Extension)
{
    return Extension == "jpg" || Extension == "bmp" || Extension == "rle";
}

bool FileExistsAt(const std::string& Path)
{
    std::error_code error;
    const auto status = std::filesystem::status(Path, error);
    return !error && std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string AbsolutePath(const std::string& Path)
{
    std::string path = Path;
    if (!FileExistsAt(path))
        std::replace(path.begin(), path.end(), '\\', '/');
    std::error_code error;
    const auto absolute = std::filesystem::absolute(path, error);
    if (error || path.empty())
        return path;
    // Behind a link, ".." is not the folder that the text shows.
    const bool hasUp = std::ranges::find(absolute, "..") != absolute.end();
    return hasUp ? absolute.string() : absolute.lexically_normal().string();
}

std::optional<ZernikeSet> LoadReferenceFile(const std::string& Path)
{
    if (!FileExistsAt(Path))
        return std::nullopt;
    LineReader lines(Path);
    if (!lines.Opened())
        return std::nullopt;
    const std::optional<ZernikeSet> read =
        FileExtension(Path) == "zrn" ? ReadCoefficientFile(lines) : ReadDocumentCoefficients(lines);
    // In fringes. No surface that fringes can be seen of is so deep, and a fit less such numbers
    // would lose its digits.
    constexpr double largest = 1e6;
    const auto fits = [](double coefficient) { return std::abs(coefficient) <= largest; };
    return read && std::ranges::all_of(*read, fits) ? read : std::nullopt;
}

FileResult WriteMap(clsDocument& Of, const std::string& Path)
{
    const std::vector<double> map = Of.GetSurfaceMap();
    if (!std::ranges::all_of(map, [](double cell) { return std::isfinite(cell); }))
        return {"The wavefront is too large"};
    return WriteWholeFile(Path, MapText(map, clsDocument::SurfaceMapSize));
}

FileResult WriteZernikes(const clsDocument& Of, const std::string& Path)
{
    return WriteWholeFile(Path, ZernikesText(Of.GetZernikes()));
}

} // namespace morvane
