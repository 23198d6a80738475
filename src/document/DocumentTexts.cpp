#include "document/DocumentTexts.h"

#include "document/clsDocument.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

constexpr const char* LineEnd = "\r\n";

// A blank in the place of the sign, so that digits line up with negative values.
std::string Signed(double Value, int Decimals)
{
    std::string text = FormatFixed(Value, Decimals);
    if (text.front() != '-')
        text.insert(0, 1, ' ');
    return text;
}

std::string PaddedLeft(std::string Text, std::size_t Width, char Fill)
{
    if (Text.size() < Width)
        Text.insert(0, Width - Text.size(), Fill);
    return Text;
}

const char* UnitName(DisplayUnit Unit)
{
    switch (Unit) {
    case DisplayUnit::Micrometers:
        return "Micrometers";
    case DisplayUnit::Microinches:
        return "Microinches";
    case DisplayUnit::Waves:
        break;
    }
    return "Waves";
}

// One aberration: name, amount in display units, and with AngleIndex the angle in degrees.
std::string AberrationLine(
    const clsDocument& Of, const char* Name, int Index, bool Removed, int AngleIndex = 0)
{
    std::string line = std::string(Name) + "\t";
    if (Removed)
        return line + " Removed" + LineEnd;
    line += Signed(Of.Kingslake(Index) * Of.DisplayScale, 2);
    if (AngleIndex != 0)
        line += "\t" + PaddedLeft(Signed(Of.Kingslake(AngleIndex), 1) + " deg", 10, ' ');
    return line + LineEnd;
}

} // namespace

std::string AberrationsText(const clsDocument& Of)
{
    const FiguresOfMerit& figures = Of.Figures;
    std::string text = std::string("Output Units: ") + UnitName(Of.ScaleMode) + LineEnd + LineEnd;
    text += "RMS\t" + Signed(figures.RMS * Of.DisplayScale, 3) + LineEnd;
    text += "Peak-Valley\t" + Signed(figures.PV * Of.DisplayScale, 2) + LineEnd;
    text += "Strehl Ratio\t" + Signed(figures.Strehl, 2) + LineEnd;
    text += AberrationLine(Of, "Tilt", 1, Of.Removed.Tilt, 2);
    text += AberrationLine(Of, "Defocus", 3, Of.Removed.Focus);
    text += AberrationLine(Of, "Astigmatism", 4, Of.Removed.Astigmatism, 5);
    text += AberrationLine(Of, "Coma", 6, Of.Removed.Coma, 7);
    text += AberrationLine(Of, "Spherical", 8, Of.Removed.Spherical);
    text += LineEnd;
    text += "Scale\t" + FormatFixed(Of.InvertWavefront ? -Of.ZScale : Of.ZScale, 2) + LineEnd;
    text += "Wavelength\t" + PaddedLeft(FormatFixed(Of.OutWL, 1), 5, '0') + " nm" + LineEnd;
    text += Of.Averaged ? "Data Sets\t" : "Data Points\t";
    return text + std::to_string(Of.nDataPts);
}

std::string ZernikesText(const clsDocument& Of)
{
    constexpr int rows = NumZernikes / 2;
    std::string text;
    for (int left = 1; left <= rows; ++left) {
        const int right = left + rows;
        if (left > 1)
            text += LineEnd;
        text += PaddedLeft(std::to_string(left), 2, ' ') + "\t" + Signed(Of.Zernike(left), 6);
        text += "\t" + std::to_string(right) + "\t" + Signed(Of.Zernike(right), 6);
    }
    return text;
}

} // namespace morvane
