#include "zentrel/daemon/HostServices.h"

namespace zentrel {

std::shared_ptr<ServiceTable> MakeHostServices(const std::shared_ptr<Service>& service)
{
    auto table = std::make_shared<ServiceTable>();
    const auto checkIn = [](const std::function<void()>& isIn) {
        isIn();
        return Done();
    };
    ServiceSetup always;
    always.start = ServiceStart::Automatic;
    table->Add(kDaemonService, {checkIn, {}}, always);
    const auto readOnce = [service](const std::function<void()>& isIn) -> Done {
        const auto counters = service->Counters();
        if (!counters) return Fail(counters.error());
        isIn();
        return {};
    };
    table->Add(kRemoteReading, {readOnce, [] {}});
    return table;
}

}  // namespace zentrel
