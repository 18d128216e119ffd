#pragma once

#include "base/Result.h"
#include "server/SiteList.h"
#include "zentrel/Admin.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// What keeps a server that never comes to an end from filling the memory or holding the program up.
struct SiteReadingLimits {
    std::size_t sites = 10'000;
    std::size_t keys = 100'000;  // looked at, sites or not
    std::chrono::milliseconds time = std::chrono::seconds(30);
};

// Reads the web sites of a connected server in the server's order and hands each to `take`; where that
// answers false the reading ends. A key that is no number is no site, and one without a description none to
// be shown. A state or bindings that cannot be read do no harm; any other failure ends the reading.
// Answers whether these are all: false when a limit was reached.
Result<bool> ReadSites(zentrel::ServerAdmin& server, const std::function<bool(Site)>& take,
                       const SiteReadingLimits& limits = {});

// Where a site answers, for people: "(All Unassigned):80, intranet" for ":80:" and "10.0.0.5:80:intranet".
// A binding is "address:port:host header"; one of fewer parts is left out.
std::string BindingsText(const std::vector<std::string>& bindings);
