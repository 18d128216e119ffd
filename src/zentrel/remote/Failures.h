#pragma once

#include "base/Result.h"

#include <grpcpp/support/status.h>

#include <string_view>

// How failures cross the wire: the status of a call carries a serialized Failure. Both sides use this; no
// public header includes it.
namespace zentrel {

// The status that tells `error` to the other side. Long texts are cut.
grpc::Status ToStatus(const SystemError& error);

// What a status that is not OK says. Without a Failure of the other side it is the code that stands for
// gRPC's own: ServerUnavailable when the connection broke or never stood, UnknownInterface for a server
// that has no such call, AccessDenied, Timeout, InvalidData for messages that are too large. Whatever the
// other side sends, the code is not 0 and the texts are printable UTF-8 of bounded size.
SystemError FromStatus(const grpc::Status& status, std::string_view source);

// Whether the failure is gRPC's own and leaves no hope for later calls of the same connection.
bool IsConnectionLost(const grpc::Status& status);

}  // namespace zentrel
