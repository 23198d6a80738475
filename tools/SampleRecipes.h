// The recipes of the pictures in examples/, which are made from them and nothing else.
#pragma once
#include <string>
#include <vector>

#include "tools/InterferogramGenerator.h"
#include "tools/PictureEncoder.h"

namespace morvane {

struct SampleRecipe {
    std::string Name; // of the picture; its sidecar has the extension .json
    PictureFormat Format;
    InterferogramRecipe Interferogram;

    std::string SidecarName() const;
    // Exact means that nothing but grey levels and pixels stands between the truth and the fit.
    bool IsExact() const;
};

std::vector<SampleRecipe> SampleRecipes();

// Writes Picture and the sidecar beside it; the system's reason if a file cannot be written.
std::string WriteSample(const SampleRecipe& Sample, const std::string& Folder, int Quality = 90);

} // namespace morvane
