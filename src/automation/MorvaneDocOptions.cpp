// The members of MorvaneDoc that act on the options of the analysis window.
#include "automation/Keywords.h"
#include "automation/MorvaneDoc.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

using enum MorvaneDocErrors;

AutomationError NotBoolean(const char* Property)
{
    return {ErrorInvalidBoolean,
        std::string("The '") + Property + "' property must be assigned a boolean value."};
}

// The flag that a type of aberration stands for; nullptr for those that cannot be removed.
bool* RemoveFlag(RemoveFlags& Flags, const Variant& Type)
{
    const std::optional<AberrationType> type = AberrationKeyword(Type);
    if (!type)
        return nullptr;
    switch (*type) {
    case AberrationType::Tilt:
        return &Flags.Tilt;
    case AberrationType::Defocus:
        return &Flags.Focus;
    case AberrationType::Astigmatism:
        return &Flags.Astigmatism;
    case AberrationType::Coma:
        return &Flags.Coma;
    case AberrationType::SA:
        return &Flags.Spherical;
    default:
        return nullptr;
    }
}

} // namespace

template <typename Change>
void MorvaneDoc::ChangeOptions(Change Apply)
{
    AnalyzeOptions options = m_session.Analyze.Options();
    Apply(options);
    m_session.Analyze.SetOptions(options);
}

double MorvaneDoc::GetInputWavelength() const
{
    return LeadingNumber(m_session.Analyze.Options().InputWavelength);
}

Raised<bool> MorvaneDoc::SetInputWavelength(const Variant& Value)
{
    const std::optional<double> wavelength = Numeric(Value);
    if (!wavelength)
        return AutomationError{
            ErrorInvalidNumber, "The input wavelength must be assigned a numeric value."};
    ChangeOptions([&](AnalyzeOptions& o) { o.InputWavelength = FormatShortest(*wavelength); });
    return true;
}

double MorvaneDoc::GetOutputWavelength() const
{
    return LeadingNumber(m_session.Analyze.Options().OutputWavelength);
}

Raised<bool> MorvaneDoc::SetOutputWavelength(const Variant& Value)
{
    const std::optional<double> wavelength = Numeric(Value);
    if (!wavelength)
        return AutomationError{
            ErrorInvalidNumber, "The output wavelength must be assigned a numeric value."};
    ChangeOptions([&](AnalyzeOptions& o) { o.OutputWavelength = FormatShortest(*wavelength); });
    return true;
}

double MorvaneDoc::GetScaleFactor() const
{
    const AnalyzeOptions& options = m_session.Analyze.Options();
    switch (options.Scale) {
    case ScaleChoice::Half:
        return 0.5;
    case ScaleChoice::One:
        return 1.0;
    case ScaleChoice::Custom:
        break;
    }
    return LeadingNumber(options.CustomScale);
}

Raised<bool> MorvaneDoc::SetScaleFactor(const Variant& Value)
{
    const std::optional<double> scale = Numeric(Value);
    if (!scale)
        return AutomationError{
            ErrorInvalidType, "Scale Factors must be specified using a numeric data type."};
    ChangeOptions([&](AnalyzeOptions& o) {
        o.Scale = *scale == 0.5 ? ScaleChoice::Half
            : *scale == 1.0     ? ScaleChoice::One
                                : ScaleChoice::Custom;
        if (o.Scale == ScaleChoice::Custom)
            o.CustomScale = FormatShortest(*scale);
    });
    return true;
}

bool MorvaneDoc::GetInvertWavefront() const
{
    return m_session.Analyze.Options().InvertWavefront;
}

Raised<bool> MorvaneDoc::SetInvertWavefront(const Variant& Value)
{
    const bool* invert = std::get_if<bool>(&Value);
    if (!invert)
        return NotBoolean("Invert Wavefront");
    ChangeOptions([&](AnalyzeOptions& o) { o.InvertWavefront = *invert; });
    return true;
}

bool MorvaneDoc::GetTrimEdges() const
{
    return m_session.Analyze.Options().TrimEdges;
}

Raised<bool> MorvaneDoc::SetTrimEdges(const Variant& Value)
{
    const bool* trim = std::get_if<bool>(&Value);
    if (!trim)
        return NotBoolean("Trim Edges");
    ChangeOptions([&](AnalyzeOptions& o) { o.TrimEdges = *trim; });
    return true;
}

int MorvaneDoc::GetOrderLimit() const
{
    return TermsOf(m_session.Analyze.Options().Limit);
}

Raised<bool> MorvaneDoc::SetOrderLimit(const Variant& Value)
{
    const std::optional<OrderLimit> limit = OrderLimitKeyword(Value);
    if (!limit)
        return AutomationError{
            ErrorInvalidNumber, "Zernike Order Limit must be specified usiong an integer."};
    ChangeOptions([&](AnalyzeOptions& o) { o.Limit = *limit; });
    return true;
}

Raised<bool> MorvaneDoc::GetRemove(const Variant& Type) const
{
    RemoveFlags flags = m_session.Analyze.Options().Removed;
    if (const bool* flag = RemoveFlag(flags, Type))
        return *flag;
    return AutomationError{ErrorInvalidAberration, "Invalid aberration type parameter."};
}

Raised<bool> MorvaneDoc::SetRemove(const Variant& Type, const Variant& Value)
{
    AnalyzeOptions options = m_session.Analyze.Options();
    bool* const flag = RemoveFlag(options.Removed, Type);
    if (!flag)
        return AutomationError{ErrorInvalidAberration, "Invalid aberration type parameter."};
    const bool* remove = std::get_if<bool>(&Value);
    if (!remove)
        return NotBoolean("Remove");
    *flag = *remove;
    m_session.Analyze.SetOptions(options);
    return true;
}

} // namespace morvane
