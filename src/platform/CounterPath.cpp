#include "platform/CounterPath.h"

#include <charconv>

namespace {

constexpr auto kNowhere = std::string_view::npos;

bool SplitMachine(std::string_view& rest, CounterPath& path)
{
    if (rest.starts_with("\\\\")) {
        const auto end = rest.find('\\', 2);
        if (end == kNowhere || end == 2) return false;
        path.machine = rest.substr(2, end - 2);
        rest.remove_prefix(end);
    }
    if (!rest.starts_with('\\')) return false;
    rest.remove_prefix(1);
    return true;
}

// "parent/instance#index"
void SplitInstance(std::string_view text, CounterPath& path)
{
    if (const auto slash = text.find('/'); slash != kNowhere) {
        path.parentInstance = text.substr(0, slash);
        text.remove_prefix(slash + 1);
    }
    if (const auto hash = text.rfind('#'); hash != kNowhere && hash + 1 < text.size()) {
        const auto* const end = text.data() + text.size();
        const auto read = std::from_chars(text.data() + hash + 1, end, path.instanceIndex);
        if (read.ec == std::errc() && read.ptr == end) text = text.substr(0, hash);
    }
    path.instance = text;
}

// Takes "object(instance)" off. An instance may hold anything, a counter's name no backslash, so the last
// backslash parts them.
PdhStatus SplitObject(std::string_view& rest, CounterPath& path)
{
    const auto end = rest.find_first_of("(\\");
    path.object = rest.substr(0, end);
    if (path.object.empty()) return Pdh::BadPath;
    if (end == kNowhere) return Pdh::NoCounterName;
    if (rest[end] == '(') {
        const auto last = rest.rfind('\\');
        const auto inside = rest.substr(0, last).substr(end + 1);
        if (inside.size() < 2 || !inside.ends_with(')')) return Pdh::BadInstance;
        SplitInstance(inside.substr(0, inside.size() - 1), path);
        rest.remove_prefix(last == kNowhere ? rest.size() : last + 1);
    } else {
        rest.remove_prefix(end + 1);
    }
    return Pdh::Good;
}

}  // namespace

PdhStatus ParseCounterPath(std::string_view text, CounterPath& path)
{
    path = {};
    if (text.empty()) return Pdh::InvalidArgument;
    if (!SplitMachine(text, path)) return Pdh::BadPath;
    if (const auto status = SplitObject(text, path); status != Pdh::Good) return status;
    if (text.empty()) return Pdh::NoCounterName;
    if (text.find('\\') != kNowhere) return Pdh::BadPath;
    path.counter = text;
    return Pdh::Good;
}
