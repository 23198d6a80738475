#include "analysis/Zernike.h"

#include <gtest/gtest.h>

#include "analysis/ZernikeReference.h"

namespace morvane {

TEST(ZernikeTerms, AreTheRadialPolynomialsTimesCosineAndSine)
{
    constexpr double rounding = 2e-14; // of some 30 operations on values up to 1
    for (int ring = 0; ring <= 20; ++ring) {
        for (int spoke = 0; spoke < 23; ++spoke) {
            const double r = ring / 20.0, angle = 0.1 + spoke * 0.27;
            const double x = r * std::cos(angle), y = r * std::sin(angle);
            const ZernikeSet terms = EvalZernikeTerms(x, y);
            const auto expected = ReferenceTerms(x, y);
            for (int i = 0; i < NumZernikes; ++i)
                EXPECT_NEAR(terms[i], static_cast<double>(expected[i]), rounding)
                    << "term " << i + 1 << " at " << x << ", " << y;
        }
    }
}

TEST(ZernikeTerms, AreExactAtCenterAndEdge)
{
    const ZernikeSet center = EvalZernikeTerms(0, 0), edge = EvalZernikeTerms(1, 0);
    const ZernikeSet bottom = EvalZernikeTerms(0, 1);
    for (const int symmetric : {3, 8, 15, 24, 35, 36})
        EXPECT_EQ(std::abs(center[symmetric - 1]), 1) << symmetric;
    for (const int cosine : {1, 3, 4, 6, 8, 9, 11, 13, 15, 22, 24, 33, 35, 36})
        EXPECT_EQ(edge[cosine - 1], 1) << cosine;
    for (const int alongY : {2, 7, 14, 23, 34}) // y grows downward, as in the image
        EXPECT_EQ(bottom[alongY - 1], 1) << alongY;
}

TEST(EvalZernike, WeighsEachTermWithItsOwnCoefficient)
{
    const double x = 0.3, y = -0.6;
    const ZernikeSet terms = EvalZernikeTerms(x, y);
    for (int i = 0; i < NumZernikes; ++i) {
        ZernikeSet coefficients{};
        coefficients[i] = -2.5;
        EXPECT_EQ(EvalZernike(x, y, coefficients), -2.5 * terms[i]) << "term " << i + 1;
    }
}

TEST(ZernikeRemove, ZeroesTheTermsOfEachFlag)
{
    const struct {
        const char* Name;
        RemoveFlags Flags;
        int First, Last; // terms
    } cases[] = {
        {"tilt", {.Tilt = true}, 1, 2},
        {"focus", {.Focus = true}, 3, 3},
        {"astigmatism", {.Astigmatism = true}, 4, 5},
        {"coma", {.Coma = true}, 6, 7},
        {"spherical", {.Spherical = true}, 8, 8},
        {"all", {true, true, true, true, true}, 1, 8},
        {"nothing", {}, 0, 0},
    };
    for (const auto& c : cases) {
        ZernikeSet coefficients;
        coefficients.fill(1);
        Remove(c.Flags, coefficients);
        for (int n = 1; n <= NumZernikes; ++n)
            EXPECT_EQ(coefficients[n - 1], n >= c.First && n <= c.Last ? 0 : 1) << c.Name << n;
    }
}

} // namespace morvane
