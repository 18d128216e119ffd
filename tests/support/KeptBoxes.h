#pragma once

#include "contracts/MessageBoxes.h"

#include <string>
#include <vector>

// Message boxes that are written down instead of shown, each as "title: text".
class KeptBoxes : public MessageBoxes {
public:
    BoxAnswer Show(const std::string& text, BoxStyle, const std::string& title) override
    {
        shown.push_back(title + ": " + text);
        return BoxAnswer::Ok;
    }

    std::vector<std::string> shown;
};
