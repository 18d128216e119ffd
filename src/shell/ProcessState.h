#pragma once

#include "cache/CacheScan.h"
#include "ops/TempFiles.h"
#include "settings/SettingsStore.h"
#include "stats/CounterList.h"
#include "stats/ZentrelCounters.h"
#include "stats/modPerfCntr.h"
#include "zentrel/Admin.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// A first connection that is made at once, whatever the settings say about the start.
struct FirstConnection {
    std::optional<std::string> server;               // empty: the one that the settings lead to
    std::optional<std::vector<std::int32_t>> sites;  // empty: all that the server has
};

// What lives as long as the process, in the order in which it is made. Main creates it and hands it down.
struct ProcessState {
    // Creates the settings key and loads the settings. `store` must outlive this. The counters are read
    // over a transport of their own, whose deadlines fit ZentrelCounters.
    ProcessState(std::shared_ptr<zentrel::Transport> servers,
                 std::shared_ptr<zentrel::Transport> counterServers, RegistryStore& store);

    FormatLocale locale;
    CacheContents contents;  // the file type table, and what else a scan fills
    DateTime scannedAt;      // when that was, in local time; 0 = there was no scan
    std::string scannedServer;
    std::string computerName;
    RegistryStore& registry;
    SettingsStore settingsStore;
    Settings settings;
    std::optional<FirstConnection> first;  // from the command line

    std::shared_ptr<zentrel::Transport> transport;
    zentrel::ServerAdmin server;
    zentrel::CacheAdmin cache;
    StopFlag stop;
    TempFiles tempFiles;

    ZentrelCounters counterSource;
    PerformanceData performanceData;
    modPerfCntr counters;
    CounterList counterList;
};
