#pragma once

#include "export/DatabaseAccess.h"
#include "export/SecretText.h"

#include "platform/BackgroundJob.h"

#include <chrono>
#include <optional>
#include <string>

// Opens a connection and closes it again, on a thread of its own. When this object goes first, the thread
// ends by itself as soon as the driver lets it.
class ConnectionTest {
public:
    ConnectionTest(const DatabaseAccess& access, SharedLogin login);

    // To be asked a few times a second: one sentence about what came of it, when something did.
    struct Outcome {
        bool isGood = false;
        std::string text;  // may hold the driver's words
    };
    std::optional<Outcome> Poll();

private:
    const std::chrono::steady_clock::time_point m_giveUp;
    BackgroundJob<std::string> m_job;
};
