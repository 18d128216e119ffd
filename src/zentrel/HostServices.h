#pragma once

#include "base/Result.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The services of a host and who may ask for what: the part of a service control manager that an
// administrator's tool needs. Codes are the system's plain ones: 5, 123, 997, 1053 to 1056, 1058, 1060, 1062,
// 1068, 1069, 1075, 1722.
namespace zentrel {

enum class ServiceState : std::uint32_t { Stopped = 1, StartPending = 2, StopPending = 3, Running = 4 };
enum class ServiceStart : std::uint32_t { Automatic = 2, Manual = 3, Disabled = 4 };

namespace ServiceAccess {
inline constexpr std::uint32_t QueryStatus = 0x4;
inline constexpr std::uint32_t Start = 0x10;
inline constexpr std::uint32_t Stop = 0x20;
inline constexpr std::uint32_t GenericRead = 0x80000000;     // includes QueryStatus
inline constexpr std::uint32_t GenericExecute = 0x20000000;  // includes Start and Stop
}  // namespace ServiceAccess

struct ServiceInfo {
    std::string name;
    ServiceState state = ServiceState::Stopped;
    ServiceStart start = ServiceStart::Manual;
};

// An open service: the rights were granted when it was opened; a call beyond them fails with code 5.
class HostService {
public:
    virtual ~HostService() = default;
    virtual Result<ServiceState> QueryStatus() = 0;
    virtual Done Start() = 0;  // does not wait until it runs; 1056 when it does already
    virtual Done Stop() = 0;   // 1062 when it does not run
};

// An open service control manager of one host.
class ServiceManager {
public:
    virtual ~ServiceManager() = default;
    // 5: the rights are refused to this client; 123: no service can have this name; 1060: none has it.
    virtual Result<std::unique_ptr<HostService>> OpenService(std::string_view name, std::uint32_t access) = 0;
    virtual Result<std::vector<ServiceInfo>> ListServices() = 0;
};

}  // namespace zentrel
