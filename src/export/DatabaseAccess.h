#pragma once

#include "platform/Odbc.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>

// How databases are opened, and how long they are waited for.
struct DatabaseAccess {
    using Opener = std::function<Result<std::unique_ptr<OdbcConnection>>(const OdbcLogin& login,
                                                                         std::chrono::seconds patience)>;

    Opener open = OpenOdbc;
    std::chrono::milliseconds connecting{15'000};  // until there is a connection
    std::chrono::milliseconds silence{30'000};     // without an answer to the call in progress
    std::chrono::milliseconds farewell{2'000};     // for a call to end that was told to
};

// What the driver itself is told. It has a little less time than it is given here, so that its own words
// arrive when it keeps to it.
inline std::chrono::seconds DriverPatience(std::chrono::milliseconds limit)
{
    return std::max(std::chrono::seconds(1), std::chrono::floor<std::chrono::seconds>(limit * 9 / 10));
}
