#pragma once

#include "contracts/MessageBoxes.h"

#include <iosfwd>

// Message boxes for a program that nobody sits in front of: the text goes to a stream, questions are
// answered with No.
class ConsoleBoxes : public MessageBoxes {
public:
    explicit ConsoleBoxes(std::ostream& out) : m_out(out) {}

    BoxAnswer Show(const std::string& text, BoxStyle style, const std::string& title) override;

private:
    std::ostream& m_out;
};
