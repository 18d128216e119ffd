#pragma once

#include "cache/CacheScan.h"
#include "settings/Settings.h"
#include "zentrel/Admin.h"

#include <memory>
#include <string>

// What lives as long as the process, in the order in which it is made. Main creates it and hands it down.
struct ProcessState {
    explicit ProcessState(std::shared_ptr<zentrel::Transport> servers);

    FormatLocale locale;
    CacheContents contents;  // the file type table, and what else a scan fills
    std::string computerName;
    Settings settings;
    bool selectsAllSites = true;  // every site of the server is scanned, whatever the settings' set holds

    std::shared_ptr<zentrel::Transport> transport;
    zentrel::ServerAdmin server;
    zentrel::CacheAdmin cache;
    StopFlag stop;
};
