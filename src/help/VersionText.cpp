#include "help/VersionText.h"

#include "base/Translate.h"

#include <algorithm>

std::string VersionText(int major, int minor, int revision)
{
    constexpr std::size_t kDigits = 3;
    auto last = std::to_string(revision);
    last.insert(0, kDigits - std::min(kDigits, last.size()), '0');
    if (revision == 0) last = "00";
    return Translate("frmAbout", "Version ") + std::to_string(major) + '.' + std::to_string(minor) + '.' +
           last;
}
