#include "automation/MorvaneDoc.h"

#include "automation/Keywords.h"
#include "platform/Numbers.h"
#include "shell/modFileLib.h"

namespace morvane {
namespace {

using enum MorvaneDocErrors;

AutomationError InvalidPoints(const char* Text)
{
    return {ErrorInvalidPoints, Text};
}

// Points of a flat list X, Y, X, Y, ...
std::vector<Point> PointsOf(const std::vector<double>& Flat, std::size_t Count)
{
    std::vector<Point> points(Count);
    for (std::size_t i = 0; i < Count; ++i)
        points[i] = {Flat[2 * i], Flat[2 * i + 1]};
    return points;
}

} // namespace

AutomationError NoDocument(const char* Wish)
{
    return {
        ErrorNoDocument, std::string("Can't ") + Wish + " until an interferogram has been loaded."};
}

const char* ErrorName(MorvaneDocErrors Number)
{
    switch (Number) {
    case ErrorNoDocument:
        return "NoDocument";
    case ErrorInvalidAberration:
        return "InvalidAberration";
    case ErrorInvalidTraceDirection:
        return "InvalidTraceDirection";
    case ErrorInvalidFringeOrder:
        return "InvalidFringeOrder";
    case ErrorInvalidFringeIndex:
        return "InvalidFringeIndex";
    case ErrorInvalidFringeDensity:
        return "InvalidFringeDensity";
    case ErrorInvalidShape:
        return "InvalidShape";
    case ErrorInvalidNumber:
        return "InvalidNumber";
    case ErrorInvalidBoolean:
        return "InvalidBoolean";
    case ErrorInvalidPath:
        return "InvalidPath";
    case ErrorInvalidType:
        return "InvalidType";
    case ErrorInvalidPoints:
        return "InvalidPoints";
    case ErrorNoAperture:
        return "NoAperture";
    case ErrorNoFringeCenters:
        return "NoFringeCenters";
    case ErrorNoGrabber:
        return "NoGrabber";
    }
    return "Unknown";
}

std::shared_ptr<clsDocument> MorvaneDoc::Document() const
{
    const std::shared_ptr<clsDocument> document = m_document.lock();
    const bool open = document && m_session.Document(document->DocNumber) == document.get();
    return open ? document : nullptr;
}

Raised<bool> MorvaneDoc::Load(const Variant& Path)
{
    const auto* given = std::get_if<std::string>(&Path);
    const std::string path = given ? AbsolutePath(*given) : std::string();
    if (!FileExistsAt(path))
        return AutomationError{ErrorInvalidPath, "Specified file does not exist."};
    const std::string extension = FileExtension(path);
    if (extension == "mvd")
        return LoadDocument(path);
    return IsPictureExtension(extension) && LoadImage(path);
}

bool MorvaneDoc::LoadDocument(const std::string& Path)
{
    if (const std::shared_ptr<clsDocument> document = Document())
        return m_session.ReplaceDocument(*document, Path, true);
    const std::shared_ptr<clsDocument> opened = m_session.OpenDocument(Path, true);
    m_document = opened;
    return opened != nullptr;
}

Raised<bool> MorvaneDoc::Save(const Variant& Path)
{
    const auto document = Document();
    if (!std::holds_alternative<std::monostate>(Path)) {
        const auto* given = std::get_if<std::string>(&Path);
        if (!given)
            return AutomationError{
                ErrorInvalidType, "'Save' must be passed a file path in the form of a string."};
        if (!document)
            return false;
        const std::string path = AbsolutePath(*given);
        return m_session.WriteDocument(FileExtension(path).empty() ? path + ".mvd" : path,
            *document, Session::Originals::Replace);
    }
    if (!document || document->FileName.empty())
        return AutomationError{
            ErrorInvalidPath, "Unless a document has already been saved, a path must be supplied."};
    return m_session.WriteDocument(
        document->Directory + "/" + document->FileName, *document, Session::Originals::Replace);
}

Raised<bool> MorvaneDoc::Stretch(const Variant& Ratio)
{
    const auto document = Document();
    if (!document)
        return NoDocument("stretch");
    const std::optional<double> ratio = Numeric(Ratio);
    if (!ratio)
        return AutomationError{ErrorInvalidNumber, "A stretch ratio must be numeric."};
    if (*ratio <= 0)
        return AutomationError{ErrorInvalidNumber, "A stretch ratio must greater than zero."};
    if (!document->StretchImage(*ratio))
        return false;
    if (document->ImageViewExists())
        document->ImageView()->ResizeWindow();
    m_session.Frame().UpdateMainFrame();
    return true;
}

bool MorvaneDoc::LoadImage(const std::string& Path)
{
    const std::shared_ptr<clsDocument> document = Document();
    if (!document) {
        const std::shared_ptr<clsDocument> opened = m_session.OpenPicture(Path, true);
        m_document = opened;
        return opened != nullptr;
    }
    return m_session.ReplacePicture(*document, Path, true);
}

Raised<bool> MorvaneDoc::Grab()
{
    if (!m_session.Grabber.IsLoaded())
        return AutomationError{ErrorNoGrabber,
            "Failed to grab image because no frame grabber card is currently selected."};
    const std::shared_ptr<clsDocument> document = Document();
    if (!document) {
        const std::shared_ptr<clsDocument> grabbed = m_session.GrabIntoNewDocument();
        m_document = grabbed;
        return grabbed != nullptr;
    }
    if (!document->GrabIntoDataBuffer(m_session.Grabber))
        return false;
    m_session.ShowNewPicture(*document);
    return true;
}

Raised<bool> MorvaneDoc::SetAperture(const Variant& ShapeType, const Variant& Points)
{
    const auto document = Document();
    if (!document)
        return NoDocument("define an aperture");
    return SetShape(ShapeType, Points, *document, document->Aperture);
}

Raised<bool> MorvaneDoc::SetObstruction(const Variant& ShapeType, const Variant& Points)
{
    const auto document = Document();
    if (!document)
        return NoDocument("define an obstruction");
    return SetShape(ShapeType, Points, *document, document->Obstruction);
}

Raised<bool> MorvaneDoc::SetShape(
    const Variant& ShapeType, const Variant& Points, clsDocument& Of, clsShape& Target)
{
    const auto* flat = std::get_if<std::vector<double>>(&Points);
    if (!flat)
        return AutomationError{ErrorInvalidType,
            "Control points must be specified using an "
            "array."};
    const std::optional<ShapeKind> type = ShapeKeyword(ShapeType);
    if (!type)
        return AutomationError{ErrorInvalidShape, "Invalid shape type parameter."};

    std::size_t count = flat->size() / 2;
    if (*type == ShapeKind::Circle) {
        if (flat->size() < 8)
            return InvalidPoints("An ellipse is defined by four points.");
        count = 4;
    } else if (*type == ShapeKind::Ellipse) {
        if (flat->size() < 6)
            return InvalidPoints("An ellipse is defined by three points.");
        count = 3;
    } else if (flat->size() % 2 != 0 || count > MaxVertices) {
        return InvalidPoints("Invalid points array passed to SetShape().");
    }
    if (!AllFinite(*flat))
        return InvalidPoints("Invalid points array passed to SetShape().");

    Target.Save(*type, PointsOf(*flat, count));
    Of.ImageView_Refresh();
    Of.InvalidateMask();
    return true;
}

Raised<bool> MorvaneDoc::AutoTrace(const Variant& Direction, const Variant& TraceDensity)
{
    const auto document = Document();
    if (!document)
        return NoDocument("trace fringes");
    const bool densityGiven = !std::holds_alternative<std::monostate>(TraceDensity);
    const std::optional<FringeDensity> density =
        densityGiven ? DensityKeyword(TraceDensity) : m_session.Prefs.AutoTraceFringeDensity;
    if (!density)
        return AutomationError{
            ErrorInvalidFringeDensity, "Invalid trace density parameter passed to AutoTrace."};
    const std::optional<FringeDirection> direction = DirectionKeyword(Direction);
    if (!direction)
        return AutomationError{ErrorInvalidTraceDirection, "Invalid trace direction parameter."};
    if (document->Aperture.GetShapeType() == ShapeKind::None)
        return AutomationError{
            ErrorNoAperture, "Can't trace fringe centers until an aperture is defined."};
    return document->AutoTraceFringes(*direction, *density);
}

Raised<bool> MorvaneDoc::Analyze()
{
    const auto document = Document();
    if (!document)
        return NoDocument("perform analysis");
    if (document->Aperture.GetShapeType() == ShapeKind::None)
        return AutomationError{ErrorNoAperture, NoDocument("perform analysis").Description};
    if (document->Fringes.TotalNumTicks() == 0)
        return AutomationError{
            ErrorNoFringeCenters, "Can't perform analysis until fringe centers have been traced."};
    // The options are those that the script has chosen, whatever the document had before.
    const AnalyzeOptions chosen = m_session.Analyze.Options();
    m_session.BringToFront(*document);
    m_session.Analyze.SetOptions(chosen);
    return m_session.ApplyAnalysis(*document);
}

Raised<double> MorvaneDoc::Aberration(const Variant& Type)
{
    const auto document = Document();
    if (!document)
        return NoDocument("read aberrations");
    const std::optional<AberrationType> type = AberrationKeyword(Type);
    if (!type)
        return AutomationError{ErrorInvalidAberration, "Invalid aberration type parameter."};
    switch (*type) {
    case AberrationType::RMS:
        return document->Figures.RMS * document->DisplayScale;
    case AberrationType::PV:
        return document->Figures.PV * document->DisplayScale;
    case AberrationType::Strehl:
        return document->Figures.Strehl;
    default:
        break;
    }
    const double value = document->Kingslake(static_cast<int>(*type) + 1);
    return IsAngle(*type) ? value : value * document->DisplayScale;
}

Raised<double> MorvaneDoc::Zernike(const Variant& Polynomial)
{
    const auto document = Document();
    if (!document)
        return NoDocument("read Zernike coefficients");
    const std::optional<int> index = WholeNumber(Polynomial);
    if (!index || *index < 1 || *index > NumZernikes)
        return AutomationError{ErrorInvalidNumber,
            "Zernike polynomial coefficients must be specified using the integers 1-36."};
    return document->Zernike(*index);
}

Raised<FringeCenterResult> MorvaneDoc::FringeCenter(const Variant& Order, const Variant& Fringe)
{
    const auto document = Document();
    if (!document)
        return NoDocument("read fringe centers");
    const std::optional<int> order = WholeNumber(Order);
    int slot = order ? document->Fringes.GetFringeIndex(*order) : NoFringe;
    if (slot == NoFringe)
        return AutomationError{ErrorInvalidFringeOrder, "Invalid fringe order."};
    const std::optional<int> tick = WholeNumber(Fringe);
    if (!tick || *tick < 1 || *tick > document->Fringes.GetNumTicks(*order, slot))
        return AutomationError{ErrorInvalidFringeIndex, "Invalid fringe index."};
    const Point center = document->Fringes.GetCenter(*order, *tick, slot);
    return FringeCenterResult{true, center.X, center.Y};
}

Raised<bool> MorvaneDoc::ExportMap(const Variant& FilePath)
{
    const auto document = Document();
    const auto* path = std::get_if<std::string>(&FilePath);
    return document && path && WriteMap(*document, AbsolutePath(*path));
}

} // namespace morvane
