#include "platform/ComputerName.h"

#include <array>

#include <unistd.h>

std::string ComputerName()
{
    static constexpr std::size_t kLongest = 63;
    std::array<char, 256> name{};
    // One byte is held back: a cut name need not end with a NUL.
    if (gethostname(name.data(), name.size() - 1) != 0 || name.front() == '\0') return "localhost";
    return std::string(name.data()).substr(0, kLongest);
}
