#pragma once

#include <string>

// Shows web pages in the user's browser.
class WebOpener {
public:
    virtual ~WebOpener() = default;
    virtual void Open(const std::string& address) = 0;  // nobody is told when it cannot
};
