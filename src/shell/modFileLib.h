// Paths, and the files beside documents. "/" separates folders; "\" is accepted where a path
// enters.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "analysis/Zernike.h"
#include "platform/File.h"

namespace morvane {

class clsDocument;

// Text after the last "." of the file's name, in lower case; empty if none.
std::string FileExtension(std::string_view Path);
std::string FileTitle(std::string_view Path, bool StripExtension);
std::string FileDirectory(std::string_view Path);
// The picture beside a document: of the same name with ".bmp", or ".BMP" if only that is there.
std::string SidePicture(const std::string& DocumentPath);
// Of a picture that can be opened; Extension in lower case.
bool IsPictureExtension(std::string_view Extension);
// Whether there is a file, not a folder, at Path.
bool FileExistsAt(const std::string& Path);

// Path as the program keeps it: absolute, with "/".
std::string AbsolutePath(const std::string& Path);

// Coefficients of a ".zrn" file, or of the first line with 36 Zernikes of any other; none if the
// file does not hold them.
std::optional<ZernikeSet> LoadReferenceFile(const std::string& Path);

// The wavefront of a document as 100 lines of 100 numbers, waves at the input wavelength.
FileResult WriteMap(clsDocument& Of, const std::string& Path);
// The raw coefficients, one a line.
FileResult WriteZernikes(const clsDocument& Of, const std::string& Path);

} // namespace morvane
