#pragma once

#include "settings/Settings.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// A server that the selection dialog offers. Its name may hold any bytes.
struct ServerChoice {
    std::string name;
    bool isLocal = false;  // it is called exactly as this computer
};

struct ServerChoices {
    std::vector<ServerChoice> entries;  // each name once, none empty
    std::size_t selected = 0;           // the entry to start with
};

// The remembered servers in their order, and the one to start with.
// localServer: what the local machine is called where no last server is to be shown.
ServerChoices OfferServers(const Settings& settings, std::string_view computerName,
                           std::string_view localServer);
