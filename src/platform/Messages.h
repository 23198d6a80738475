// The one message box of the program. Whoever shows it can be replaced, so that tests and scripts
// see every text, title and flag, and nothing blocks a run without a screen.
#pragma once
#include <cstdint>
#include <string>

namespace morvane {

// Flags of a message: buttons, sign and modality are added up.
inline constexpr int MessageOk = 0, MessageOkCancel = 1, MessageAbortRetryIgnore = 2,
                     MessageYesNoCancel = 3, MessageYesNo = 4, MessageStopSign = 16,
                     MessageQuestionSign = 32, MessageWarningSign = 48, MessageTaskModal = 8192;

enum class MessageAnswer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

inline constexpr std::int32_t MainWindowOwner = 2147483647;

struct Message {
    std::string Text;
    int Flags = MessageOk;
    std::string Title;
    std::int32_t Owner = MainWindowOwner;
};

class MessageAnswerer {
public:
    virtual ~MessageAnswerer() = default;
    virtual MessageAnswer Answer(const Message& Asked) = 0;
};

} // namespace morvane
