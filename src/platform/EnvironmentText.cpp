#include "platform/EnvironmentText.h"

#include <cstdlib>

namespace {

// Null when there is no such variable.
const char* VariableNamed(std::string_view name)
{
    if (name.empty() || name.find('\0') != std::string_view::npos) return nullptr;
    return std::getenv(std::string(name).c_str());
}

}  // namespace

std::string ExpandEnvironmentText(std::string_view text)
{
    std::string expanded;
    while (!text.empty()) {
        const auto begin = text.find('%');
        const auto end = begin == std::string_view::npos ? begin : text.find('%', begin + 1);
        if (end == std::string_view::npos) break;
        const char* value = VariableNamed(text.substr(begin + 1, end - begin - 1));
        const std::string_view found = value != nullptr ? value : "";
        const bool fits = expanded.size() + text.size() + found.size() <= kMostExpandedText;
        const bool replaced = value != nullptr && fits;
        expanded += text.substr(0, replaced ? begin : end);
        if (replaced) expanded += found;
        text.remove_prefix(replaced ? end + 1 : end);
    }
    return expanded += text;
}
