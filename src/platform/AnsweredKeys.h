#pragma once

#include <functional>
#include <string>
#include <vector>

struct AnsweredValue {
    std::string name;
    std::string text;  // the value itself, of type kRegSz
};

// A key of the local machine with values that the platform answers itself. A value that the machine's hive
// holds under the same name comes first.
struct AnsweredKey {
    std::string path;                                    // names joined by single backslashes; any case
    std::function<std::vector<AnsweredValue>()> values;  // asked anew for each reading, so to be quick
};

// Those of this machine.
std::vector<AnsweredKey> AnsweredKeys();
