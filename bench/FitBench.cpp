// The fit of a full fringe store, against the same terms, means and normal equations with the sums
// of products from OpenBLAS.
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include <benchmark/benchmark.h>
#include <cblas.h>

#include "analysis/TriangularFactor.h"
#include "analysis/modFit.h"
#include "analysis/modMoments.h"
#include "geometry/clsFringes.h"

namespace morvane {
namespace {

constexpr int Size = 4096;
constexpr double Radius = 2000, Center = 2048;
constexpr double WorstDifference = 1e-9; // of the two sides' coefficients

struct FullStore {
    std::vector<double> X, Y, Z;
    std::vector<std::uint8_t> Cells;
    Pupil Frame{Center, Center, 1 / Radius, 1 / Radius, ShapeKind::Circle};

    FitSamples Samples() const { return {X, Y, Z}; }
    MaskView Mask() const { return {Cells, Size, Size}; }
};

// 200 fringes of 4000 ticks, each along its whole chord of the circle.
const FullStore& fullStore()
{
    static const FullStore store = [] {
        FullStore result;
        for (int row = 0; row < Size; ++row)
            for (int column = 0; column < Size; ++column)
                result.Cells.push_back(std::hypot(column - Center, row - Center) <= Radius);
        for (int order = 1; order <= MaxFringes; ++order) {
            const double x = (2.0 * order - MaxFringes - 1) / MaxFringes;
            const double halfChord = std::sqrt(1 - x * x) * 0.999;
            for (int tick = 0; tick < MaxTicks; ++tick) {
                const double y = halfChord * (2.0 * tick / (MaxTicks - 1) - 1);
                result.X.push_back(Center + Radius * x);
                result.Y.push_back(Center + Radius * y);
                result.Z.push_back(order + 0.3 * y * y + 0.1 * std::sin(7 * x + 5 * y));
            }
        }
        return result;
    }();
    return store;
}

// A column of ones makes the means come out with the products. Blocks of 256 samples are the
// quickest: with more dsyrk gains nothing.
class BlasFit {
public:
    ZernikeSet Fit(const FullStore& store)
    {
        m_products = {};
        FitBlock block;
        for (std::size_t i = 0; i < store.X.size(); ++i) {
            // Positions are positive; a rounding function would be a call for each.
            const int column =
                static_cast<int>(store.X[i] + 0.5); // NOLINT(bugprone-incorrect-roundings)
            const int row =
                static_cast<int>(store.Y[i] + 0.5); // NOLINT(bugprone-incorrect-roundings)
            if (!store.Mask().IsInside(column, row))
                continue;
            block.X[block.Count] = (store.X[i] - store.Frame.CenterX) * store.Frame.ScaleX;
            block.Y[block.Count] = (store.Y[i] - store.Frame.CenterY) * store.Frame.ScaleY;
            block.Z[block.Count] = store.Z[i];
            if (++block.Count == FitBlockSize)
                addColumns(block);
        }
        addColumns(block);
        addProducts();
        return solve();
    }

private:
    static constexpr int Ones = NumFitColumns, NumColumns = NumFitColumns + 1, Depth = 256;
    static_assert(Depth % FitBlockSize == 0);

    void addColumns(FitBlock& block)
    {
        m_kernel.EvalColumns(block, m_block);
        for (int i = 0; i < NumFitColumns; ++i) {
            const auto& values = m_block.Values[i];
            std::copy(std::begin(values), std::end(values), &m_columns[i][m_filled]);
        }
        for (int n = 0; n < FitBlockSize; ++n)
            m_columns[Ones][m_filled + n] = n < block.Count ? 1 : 0;
        block.Count = 0;
        m_filled += FitBlockSize;
        if (m_filled == Depth)
            addProducts();
    }

    void addProducts()
    {
        cblas_dsyrk(CblasRowMajor, CblasLower, CblasNoTrans, NumColumns, m_filled, 1,
            m_columns[0].data(), Depth, 1, m_products[0].data(), NumColumns);
        m_filled = 0;
    }

    ZernikeSet solve() const
    {
        const auto& sums = m_products[Ones];
        const double n = sums[Ones];
        const auto covariance = [&](int j, int i) {
            return m_products[j][i] / n - sums[j] / n * (sums[i] / n);
        };
        TermCovariances covariances{};
        ZernikeSet heights{};
        for (int j = 0; j < NumZernikes; ++j) {
            for (int i = 0; i <= j; ++i)
                covariances[j][i] = covariance(j, i);
            heights[j] = covariance(NumZernikes, j);
        }
        return TriangularFactor(covariances, NumZernikes).Solve(heights);
    }

    FitColumns m_block;
    alignas(RegisterBytes) std::array<std::array<double, Depth>, NumColumns> m_columns;
    std::array<std::array<double, NumColumns>, NumColumns> m_products{};
    const FitKernel& m_kernel = FitKernels().front();
    int m_filled = 0;
};

void fitOurs(benchmark::State& state)
{
    const FullStore& store = fullStore();
    ZernikeSet coefficients{};
    for (auto _ : state) {
        int numTerms = NumZernikes;
        FitFringeCenters(store.Samples(), store.Mask(), store.Frame, numTerms, coefficients);
        benchmark::DoNotOptimize(coefficients);
    }
    state.SetLabel(FitKernels().front().Name);
}

void fitReference(benchmark::State& state)
{
    const FullStore& store = fullStore();
    openblas_set_num_threads(1);
    BlasFit fit;
    ZernikeSet coefficients{};
    for (auto _ : state) {
        coefficients = fit.Fit(store);
        benchmark::DoNotOptimize(coefficients);
    }
    state.SetLabel(openblas_get_corename());

    ZernikeSet ours{};
    int numTerms = NumZernikes;
    FitFringeCenters(store.Samples(), store.Mask(), store.Frame, numTerms, ours);
    for (int i = 0; i < NumZernikes; ++i)
        if (!(std::abs(ours[i] - coefficients[i]) <= WorstDifference))
            state.SkipWithError("the two fits differ");
}

BENCHMARK(fitOurs)->Name("FitFringeCenters/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(fitReference)->Name("FitFringeCenters/reference")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace morvane
