#include "settings/OptionChoices.h"

#include "base/ParseInteger.h"
#include "settings/ServerList.h"

StartOption StartOptionOf(const Settings& settings)
{
    if (!settings.RememberLastServer) return StartOption::LocalServer;
    return settings.StartConnectDialog ? StartOption::SelectDialog : StartOption::LastServer;
}

void SetStartOption(Settings& settings, StartOption option)
{
    settings.RememberLastServer = option != StartOption::LocalServer;
    settings.StartConnectDialog = option == StartOption::SelectDialog;
}

std::optional<std::int32_t> ParseRememberServers(std::string_view text)
{
    const auto number = ParseInteger(text);
    return number && IsRememberServers(*number) ? number : std::nullopt;
}
