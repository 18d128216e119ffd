#pragma once

#include "base/Result.h"
#include "zentrel/Session.h"

#include <cstdint>
#include <string_view>

// Services of a host, asked and started. `machine` is a server's name; empty stands for this machine.
// Errors carry the system's plain code, the source "Services" and a text for the codes that are
// known, an empty one for others.
namespace modServices {

// Whether the service runs or is about to. A host that does not answer at all counts as running it.
Result<bool> IsServiceRunning(zentrel::Transport& transport, std::string_view machine,
                              std::string_view service);

// Asks the host to start the service; does not wait until it runs.
Done StartServiceByName(zentrel::Transport& transport, std::string_view machine, std::string_view service);

// The error that stands for a code.
tl::unexpected<SystemError> RaiseServiceError(std::uint32_t code);

}  // namespace modServices
