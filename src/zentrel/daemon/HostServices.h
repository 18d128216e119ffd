#pragma once

#include "zentrel/Service.h"
#include "zentrel/ServiceTable.h"

#include <memory>
#include <string_view>

namespace zentrel {

// The daemon itself, as a service that runs as long as it does.
inline constexpr std::string_view kDaemonService = "Zentrel";

// The services of a host: the daemon and the remote reading of its counters. The latter checks in when it
// could read them once. service: may be empty where nothing is started.
std::shared_ptr<ServiceTable> MakeHostServices(const std::shared_ptr<Service>& service);

}  // namespace zentrel
