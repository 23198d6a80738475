// The mask of a document and the pupil laid over its image, kept in step with its shapes. What is
// computed from them are free functions that take both.
#pragma once
#include "analysis/Pupil.h"
#include "geometry/clsMask.h"
#include "geometry/modRaster.h"

namespace morvane {

class clsAnalysis {
public:
    clsMask Mask;
    Pupil Frame;

    // Brings the mask to image size and the state of the shapes, trimmed if asked. False if there
    // is no memory for it or the image has no size.
    bool EnsureMask(RasterSize Image, clsShape& Aperture, const clsShape& Obstruction, bool Trim);

    // Brings the mask to the size and state that the tracer needs: twice the image where a side
    // of it is below SmallPicture pixels.
    bool EnsureTraceMask(RasterSize Image, clsShape& Aperture, const clsShape& Obstruction);

    static constexpr int SmallPicture = 350;

private:
    bool PrepareMask(
        RasterSize Size, bool HalfSize, clsShape& Aperture, const clsShape& Obstruction);
};

} // namespace morvane
