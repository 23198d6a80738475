// The scriptable document. Each object stands for one document of the running program, made by the
// first call that needs one; the document stays open when the object goes, and an object whose
// document the user has closed is as one that never had any.
//
// Values are plain variants. A failure that the interface names is raised: the result then holds
// an AutomationError instead of a value.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>

#include "automation/Variant.h"
#include "shell/modMain.h"

namespace morvane {

enum class MorvaneDocErrors : std::uint32_t {
    ErrorNoDocument = 0x80040201,
    ErrorInvalidAberration = 0x80040202,
    ErrorInvalidTraceDirection = 0x80040203,
    ErrorInvalidFringeOrder = 0x80040204,
    ErrorInvalidFringeIndex = 0x80040205,
    ErrorInvalidFringeDensity = 0x80040206,
    ErrorInvalidShape = 0x80040209,
    ErrorInvalidNumber = 0x8004020A,
    ErrorInvalidBoolean = 0x8004020B,
    ErrorInvalidPath = 0x8004020C,
    ErrorInvalidType = 0x8004020D,
    ErrorInvalidPoints = 0x8004020E,
    ErrorNoAperture = 0x80040210,
    ErrorNoFringeCenters = 0x80040211,
    ErrorNoGrabber = 0x80040213,
};

// The error's name without its prefix, as the bus shows it: "NoDocument".
const char* ErrorName(MorvaneDocErrors Number);

struct AutomationError {
    MorvaneDocErrors Number;
    std::string Description;
    std::string Source = "MorvaneDoc";
};

// "Can't <Wish> until an interferogram has been loaded."
AutomationError NoDocument(const char* Wish);

// A value or the error raised in its place.
template <typename T>
class Raised {
public:
    Raised(T Value) : m_state(std::move(Value)) { }
    Raised(AutomationError Error) : m_state(std::move(Error)) { }

    explicit operator bool() const { return m_state.index() == 0; }
    const T& Value() const { return std::get<0>(m_state); }
    const AutomationError& Error() const { return std::get<1>(m_state); }

private:
    std::variant<T, AutomationError> m_state;
};

struct FringeCenterResult {
    bool Ok;
    double X, Y; // image pixels
};

class MorvaneDoc {
public:
    explicit MorvaneDoc(Session& In) : m_session(In) { }

    Raised<bool> Load(const Variant& Path);
    // A Path of std::monostate is the document's own. The picture is written beside it unless its
    // file is there and holds it.
    Raised<bool> Save(const Variant& Path);
    // Widens the picture by Ratio, or heightens it by 1 / Ratio where that is below 1.
    Raised<bool> Stretch(const Variant& Ratio);
    // A frame of the frame grabber in place of the document's picture, or as a new document.
    Raised<bool> Grab();

    // Points is a flat list X, Y, X, Y, ...: four for a circle, three for an ellipse, the corners
    // of a polygon; image pixels.
    Raised<bool> SetAperture(const Variant& ShapeType, const Variant& Points);
    Raised<bool> SetObstruction(const Variant& ShapeType, const Variant& Points);

    // A TraceDensity of std::monostate is the preferred one.
    Raised<bool> AutoTrace(const Variant& Direction, const Variant& TraceDensity);
    Raised<bool> Analyze();

    // Scaled to the output unit, angles in degrees.
    Raised<double> Aberration(const Variant& Type);
    // Raw coefficient, fringe orders.
    Raised<double> Zernike(const Variant& Polynomial);
    Raised<FringeCenterResult> FringeCenter(const Variant& Order, const Variant& Fringe);
    Raised<bool> ExportMap(const Variant& FilePath);

    // Of the interferogram's window. A percentage that is none of the zoom box's is ignored.
    Raised<int> GetZoom() const;
    Raised<bool> SetZoom(const Variant& Value);
    // Outer size, pixels of the desktop, which a dense screen shows larger.
    Raised<int> GetWidth() const;
    Raised<int> GetHeight() const;
    Raised<bool> SizeWindow(const Variant& Width, const Variant& Height);

    // The options of the analysis window, for the next analysis of any document.
    double GetInputWavelength() const;
    Raised<bool> SetInputWavelength(const Variant& Value);
    double GetOutputWavelength() const;
    Raised<bool> SetOutputWavelength(const Variant& Value);
    double GetScaleFactor() const;
    Raised<bool> SetScaleFactor(const Variant& Value);
    bool GetInvertWavefront() const;
    Raised<bool> SetInvertWavefront(const Variant& Value);
    bool GetTrimEdges() const;
    Raised<bool> SetTrimEdges(const Variant& Value);
    // Assigned as a radial order (0 or "AUTO", 2, 4, 6, 8), read as a number of terms.
    int GetOrderLimit() const;
    Raised<bool> SetOrderLimit(const Variant& Value);
    Raised<bool> GetRemove(const Variant& Type) const;
    Raised<bool> SetRemove(const Variant& Type, const Variant& Value);

    // The document, if the object has one that is still open.
    std::shared_ptr<clsDocument> Document() const;

private:
    Raised<bool> SetShape(
        const Variant& ShapeType, const Variant& Points, clsDocument& Of, clsShape& Target);
    Raised<RasterSize> WindowSize() const;
    bool LoadImage(const std::string& Path);
    bool LoadDocument(const std::string& Path);
    template <typename Change>
    void ChangeOptions(Change Apply);

    Session& m_session;
    std::weak_ptr<clsDocument> m_document;
};

} // namespace morvane
