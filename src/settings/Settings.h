#pragma once

#include "settings/SiteSet.h"

#include <cstdint>
#include <string>
#include <vector>

// May a connection start the Remote Registry service on a server where it does not run?
enum class RemoteRegPolicy { Never = 0, Automatically = 1, Prompt = 2 };

// The general settings in memory, from start-up to exit.
struct Settings {
    bool SaveWindowPos = true;          // at exit: window placement
    bool SavePanels = true;             // the arrangement of the information panels
    bool SaveView = true;               // view states and toolbar layout
    bool SaveAutoStats = true;          // the auto-refresh interval
    std::int32_t RememberServers = 10;  // 0 to 200: how many server names are kept and shown
    bool RememberLastServer = true;     // start with LastServer
    std::string LastServer;             // the current server's name
    bool StartConnectDialog = true;     // open the selection dialog at start-up
    RemoteRegPolicy StartRemoteReg = RemoteRegPolicy::Prompt;
    SiteSet Sites;                     // the web sites to scan
    std::vector<std::string> Servers;  // chosen before, the most recent first; at most RememberServers
};
