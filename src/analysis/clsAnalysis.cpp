#include "analysis/clsAnalysis.h"

namespace morvane {

bool clsAnalysis::EnsureMask(
    RasterSize Image, clsShape& Aperture, const clsShape& Obstruction, bool Trim)
{
    if (!PrepareMask(Image, false, Aperture, Obstruction))
        return false;
    if (Trim && !Mask.MaskTrimmed())
        Mask.TrimMask(Frame.TrimRim());
    return true;
}

bool clsAnalysis::EnsureTraceMask(RasterSize Image, clsShape& Aperture, const clsShape& Obstruction)
{
    const bool doubled = Image.Width < SmallPicture || Image.Height < SmallPicture;
    const int factor = doubled ? 2 : 1;
    return PrepareMask(
        {Image.Width * factor, Image.Height * factor}, doubled, Aperture, Obstruction);
}

bool clsAnalysis::PrepareMask(
    RasterSize Size, bool HalfSize, clsShape& Aperture, const clsShape& Obstruction)
{
    if (Size.Width < 1 || Size.Height < 1)
        return false;
    const bool fits = Mask.HasMask() && Mask.HalfSize == HalfSize && Mask.Width() == Size.Width
        && Mask.Height() == Size.Height;
    if (!fits) {
        if (!Mask.CreateMask(Size.Width, Size.Height))
            return false;
        Mask.HalfSize = HalfSize;
    }
    if (Mask.MaskValid)
        return true;
    Mask.ClearMask();
    Mask.UpdateApertureMask(Aperture, HalfSize);
    Mask.UpdateObstructionMask(Obstruction, HalfSize);
    Frame.SetScalefactors(Aperture);
    Mask.MaskValid = true;
    return true;
}

} // namespace morvane
