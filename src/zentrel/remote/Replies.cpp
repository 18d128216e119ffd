#include "zentrel/remote/Replies.h"

#include "zentrel/remote/Limits.h"

namespace zentrel {

namespace {

PropertyType TypeOf(std::uint32_t type)
{
    switch (type) {
    case static_cast<std::uint32_t>(PropertyType::Number): return PropertyType::Number;
    case static_cast<std::uint32_t>(PropertyType::Text): return PropertyType::Text;
    case static_cast<std::uint32_t>(PropertyType::TextList): return PropertyType::TextList;
    default: return PropertyType::Binary;
    }
}

}  // namespace

tl::unexpected<SystemError> SenselessReply(std::string_view source)
{
    return Fail(Code::InvalidData, source, "The server's answer makes no sense.");
}

Result<std::optional<Record>> ReadRecord(const v1::GetDataReply& reply, PropertyId id)
{
    if (!reply.exists()) return std::nullopt;
    if (reply.value().size() > Limit::Record) return SenselessReply();
    return Record({id, TypeOf(reply.type()), std::as_bytes(std::span(reply.value()))});
}

Result<ServiceInfo> ReadService(const v1::ServiceStatus& status)
{
    const bool hasState = status.state() >= static_cast<std::uint32_t>(ServiceState::Stopped) &&
                          status.state() <= static_cast<std::uint32_t>(ServiceState::Running);
    const bool hasStart = status.start() >= static_cast<std::uint32_t>(ServiceStart::Automatic) &&
                          status.start() <= static_cast<std::uint32_t>(ServiceStart::Disabled);
    if (!hasState || !hasStart || status.name().size() > Limit::ServiceName)
        return SenselessReply("Services");
    return ServiceInfo{status.name(), static_cast<ServiceState>(status.state()),
                       static_cast<ServiceStart>(status.start())};
}

Result<std::vector<ServiceInfo>> ReadServices(const v1::ServicesReply& reply)
{
    if (static_cast<std::size_t>(reply.services_size()) > Limit::Services) return SenselessReply("Services");
    std::vector<ServiceInfo> services;
    for (const auto& status : reply.services()) {
        auto service = ReadService(status);
        if (!service) return Fail(service.error());
        services.push_back(std::move(*service));
    }
    return services;
}

}  // namespace zentrel
