#include "zentrel/remote/Failures.h"

#include <administration.pb.h>
#include "zentrel/Printable.h"

#include <algorithm>

namespace zentrel {

namespace {

constexpr std::uint32_t kWrap = 0x80070000;
constexpr std::size_t kLongestSource = 64;
constexpr std::size_t kLongestText = 1024;  // in all, a status must stay well below 8 KiB of metadata

// The start of a text from afar, fit to be shown.
std::string Shown(std::string_view text, std::size_t longest)
{
    auto end = std::min(text.size(), longest);
    while (end > 0 && end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
    return Printable(text.substr(0, end));
}

// gRPC's own code beside the Failure: for tools that know nothing of Zentrel.
grpc::StatusCode StatusCodeOf(const SystemError& error)
{
    switch (error.Plain()) {
    case Code::FileNotFound:
    case Code::PathNotFound:
    case Code::ServiceDoesNotExist: return grpc::StatusCode::NOT_FOUND;
    case Code::AccessDenied: return grpc::StatusCode::PERMISSION_DENIED;
    case Code::InvalidParameter:
    case Code::InvalidName: return grpc::StatusCode::INVALID_ARGUMENT;
    case Code::OutOfMemory:
    case Code::DiskFull: return grpc::StatusCode::RESOURCE_EXHAUSTED;
    case Code::Timeout: return grpc::StatusCode::DEADLINE_EXCEEDED;
    case Code::Cancelled: return grpc::StatusCode::CANCELLED;
    case Code::InterfaceNotFound & 0xFFFFU: return grpc::StatusCode::UNIMPLEMENTED;
    case Code::ServerUnavailable & 0xFFFFU: return grpc::StatusCode::UNAVAILABLE;
    case Code::IoError:
    case Code::FileCorrupt: return grpc::StatusCode::DATA_LOSS;
    default: return grpc::StatusCode::FAILED_PRECONDITION;
    }
}

std::uint32_t CodeOf(grpc::StatusCode code)
{
    switch (code) {
    case grpc::StatusCode::UNIMPLEMENTED: return Code::UnknownInterface;
    case grpc::StatusCode::PERMISSION_DENIED:
    case grpc::StatusCode::UNAUTHENTICATED: return kWrap | Code::AccessDenied;
    case grpc::StatusCode::DEADLINE_EXCEEDED: return Code::Timeout;
    case grpc::StatusCode::RESOURCE_EXHAUSTED:
    case grpc::StatusCode::OUT_OF_RANGE: return Code::InvalidData;
    case grpc::StatusCode::NOT_FOUND: return Code::FileNotFound;
    case grpc::StatusCode::INVALID_ARGUMENT: return Code::InvalidParameter;
    default: return Code::ServerUnavailable;  // a reset call says INTERNAL, UNKNOWN or CANCELLED too
    }
}

// What gRPC says of a connection that could not be made, in words for a person; empty when it is not known.
std::string_view Reason(std::string_view message)
{
    const auto holds = [message](std::string_view text) {
        return message.find(text) != std::string_view::npos;
    };
    if (holds("CERTIFICATE_VERIFY_FAILED") || holds("certificate verify failed"))
        return "The server's certificate was not signed by the known authority, or has expired.";
    if (holds("Peer name") || holds("hostname")) return "The server's certificate was made for another name.";
    if (holds("andshake failed") || holds("SSL_ERROR") || holds("WRONG_VERSION"))
        return "The secure connection could not be agreed on.";
    // With TLS 1.3 a client has shaken hands already when the server looks at its certificate.
    const bool isClosed = holds("Socket closed") || holds("reset by peer") || holds("Broken pipe");
    if (holds("failed to connect") && (holds(" ipv4:") || holds(" ipv6:")) && isClosed)
        return "The server closed the connection at once: it may not accept this client's certificate (look "
               "at "
               "its authority and its dates, also on the server), or have no room.";
    if (holds("DNS") || holds("esolution")) return "There is no host of this name.";
    if (holds("refused")) return "Nothing listens there.";
    return {};
}

}  // namespace

grpc::Status ToStatus(const SystemError& error)
{
    v1::Failure failure;
    failure.set_code(error.code);
    failure.set_source(Shown(error.source, kLongestSource));
    failure.set_description(Shown(error.description, kLongestText));
    return {StatusCodeOf(error), failure.description(), failure.SerializeAsString()};
}

SystemError FromStatus(const grpc::Status& status, std::string_view source)
{
    v1::Failure failure;
    const auto& details = status.error_details();
    if (!details.empty() && failure.ParseFromString(details) && (failure.code() & 0xFFFFU) != 0)
        return {failure.code(), Shown(failure.source(), kLongestSource),
                Shown(failure.description(), kLongestText)};

    const auto code = CodeOf(status.error_code());
    auto text = SystemText(code);
    if (code == Code::InvalidData) text = "The server sent more than is accepted.";
    if (code == Code::ServerUnavailable)
        if (const auto reason = Reason(status.error_message()); !reason.empty()) (text += ' ') += reason;
    return {code, std::string(source), std::move(text)};
}

bool IsConnectionLost(const grpc::Status& status)
{
    if (status.ok() || !status.error_details().empty()) return false;
    const auto code = CodeOf(status.error_code());
    return code == Code::ServerUnavailable || code == Code::Timeout;
}

}  // namespace zentrel
