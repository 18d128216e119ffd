#pragma once

#include <string_view>

// The texts of the status bar. May be set a million times in a scan; painted far less often.
class StatusLine {
public:
    virtual ~StatusLine() = default;
    virtual void SetStatus(std::string_view text) = 0;      // progress and result of the scan
    virtual void SetConnStatus(std::string_view text) = 0;  // connection state; shown after two blanks
};
