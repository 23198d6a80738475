#include "shell/InputPrompt.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(InputPrompt, EachKindTakesItsCharacters)
{
    const struct {
        InputKind Kind;
        const char* Taken; // of those below
    } cases[] = {{InputKind::Text, "059-.eE, x"}, {InputKind::PositiveInteger, "059"},
        {InputKind::Integer, "059-"}, {InputKind::Decimal, "059-.eE"}};
    for (const auto& c : cases) {
        std::string taken;
        for (const char character : std::string("059-.eE, x"))
            if (AcceptsCharacter(c.Kind, static_cast<char32_t>(character)))
                taken += character;
        EXPECT_EQ(taken, c.Taken);
    }
    EXPECT_FALSE(AcceptsCharacter(InputKind::Decimal, U'\u0665')) << "a digit of another script";
}

TEST(InputPrompt, OkClampsNumbers)
{
    const struct {
        InputKind Kind;
        const char* Typed;
        double Value;
        bool Clamped;
    } cases[] = {
        {InputKind::PositiveInteger, "1", 1, false},
        {InputKind::PositiveInteger, "200", 200, false},
        {InputKind::PositiveInteger, "201", 200, true},
        {InputKind::PositiveInteger, "0", 1, true},
        {InputKind::PositiveInteger, "", 1, true},
        {InputKind::Integer, "-5", 1, true},
        {InputKind::Decimal, "1.5e1", 15, false},
        {InputKind::Decimal, "1e999", 200, true},
        {InputKind::Decimal, "3.5mm", 3.5, false},
    };
    for (const auto& c : cases) {
        InputRequest request;
        request.Kind = c.Kind;
        request.Min = 1;
        request.Max = 200;
        const InputAnswer answer = AnswerOf(request, c.Typed);
        EXPECT_EQ(answer.Value, c.Value) << c.Typed;
        EXPECT_EQ(answer.Clamped, c.Clamped) << c.Typed;
        EXPECT_EQ(answer.Text, c.Typed);
    }
    EXPECT_EQ(AnswerOf(InputRequest(), "a text").Text, "a text");
}

} // namespace
} // namespace morvane
