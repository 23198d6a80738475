#include "analysis/modFit.h"

#include <algorithm>
#include <cmath>

#include "analysis/ModMathLib.h"
#include "analysis/TriangularFactor.h"
#include "analysis/modMoments.h"
#include "platform/Numbers.h"

namespace morvane {

namespace {

// The normal equations square the condition of the samples. Down to this share of a pivot, near
// that of a full circle, they lose nothing that matters; below it the solution is refined.
constexpr double WellConditionedShare = 0.2;
constexpr int MaxRefinements = 12;

// Nearest whole number, halves to even, of values below 2^51: adding 1.5 * 2^52 leaves no bits
// for a fraction. Quicker than a call for every sample.
double nearest(double value)
{
    constexpr double shift = 6755399441055744.0;
    return (value + shift) - shift;
}

constexpr std::size_t NoCell = static_cast<std::size_t>(-1);

// Index of the mask's cell that a position rounds to. One that is not a number lies on no cell.
std::size_t cellUnder(const MaskView& mask, double x, double y)
{
    const double column = nearest(x), row = nearest(y);
    if (!(column >= 0 && column < mask.Width && row >= 0 && row < mask.Height))
        return NoCell;
    return static_cast<std::size_t>(row) * mask.Width + static_cast<std::size_t>(column);
}

// Hands the samples that count to use, a block at a time; the last may be empty. The cells under
// a full store lie all over a mask larger than the caches, so each is fetched a block ahead.
template <class Use>
void forEachBlock(const FitSamples& samples, const MaskView& mask, const Pupil& frame, Use use)
{
    const std::size_t numSamples = samples.X.size();
    std::array<std::size_t, FitBlockSize> cells; // of the next samples, a ring
    const auto fetch = [&](std::size_t i) {
        const std::size_t cell = cellUnder(mask, samples.X[i], samples.Y[i]);
        cells[i % FitBlockSize] = cell;
        if (cell != NoCell)
            __builtin_prefetch(&mask.Cells[cell]);
    };
    for (std::size_t i = 0; i < FitBlockSize && i < numSamples; ++i)
        fetch(i);

    FitBlock block;
    for (std::size_t i = 0; i < numSamples; ++i) {
        const std::size_t cell = cells[i % FitBlockSize];
        if (i + FitBlockSize < numSamples)
            fetch(i + FitBlockSize);
        if (cell == NoCell || mask.Cells[cell] != MaskInside)
            continue;
        block.X[block.Count] = (samples.X[i] - frame.CenterX) * frame.ScaleX;
        block.Y[block.Count] = (samples.Y[i] - frame.CenterY) * frame.ScaleY;
        block.Z[block.Count] = samples.Z[i];
        if (++block.Count == FitBlockSize) {
            use(block);
            block.Count = 0;
        }
    }
    use(block);
}

int automaticNumTerms(std::size_t numPoints)
{
    if (numPoints < 5)
        return 2;
    if (numPoints < 26)
        return 8;
    if (numPoints < 41)
        return 15;
    return numPoints < 71 ? 24 : NumZernikes;
}

// The terms are orthogonal over the whole circle only: a polygon that covers little of it does
// not carry the higher ones.
int largestNumTerms(const MaskView& mask, const Pupil& frame)
{
    if (frame.ApertureType != ShapeKind::Polygon)
        return NumZernikes;
    const auto inside = std::count(mask.Cells.begin(), mask.Cells.end(), MaskInside);
    const double circle = RoundToLong(Pi / (frame.ScaleX * frame.ScaleX));
    const double covered = static_cast<double>(inside) / circle;
    if (covered < 0.2)
        return 8;
    if (covered < 0.4)
        return 15;
    return covered < 0.6 ? 24 : NumZernikes;
}

// One least-squares problem: means and covariances of the columns, from one pass over the samples.
class Fit {
public:
    Fit(const FitSamples& samples, const MaskView& mask, const Pupil& frame)
        : m_samples(samples), m_mask(mask), m_frame(frame)
    {
        FitSums sums;
        FitColumns columns;
        forEachBlock(m_samples, m_mask, m_frame, [&](const FitBlock& block) {
            m_kernel.EvalColumns(block, columns);
            m_kernel.AddMoments(columns, sums);
            m_numSamples += block.Count;
        });
        if (m_numSamples > 0)
            center(sums);
    }

    int NumSamples() const { return m_numSamples; }

    // All 0 if there are no samples, a term depends exactly on those before it, or the numbers
    // leave the range of double.
    ZernikeSet Solve(int numTerms) const
    {
        if (m_numSamples == 0 || numTerms < 1)
            return {};
        const TriangularFactor factor(m_covariances, numTerms);
        if (factor.IsSingular())
            return {};
        ZernikeSet solution = factor.Solve(m_heightCovariances);
        if (factor.LeastPivotShare() < WellConditionedShare)
            refine(factor, solution);
        const bool isFinite = std::all_of(
            solution.begin(), solution.end(), [](double value) { return std::isfinite(value); });
        return isFinite ? solution : ZernikeSet{};
    }

private:
    void center(const FitSums& sums)
    {
        const double n = m_numSamples;
        for (int i = 0; i < NumFitColumns; ++i)
            m_means[i] = sums.Column(i) / n;
        for (int j = 0; j < NumZernikes; ++j)
            for (int i = 0; i <= j; ++i)
                m_covariances[j][i] = sums.Product(j, i) / n - m_means[j] * m_means[i];
        for (int i = 0; i < NumZernikes; ++i)
            m_heightCovariances[i] =
                sums.Product(NumZernikes, i) / n - m_means[NumZernikes] * m_means[i];
    }

    // Covariances of the terms with what the solution leaves of the heights.
    ZernikeSet residualCovariances(const ZernikeSet& solution) const
    {
        double piston = m_means[NumZernikes];
        for (int i = 0; i < NumZernikes; ++i)
            piston -= m_means[i] * solution[i];
        ZernikeSet products{};
        double sum = 0;
        FitColumns columns;
        forEachBlock(m_samples, m_mask, m_frame, [&](const FitBlock& block) {
            m_kernel.EvalColumns(block, columns);
            std::array<double, FitBlockSize> residuals{};
            for (int n = 0; n < block.Count; ++n)
                residuals[n] = block.Z[n] - piston;
            for (int i = 0; i < NumZernikes; ++i)
                for (int n = 0; n < FitBlockSize; ++n)
                    residuals[n] -= solution[i] * columns.Values[i][n];
            for (int i = 0; i < NumZernikes; ++i) {
                double product = 0;
                for (int n = 0; n < FitBlockSize; ++n)
                    product += columns.Values[i][n] * residuals[n];
                products[i] += product;
            }
            for (const double residual : residuals)
                sum += residual;
        });
        for (int i = 0; i < NumZernikes; ++i)
            products[i] = (products[i] - m_means[i] * sum) / m_numSamples;
        return products;
    }

    // In a thin aperture the terms are nearly dependent and the covariances have lost digits. The
    // residual heights have not: their solution corrects the first one. Stops when a correction
    // is not less than half of the one before, so a problem too near to singular stays as it is.
    void refine(const TriangularFactor& factor, ZernikeSet& solution) const
    {
        const auto largest = [](const ZernikeSet& values) {
            double result = 0;
            for (const double value : values)
                result = std::max(result, std::abs(value));
            return result;
        };
        double size = largest(solution);
        for (int i = 0; i < MaxRefinements; ++i) {
            const ZernikeSet correction = factor.Solve(residualCovariances(solution));
            if (!(largest(correction) < 0.5 * size))
                return;
            size = largest(correction);
            for (int k = 0; k < NumZernikes; ++k)
                solution[k] += correction[k];
        }
    }

    const FitKernel& m_kernel = FitKernels().front();
    const FitSamples& m_samples;
    const MaskView& m_mask;
    const Pupil& m_frame;
    int m_numSamples = 0;
    std::array<double, NumFitColumns> m_means{};
    TermCovariances m_covariances{};
    ZernikeSet m_heightCovariances{};
};

} // namespace

bool CanFit(std::size_t NumSamples, const MaskView& Mask)
{
    return NumSamples >= 4 && Mask.Width >= 2 && Mask.Height >= 2;
}

int FitFringeCenters(const FitSamples& Samples, const MaskView& Mask, const Pupil& Frame,
    int& NumZernikeToFit, ZernikeSet& Coefficients)
{
    const std::size_t numPoints = Samples.X.size();
    if (!CanFit(numPoints, Mask))
        return static_cast<int>(numPoints);
    if (NumZernikeToFit == 0)
        NumZernikeToFit = automaticNumTerms(numPoints);
    NumZernikeToFit = std::min(NumZernikeToFit, largestNumTerms(Mask, Frame));

    const Fit fit(Samples, Mask, Frame);
    Coefficients = fit.Solve(NumZernikeToFit);
    return fit.NumSamples();
}

} // namespace morvane
