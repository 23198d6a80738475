#include "document/clsParser.h"

#include <gtest/gtest.h>

#include "TextParser.h"

namespace morvane {
namespace {

using Tokens = std::vector<std::string>;

Tokens TokensOf(const std::string& line)
{
    TextParser parser(line + "\n");
    EXPECT_TRUE(parser->Readline());
    Tokens tokens;
    for (std::string token(parser->GetToken()); !token.empty(); token = parser->GetToken())
        tokens.push_back(token);
    EXPECT_EQ(parser->GetToken(), "");
    EXPECT_EQ(parser->Tokencount(), static_cast<int>(tokens.size()));
    return tokens;
}

TEST(clsParser, LinesFallIntoTokens)
{
    const struct {
        const char* Line;
        std::vector<std::string> Tokens;
    } cases[] = {
        {"a, b;c", {"a", "b", "c"}},
        {"Key:= some text, with commas", {"Key", "some text, with commas"}},
        {"Key=text = more ", {"Key", "text = more "}},
        {"Key :=", {"Key"}},
        {"Key:=   ", {"Key"}},
        {"a,,\t: b", {"a", "b"}},
        {"= 1, 2", {"1, 2"}},
        {"", {}},
        {" ,;:\t", {}},
        {"one", {"one"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(TokensOf(c.Line), c.Tokens) << c.Line;
}

TEST(clsParser, ALineCanBeGivenBackAndSkipped)
{
    TextParser parser("Order, 3\nlast");
    ASSERT_TRUE(parser->Readline());
    EXPECT_EQ(parser->GetKeyword(), "order");
    EXPECT_EQ(parser->GetLong(), 3);
    parser->ReReadLine();
    EXPECT_EQ(parser->GetToken(), "Order");
    parser->SkipLine();
    EXPECT_EQ(parser->GetToken(), "");
    EXPECT_EQ(parser->Tokencount(), 2);
    EXPECT_EQ(parser->GetToken(), "") << "counting ends at the end of the line";
    ASSERT_TRUE(parser->Readline());
    EXPECT_EQ(parser->GetToken(), "last");
    EXPECT_FALSE(parser->Readline());
    EXPECT_EQ(parser->GetToken(), "");
}

TEST(clsParser, NumbersAreTheBeginningOfATokenElseZero)
{
    TextParser parser("2.5mm 1e400 word -2.5,3.5");
    ASSERT_TRUE(parser->Readline());
    EXPECT_EQ(parser->GetNumber(), 2.5);
    EXPECT_EQ(parser->GetLong(), 2147483647);
    EXPECT_EQ(parser->GetNumber(), 0);
    EXPECT_EQ(parser->GetLong(), -2) << "halves to even";
    EXPECT_EQ(parser->GetLong(), 4);
    EXPECT_EQ(parser->GetLong(), 0) << "no token left";
}

TEST(clsParser, Booleans)
{
    for (const char* text : {"2", "-0.5x", "yes", "#TRUE#", "True", "oN"})
        EXPECT_TRUE(clsParser::BooleanParse(text)) << text;
    for (const char* text : {"0", "no", "", "false", "truely", "#TRUE", "0yes"})
        EXPECT_FALSE(clsParser::BooleanParse(text)) << text;
}

} // namespace
} // namespace morvane
