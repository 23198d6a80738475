#include "analysis/modMoments.h"

#include "analysis/ZernikeTerms.h"

namespace morvane {

namespace {

// The least that every processor of the target has: SSE2, NEON.
namespace generic {
constexpr int Width = 2, Tile = 3;
#define KERNEL_TARGET
#include "analysis/modMomentsKernel.inc"
#undef KERNEL_TARGET
} // namespace generic

#if defined(__x86_64__)
// 16 registers: 9 sums, 3 factors and what is in flight.
namespace avx2 {
constexpr int Width = 4, Tile = 3;
#define KERNEL_TARGET __attribute__((target("avx2")))
#include "analysis/modMomentsKernel.inc"
#undef KERNEL_TARGET
} // namespace avx2

// 32 registers: 16 sums, 4 factors and what is in flight.
namespace avx512 {
constexpr int Width = 8, Tile = 4;
#define KERNEL_TARGET __attribute__((target("avx512f")))
#include "analysis/modMomentsKernel.inc"
#undef KERNEL_TARGET
} // namespace avx512
#endif

constexpr FitKernel kernels[] = {
#if defined(__x86_64__)
    {"AVX-512", avx512::evalColumns, avx512::addMoments},
    {"AVX2", avx2::evalColumns, avx2::addMoments},
#endif
    {"generic", generic::evalColumns, generic::addMoments},
};

int firstSupported()
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx512f"))
        return 0;
    return __builtin_cpu_supports("avx2") ? 1 : 2;
#else
    return 0;
#endif
}

double sumOf(const double (&lanes)[NumLanes])
{
    double sum = 0;
    for (const double lane : lanes)
        sum += lane;
    return sum;
}

} // namespace

double FitSums::Column(int Column) const
{
    return sumOf(ColumnLanes[Column]);
}

double FitSums::Product(int Row, int Column) const
{
    return sumOf(ProductLanes[ProductIndex(Row, Column)]);
}

std::span<const FitKernel> FitKernels()
{
    return std::span(kernels).subspan(static_cast<std::size_t>(firstSupported()));
}

} // namespace morvane
