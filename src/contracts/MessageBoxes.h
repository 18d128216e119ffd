#pragma once

#include <string>

// What a message box shows: the platform's style word, an icon and a set of buttons.
enum class BoxStyle : unsigned {
    OkOnly = 0,
    YesNo = 4,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64,
    YesNoQuestion = 36,
};

enum class BoxAnswer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

// Modal messages to the user. All texts are UTF-8 and shown as plain text, never as markup.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    virtual BoxAnswer Show(const std::string& text, BoxStyle style, const std::string& title) = 0;
};
