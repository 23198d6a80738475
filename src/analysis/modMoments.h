// The inner loops of the fit: the values of the terms at a block of samples, and the sums of their
// products, in the widest registers of the processor.
//
// Every sum runs in NumLanes partial sums, sample n of a block going to lane n % NumLanes, and no
// product is fused with its sum. So all kernels, whatever their registers, give the same bits.
#pragma once
#include <array>
#include <span>

#include "analysis/Zernike.h"

namespace morvane {

inline constexpr int NumFitColumns = NumZernikes + 1; // the terms, then the height
inline constexpr int FitBlockSize = 64; // samples; the terms of a block stay in the first cache
inline constexpr int NumLanes = 8;
inline constexpr int RegisterBytes = 64; // the widest registers, and the alignment for them

// Positions in the pupil and heights of the first Count samples.
struct FitBlock {
    alignas(RegisterBytes) std::array<double, FitBlockSize> X{}, Y{}, Z{};
    int Count = 0;
};

// The columns of the fit at the samples of a block, 0 beyond its Count.
struct FitColumns {
    alignas(RegisterBytes) double Values[NumFitColumns][FitBlockSize];
};

// Sum of each column, and of each product of two, the lower triangle row by row; that of the
// heights with themselves is not needed and stays 0.
struct FitSums {
    static constexpr int NumProducts = NumFitColumns * (NumFitColumns + 1) / 2;
    static constexpr int ProductIndex(int Row, int Column) { return Row * (Row + 1) / 2 + Column; }
    double Column(int Column) const;
    double Product(int Row, int Column) const; // Row >= Column

    alignas(RegisterBytes) double ColumnLanes[NumFitColumns][NumLanes] = {};
    alignas(RegisterBytes) double ProductLanes[NumProducts][NumLanes] = {};
};

struct FitKernel {
    const char* Name;
    void (*EvalColumns)(const FitBlock& Block, FitColumns& Columns);
    void (*AddMoments)(const FitColumns& Columns, FitSums& Sums);
};

// The kernels that this processor runs, the fastest first; the last runs everywhere.
std::span<const FitKernel> FitKernels();

} // namespace morvane
