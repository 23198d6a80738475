// The dialog that asks for one text or number: what it is told, which keys it takes, and what comes
// of the text.
#pragma once
#include <cstdint>
#include <string>

namespace morvane {

enum class InputKind { Text, Integer, PositiveInteger, Decimal };

struct InputRequest {
    std::string Caption, Prompt, Text;
    InputKind Kind = InputKind::Text;
    double Min = 0, Max = 0; // of numbers
};

struct InputAnswer {
    std::string Text;
    double Value = 0; // of numbers, within the range
    bool Clamped = false; // the number typed lay outside of it
};

// Whether the box takes the character; editing keys always work.
bool AcceptsCharacter(InputKind Kind, char32_t Character);
// What the user gets who presses OK with Text.
InputAnswer AnswerOf(const InputRequest& Request, const std::string& Text);

} // namespace morvane
