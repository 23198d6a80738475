#include "platform/Numbers.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace morvane {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr std::int32_t LongMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t LongMax = std::numeric_limits<std::int32_t>::max();

TEST(Numbers, RoundToLongTakesHalvesToEvenAndSaturates)
{
    const struct {
        double Value;
        std::int32_t Rounded;
    } cases[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {-0.5, 0},
        {-1.5, -2},
        {0.49999999999999994, 0},
        {2147483646.5, 2147483646},
        {2147483647.5, LongMax},
        {-2147483648.5, LongMin},
        {1e308, LongMax},
        {-Infinity, LongMin},
        {std::nan(""), 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(RoundToLong(c.Value), c.Rounded) << c.Value;
}

TEST(Numbers, ANumberIsReadAsFarAsItGoes)
{
    const struct {
        const char* Text;
        double Value;
        bool IsNumeric;
    } cases[] = {
        {"12.5", 12.5, true},
        {" \t-3 ", -3, true},
        {"+.5", 0.5, true},
        {"5.", 5, true},
        {"1E3", 1000, true},
        {"1e-2", 0.01, true},
        {"7 apples", 7, false},
        {"1e", 1, false},
        {"1e+", 1, false},
        {"1,5", 1, false},
        {"0x10", 0, false},
        {"", 0, false},
        {"-", 0, false},
        {".", 0, false},
        {"+-1", 0, false},
        {"--1", 0, false},
        {"inf", 0, false},
        {"-nan", 0, false},
        {"- 1", 0, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(LeadingNumber(c.Text), c.Value) << c.Text;
        EXPECT_EQ(IsNumeric(c.Text), c.IsNumeric) << c.Text;
    }
}

TEST(Numbers, ANumberBeyondDoubleSaturatesOrVanishes)
{
    const std::string zeros(400, '0');
    const struct {
        std::string Text;
        double Value;
    } cases[] = {
        {"1e400", Largest},
        {"-1e400", -Largest},
        {"1e-400", 0},
        {"1e99999999999999999999", Largest},
        {"1e-99999999999999999999", 0},
        {"0e99999999999999999999", 0},
        {"1" + zeros, Largest},
        {"0." + zeros + "1", 0},
        {"0." + zeros + "1e+401", 1},
        {"0." + zeros + "1e800", Largest},
        {"1" + zeros + "e-800", 0},
        {"5e-324", 5e-324},
    };
    for (const auto& c : cases)
        EXPECT_EQ(LeadingNumber(c.Text), c.Value) << c.Text;
}

TEST(Numbers, ShortestTextAndFileFieldsReadBackToTheSameDouble)
{
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        std::string field;
        AppendNumberField(field, value);
        EXPECT_EQ(LeadingNumber(FormatShortest(value)), value);
        EXPECT_EQ(LeadingNumber(field), value);
        EXPECT_EQ(field.front(), value < 0 ? '-' : ' ');
    }
    EXPECT_TRUE(std::signbit(LeadingNumber(FormatShortest(-0.0))));
}

TEST(Numbers, WholeFieldsHaveABlankOnEachSide)
{
    std::string text;
    for (const std::int32_t value : {0, 17, -3, LongMin, LongMax})
        AppendWholeField(text, value);
    EXPECT_EQ(text, " 0  17 -3 -2147483648  2147483647 ");
}

TEST(Numbers, GeneralFormHasFifteenDigits)
{
    EXPECT_EQ(FormatGeneral(0.1 + 0.2), "0.3");
    EXPECT_EQ(FormatGeneral(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(FormatGeneral(1e-5), "1e-05");
    EXPECT_EQ(FormatGeneral(-512.25), "-512.25");
    EXPECT_EQ(FormatGeneral(-0.0), "0");
}

TEST(Numbers, FixedFormRoundsTheDecimalText)
{
    const struct {
        double Value;
        int Decimals;
        const char* Text;
    } cases[] = {
        {1.005, 2, "1.01"}, // the double lies below
        {2.675, 2, "2.68"},
        {0.125, 2, "0.13"},
        {-0.125, 2, "-0.13"},
        {2.5, 0, "3"},
        {0.5, 0, "1"},
        {0.4999, 0, "0"},
        {9.996, 2, "10.00"},
        {99.5, 0, "100"},
        {0.05, 1, "0.1"},
        {0.04, 1, "0.0"},
        {0.0005, 2, "0.00"},
        {-0.004, 2, "0.00"},
        {-0.0, 3, "0.000"},
        {1234.5, 4, "1234.5000"},
        {1e21, 1, "1000000000000000000000.0"},
        {0.0123, 3, "0.012"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatFixed(c.Value, c.Decimals), c.Text) << c.Value << ' ' << c.Decimals;
}

} // namespace
} // namespace morvane
