#include "help/WebSite.h"

#include "base/Text.h"
#include "settings/SettingsKey.h"

std::string WebSiteAddress(RegistryStore& registry)
{
    const auto setting = SettingsKey(registry).Text("WebSite");
    const auto address = TrimBlanks(setting);
    // Nothing else may be opened this way: a file could be a program.
    const auto folded = LowerCase(address);
    const bool isWebPage = folded.starts_with("https://") || folded.starts_with("http://");
    return isWebPage ? std::string(address) : kWebSite;
}
