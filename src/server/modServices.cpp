#include "server/modServices.h"

#include "base/Translate.h"
#include "zentrel/HostServices.h"

#include <algorithm>
#include <iterator>

namespace modServices {

namespace {

constexpr std::uint32_t kUnreachable = Code::ServerUnavailable & 0xFFFFU;

struct ServiceText {
    std::uint32_t code;
    const char* text;
};

constexpr ServiceText kTexts[] = {
    {Code::AccessDenied, TRANSLATE_NOOP("modServices", "Access denied")},
    {Code::InvalidName, TRANSLATE_NOOP("modServices", "The specified service name is invalid")},
    {Code::ServiceNoCheckIn,
     TRANSLATE_NOOP("modServices",
                    "The process for the service was started, but it did not check in with SC Manager")},
    {Code::ServiceNoThread, TRANSLATE_NOOP("modServices", "A thread could not be created for the service")},
    {Code::ServiceDatabaseLocked, TRANSLATE_NOOP("modServices", "The service database is locked")},
    {Code::ServiceAlreadyRunning,
     TRANSLATE_NOOP("modServices", "An instance of the service is already running")},
    {Code::ServiceDisabled, TRANSLATE_NOOP("modServices", "The service has been disabled")},
    {Code::ServiceDoesNotExist, TRANSLATE_NOOP("modServices", "The specified service does not exist")},
    {Code::ServiceDependencyFailed,
     TRANSLATE_NOOP("modServices", "The service depends on another service that has failed to start")},
    {Code::ServiceLogonFailed,
     TRANSLATE_NOOP("modServices", "The service could not be logged on. This error occurs if the service was "
                                   "started from an account that "
                                   "does not have the 'Log on as a service' right")},
    {Code::ServiceDependencyDeleted,
     TRANSLATE_NOOP("modServices",
                    "The service depends on a service that does not exist or has been marked for deletion")},
};

}  // namespace

tl::unexpected<SystemError> RaiseServiceError(std::uint32_t code)
{
    const auto* const known = std::find_if(std::begin(kTexts), std::end(kTexts),
                                           [code](const ServiceText& text) { return text.code == code; });
    return Fail(code, "Services",
                known == std::end(kTexts) ? std::string() : Translate("modServices", known->text));
}

Result<bool> IsServiceRunning(zentrel::Transport& transport, std::string_view machine,
                              std::string_view service)
{
    const auto manager = transport.OpenServiceManager(machine, zentrel::ServiceAccess::GenericRead);
    if (!manager) {
        const auto code = manager.error().Plain();
        if (code == kUnreachable) return true;
        return RaiseServiceError(code);
    }
    const auto opened = (*manager)->OpenService(service, zentrel::ServiceAccess::QueryStatus);
    if (!opened) return RaiseServiceError(opened.error().Plain());
    const auto state = (*opened)->QueryStatus();
    if (!state) return RaiseServiceError(state.error().Plain());
    return *state == zentrel::ServiceState::StartPending || *state == zentrel::ServiceState::Running;
}

Done StartServiceByName(zentrel::Transport& transport, std::string_view machine, std::string_view service)
{
    using namespace zentrel::ServiceAccess;
    const auto manager = transport.OpenServiceManager(machine, GenericRead);
    if (!manager) return RaiseServiceError(manager.error().Plain());
    const auto opened = (*manager)->OpenService(service, GenericRead | GenericExecute);
    if (!opened) return RaiseServiceError(opened.error().Plain());
    const auto started = (*opened)->Start();
    if (started || started.error().Is(Code::IoPending)) return {};
    return RaiseServiceError(started.error().Plain());
}

}  // namespace modServices
