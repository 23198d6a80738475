#include "shell/AnalyzeBox.h"

#include "analysis/ModMathLib.h"
#include "platform/Numbers.h"
#include "shell/modFileLib.h"

namespace morvane {
namespace {

constexpr int SharedReferenceItem = 1, FirstListedReference = 2; // in the list of references
constexpr const char* SharedReferenceName = "Custom";
constexpr double MaxCustomScale = 1000;
constexpr double MinWavelength = 1, MaxWavelength = 10000; // nm

Message Warning(const std::string& Text)
{
    return {.Text = Text, .Title = "Warning"};
}

std::optional<double> Wavelength(const std::string& Text)
{
    const double value = LeadingNumber(Text);
    if (value < MinWavelength || value > MaxWavelength)
        return std::nullopt;
    return value;
}

Message InvalidWavelength(const char* Which)
{
    return Warning(std::string("Invalid ") + Which
        + " Wavelength\r\nEnter a wavelength between 1 nm and 10000 nm");
}

OrderLimit LimitOf(int Terms)
{
    for (const OrderLimit limit :
        {OrderLimit::Eighth, OrderLimit::Sixth, OrderLimit::Fourth, OrderLimit::Second})
        if (TermsOf(limit) == Terms)
            return limit;
    return OrderLimit::Automatic;
}

// The input wavelength is not kept with a document: it follows from the factor to its unit.
double InputWavelengthOf(const clsDocument& Of)
{
    return Of.DisplayScale / DisplayScaleOf(Of.ScaleMode, 1, Of.OutWL);
}

} // namespace

int TermsOf(OrderLimit Limit)
{
    switch (Limit) {
    case OrderLimit::Eighth:
        return 24;
    case OrderLimit::Sixth:
        return 15;
    case OrderLimit::Fourth:
        return 8;
    case OrderLimit::Second:
        return 2;
    case OrderLimit::Automatic:
        break;
    }
    return 0;
}

void AnalyzeBox::SetOptions(const AnalyzeOptions& Options)
{
    m_options = Options;
    if (Changed)
        Changed();
}

void AnalyzeBox::SetControls(const clsDocument& Of)
{
    AnalyzeOptions options = m_options;
    options.Reference = ReferenceOf(Of);
    options.Scale = Of.ZScale == 0.5 ? ScaleChoice::Half
        : Of.ZScale == 1.0           ? ScaleChoice::One
                                     : ScaleChoice::Custom;
    if (options.Scale == ScaleChoice::Custom)
        options.CustomScale = FormatShortest(Of.ZScale);
    options.InvertWavefront = Of.InvertWavefront;
    options.InputWavelength = FormatSignificant(InputWavelengthOf(Of), 12, NumberStyle::Plain);
    options.OutputWavelength = FormatShortest(Of.OutWL);
    options.Unit = Of.ScaleMode;
    options.TrimEdges = Of.TrimEdges;
    options.Limit = LimitOf(Of.NumZernikeToFit);
    options.Removed = Of.Removed;
    SetOptions(options);
}

int AnalyzeBox::ReferenceOf(const clsDocument& Of) const
{
    if (!Of.HasReferenceZernikes)
        return 0;
    for (int i = 1; i <= m_references.Count(); ++i)
        if (!Of.ReferencePath.empty() && m_references.GetItem(i) == Of.ReferencePath)
            return SharedReferenceItem + i;
    return Of.GetRefZernikes() == SharedReference ? SharedReferenceItem : KeptReference;
}

std::optional<Message> AnalyzeBox::AddReference(const std::string& Path)
{
    if (!LoadReferenceFile(Path))
        return Message{.Text = "File " + Path
                + " is invalid\r\nor does not contain 36 Zernike polynomial "
                  "coefficients",
            .Title = "Error"};
    m_references.AddItem(Path);
    AnalyzeOptions options = m_options;
    options.Reference = SharedReferenceItem + m_references.Count();
    SetOptions(options);
    return std::nullopt;
}

void AnalyzeBox::RemoveReference(int Index)
{
    m_references.RemoveItem(Index - SharedReferenceItem);
    AnalyzeOptions options = m_options;
    options.Reference = Index - 1;
    SetOptions(options);
}

void AnalyzeBox::RestoreReferences(
    const std::vector<std::string>& Paths, const std::string& Selected)
{
    m_references = {};
    AnalyzeOptions options = m_options;
    options.Reference = Selected == SharedReferenceName ? SharedReferenceItem : 0;
    for (const std::string& path : Paths) {
        m_references.AddItem(path);
        if (path == Selected)
            options.Reference = SharedReferenceItem + m_references.Count();
    }
    SetOptions(options);
}

std::string AnalyzeBox::SelectedReference() const
{
    const int reference = m_options.Reference;
    return reference == SharedReferenceItem
        ? SharedReferenceName
        : m_references.GetItem(reference - FirstListedReference + 1);
}

std::optional<Message> AnalyzeBox::StoreOptions(clsDocument& Into) const
{
    const DocumentState before = Into;
    const ZernikeSet referenceBefore = Into.GetRefZernikes();
    std::optional<Message> refusal = CheckAndStore(Into);
    const DocumentState& after = Into;
    if (after != before || Into.GetRefZernikes() != referenceBefore)
        Into.Modified = true;
    return refusal;
}

std::optional<Message> AnalyzeBox::CheckAndStore(clsDocument& Into) const
{
    if (Into.Combined)
        return Warning("Cannot analyze a document created by mathematical operations.");
    if (auto message = StoreReference(Into))
        return message;
    if (auto message = StoreScaleAndUnits(Into))
        return message;
    if (auto message = StoreFitOptions(Into))
        return message;
    if (!Into.AnalysisValid && !Into.Averaged && Into.Fringes.TotalNumTicks() == 0)
        return Warning("No fringe centers to analyze");
    if (Into.Aperture.GetShapeType() == ShapeKind::None)
        return Warning("No aperture set");
    return std::nullopt;
}

std::optional<Message> AnalyzeBox::StoreReference(clsDocument& Into) const
{
    const int reference = m_options.Reference;
    if (reference == KeptReference)
        return std::nullopt;
    if (Into.Averaged && reference > 0)
        return Warning("Cannot subtract reference Zernikes from an averaged document");
    if (reference == 0) {
        if (Into.HasReferenceZernikes) {
            Into.HasReferenceZernikes = false;
            Into.AnalysisValid = false;
        }
        return std::nullopt;
    }
    if (reference == SharedReferenceItem) {
        Into.SetRefZernikes(SharedReference);
        return std::nullopt;
    }
    Into.HasReferenceZernikes = false;
    const std::string path = m_references.GetItem(reference - FirstListedReference + 1);
    const std::optional<ZernikeSet> coefficients = LoadReferenceFile(path);
    if (!coefficients)
        return Message{.Text = path + "\r\nInvalid Zernikes reference file", .Title = "Error"};
    Into.SetRefZernikes(*coefficients);
    Into.ReferencePath = path;
    return std::nullopt;
}

std::optional<Message> AnalyzeBox::StoreScaleAndUnits(clsDocument& Into) const
{
    double scale = m_options.Scale == ScaleChoice::Half ? 0.5 : 1.0;
    if (m_options.Scale == ScaleChoice::Custom) {
        scale = LeadingNumber(m_options.CustomScale);
        if (scale < 0 || scale > MaxCustomScale)
            return Warning("Invalid Custom Scale\r\nEnter a scale between 0 and 1000");
    }
    const std::optional<double> input = Wavelength(m_options.InputWavelength);
    if (!input)
        return InvalidWavelength("Input");
    const std::optional<double> output = Wavelength(m_options.OutputWavelength);
    if (!output)
        return InvalidWavelength("Output");
    Into.OutWL = *output;
    Into.ZScale = scale;
    Into.ScaleMode = m_options.Unit;
    Into.DisplayScale = DisplayScaleOf(m_options.Unit, *input, *output);
    Into.Removed = m_options.Removed;
    return std::nullopt;
}

std::optional<Message> AnalyzeBox::StoreFitOptions(clsDocument& Into) const
{
    if (m_options.InvertWavefront != Into.InvertWavefront) {
        if (Into.Averaged)
            return Warning("Cannot change the Invert Wavefront parameter of an averaged document");
        Into.InvertWavefront = m_options.InvertWavefront;
        Into.AnalysisValid = false;
    }
    if (m_options.TrimEdges != Into.TrimEdges) {
        Into.Analysis.Mask.MaskValid = false;
        Into.TrimEdges = m_options.TrimEdges;
    }
    const int terms = TermsOf(m_options.Limit);
    const bool automaticAverage = Into.Averaged && m_options.Limit == OrderLimit::Automatic;
    if (terms != Into.NumZernikeToFit && !automaticAverage) {
        if (Into.Averaged)
            return Warning("Cannot change order of fit of an averaged document");
        Into.NumZernikeToFit = terms;
        Into.AnalysisValid = false;
    }
    return std::nullopt;
}

} // namespace morvane
