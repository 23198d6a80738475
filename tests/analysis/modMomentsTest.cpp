#include "analysis/modMoments.h"

#include <cmath>
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include "analysis/ZernikeReference.h"

namespace morvane {

namespace {

FitBlock randomBlock(std::mt19937& random, int count)
{
    std::uniform_real_distribution<double> position(-0.7, 0.7), height(-20, 20);
    FitBlock block;
    for (int n = 0; n < FitBlockSize; ++n) { // what lies beyond the count must not be used
        block.X[n] = position(random);
        block.Y[n] = position(random);
        block.Z[n] = height(random);
    }
    block.Count = count;
    return block;
}

} // namespace

TEST(FitKernels, SumTheProductsOfTheTermsAndTheHeight)
{
    std::mt19937 random(5);
    const FitBlock blocks[] = {randomBlock(random, FitBlockSize), randomBlock(random, 0),
        randomBlock(random, 1), randomBlock(random, 13)};
    long double sums[NumFitColumns] = {}, products[NumFitColumns][NumFitColumns] = {};
    for (const FitBlock& block : blocks) {
        for (int n = 0; n < block.Count; ++n) {
            std::array<long double, NumFitColumns> columns{};
            const auto terms = ReferenceTerms(block.X[n], block.Y[n]);
            std::copy(terms.begin(), terms.end(), columns.begin());
            columns[NumZernikes] = block.Z[n];
            for (int j = 0; j < NumFitColumns; ++j) {
                sums[j] += columns[j];
                for (int i = 0; i <= j; ++i)
                    products[j][i] += columns[j] * columns[i];
            }
        }
    }
    constexpr double rounding = 1e-11; // 78 samples of magnitude up to 20
    for (const FitKernel& kernel : FitKernels()) {
        FitSums result;
        for (const FitBlock& block : blocks) {
            FitColumns columns;
            kernel.EvalColumns(block, columns);
            kernel.AddMoments(columns, result);
        }
        for (int j = 0; j < NumFitColumns; ++j) {
            EXPECT_NEAR(result.Column(j), static_cast<double>(sums[j]), rounding)
                << kernel.Name << " " << j;
            for (int i = 0; i <= j && i < NumZernikes; ++i)
                EXPECT_NEAR(result.Product(j, i), static_cast<double>(products[j][i]), rounding)
                    << kernel.Name << " " << j << " " << i;
        }
    }
}

TEST(FitKernels, GiveTheSameBits)
{
    std::mt19937 random(6);
    FitSums expected;
    for (const FitKernel& kernel : FitKernels()) {
        random.seed(6);
        FitSums sums;
        for (int i = 0; i < 50; ++i) {
            FitColumns columns;
            kernel.EvalColumns(randomBlock(random, i % 3 == 0 ? i : FitBlockSize), columns);
            kernel.AddMoments(columns, sums);
        }
        if (&kernel == &FitKernels().front())
            expected = sums;
        for (int j = 0; j < NumFitColumns; ++j)
            for (int i = 0; i <= j && i < NumZernikes; ++i)
                ASSERT_EQ(sums.Product(j, i), expected.Product(j, i)) << kernel.Name;
        for (int j = 0; j < NumFitColumns; ++j)
            ASSERT_EQ(sums.Column(j), expected.Column(j)) << kernel.Name;
    }
}

} // namespace morvane
