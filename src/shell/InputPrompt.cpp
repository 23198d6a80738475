#include "shell/InputPrompt.h"

#include <algorithm>

#include "platform/Numbers.h"

namespace morvane {

bool AcceptsCharacter(InputKind Kind, char32_t Character)
{
    const bool isDigit = Character >= U'0' && Character <= U'9';
    const bool isSign = Character == U'-';
    switch (Kind) {
    case InputKind::Text:
        return true;
    case InputKind::PositiveInteger:
        return isDigit;
    case InputKind::Integer:
        return isDigit || isSign;
    case InputKind::Decimal:
        break;
    }
    return isDigit || isSign || Character == U'.' || Character == U'e' || Character == U'E';
}

InputAnswer AnswerOf(const InputRequest& Request, const std::string& Text)
{
    if (Request.Kind == InputKind::Text)
        return {.Text = Text};
    const double typed = LeadingNumber(Text);
    const double value = std::clamp(typed, Request.Min, Request.Max);
    return {.Text = Text, .Value = value, .Clamped = value != typed};
}

} // namespace morvane
