#pragma once

#include "settings/SiteSet.h"

#include <string>

// The general settings in memory, from start-up to exit.
struct Settings {
    std::string LastServer;           // the current server's name
    bool RememberLastServer = false;  // start with the last server instead of this machine
    SiteSet Sites;                    // the web sites to scan
};
