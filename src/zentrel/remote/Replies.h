#pragma once

#include "base/Result.h"
#include "zentrel/HostServices.h"
#include "zentrel/Property.h"

#include <administration.pb.h>

#include <optional>
#include <vector>

// What a server's replies mean. Any message is safe to read; InvalidData when one makes no sense. Internal:
// no public header includes this.
namespace zentrel {

tl::unexpected<SystemError> SenselessReply(std::string_view source = "ZentrelAdmin");

Result<std::optional<Record>> ReadRecord(const v1::GetDataReply& reply, PropertyId id);
Result<ServiceInfo> ReadService(const v1::ServiceStatus& status);
Result<std::vector<ServiceInfo>> ReadServices(const v1::ServicesReply& reply);

}  // namespace zentrel
