#pragma once

#include "zentrel/HostServices.h"

#include <chrono>
#include <ostream>
#include <string>

// What zentrelctl does with the services of a host that it has reached.
namespace zentrel {

std::string_view StateName(ServiceState state);

Done ListServices(std::ostream& out, ServiceManager& manager, bool asJson);
Done QueryService(std::ostream& out, ServiceManager& manager, const std::string& name);

// Both wait until it runs or has stopped. Timeout when it takes longer than `patience`; ServiceNotActive
// when a start ends in a stopped service.
Done StartService(std::ostream& out, ServiceManager& manager, const std::string& name,
                  std::chrono::milliseconds patience);
Done StopService(std::ostream& out, ServiceManager& manager, const std::string& name,
                 std::chrono::milliseconds patience);

}  // namespace zentrel
