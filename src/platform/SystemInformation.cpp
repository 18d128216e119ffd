#include "platform/SystemInformation.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include <unistd.h>

namespace {

constexpr std::array kPrograms = {"kinfocenter", "hardinfo2", "hardinfo", "cpu-x", "lshw-gtk"};

std::filesystem::path FindIn(std::string_view folders, const char* program)
{
    while (!folders.empty()) {
        const auto end = std::min(folders.find(':'), folders.size());
        const std::filesystem::path file = std::filesystem::path(folders.substr(0, end)) / program;
        folders.remove_prefix(std::min(end + 1, folders.size()));
        std::error_code ignored;
        // Folders that are no absolute path would depend on where the program was started.
        if (file.is_absolute() && std::filesystem::is_regular_file(file, ignored) &&
            access(file.c_str(), X_OK) == 0)
            return file;
    }
    return {};
}

}  // namespace

std::filesystem::path SystemInformationProgram()
{
    const char* const folders = std::getenv("PATH");
    if (folders == nullptr) return {};
    for (const char* const program : kPrograms)
        if (auto file = FindIn(folders, program); !file.empty()) return file;
    return {};
}
