#include "zentrel/remote/Connection.h"

#include "zentrel/remote/KeepLibrary.h"
#include "zentrel/remote/Limits.h"
#include "zentrel/remote/TlsCredentials.h"

#include <grpc/grpc.h>
#include <grpcpp/create_channel.h>
#include <grpcpp/security/credentials.h>

namespace zentrel {

namespace {

constexpr std::uint32_t kVersion = 1;

grpc::ChannelArguments Arguments()
{
    grpc::ChannelArguments arguments;
    arguments.SetMaxReceiveMessageSize(static_cast<int>(Limit::Message));
    arguments.SetInt(GRPC_ARG_MAX_METADATA_SIZE, static_cast<int>(Limit::Metadata));
    arguments.SetInt(GRPC_ARG_HTTP2_STREAM_LOOKAHEAD_BYTES, static_cast<int>(Limit::Window));
    // The window of the whole connection follows that of its streams only where the delay is probed: it is
    // the larger of 4 MiB and twice what the line holds. (A quota would bound it further, but stalls
    // streams.)
    arguments.SetInt(GRPC_ARG_HTTP2_BDP_PROBE, 1);
    // A packed message may be far larger than it looks; none is accepted.
    arguments.SetInt(GRPC_COMPRESSION_CHANNEL_ENABLED_ALGORITHMS_BITSET, 1);
    arguments.SetInt(GRPC_ARG_ENABLE_PER_MESSAGE_DECOMPRESSION, 0);
    // Every connection stands alone: one that failed must not hold up the next.
    arguments.SetInt(GRPC_ARG_USE_LOCAL_SUBCHANNEL_POOL, 1);
    arguments.SetInt(GRPC_ARG_ENABLE_RETRIES, 0);
    arguments.SetInt(GRPC_ARG_ENABLE_HTTP_PROXY, 0);
    arguments.SetInt(GRPC_ARG_SERVICE_CONFIG_DISABLE_RESOLUTION, 1);
    return arguments;
}

// Text as the path of a URI.
std::string Escape(std::string_view text)
{
    constexpr std::string_view kPlain = "-._~/:";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string escaped;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             kPlain.find(c) != std::string_view::npos;
        if (isPlain) {
            escaped += c;
        } else {
            escaped += '%';
            escaped += kDigits[byte >> 4U];
            escaped += kDigits[byte & 0xFU];
        }
    }
    return escaped;
}

// gRPC would only say that the server cannot be reached.
Done CheckFiles(const RemoteTarget& target)
{
    constexpr std::size_t kFirst = std::size_t{64} << 10;  // a file of many authorities may be longer
    const auto checked =
        CheckTls({target.certificate, target.key, target.authority.substr(0, kFirst)}, TlsSide::Client);
    if (checked) return {};
    return Fail(Code::ServerUnavailable, "ZentrelAdmin",
                checked.error().description + " Look at ca, certificate and key among the known servers.");
}

std::shared_ptr<grpc::Channel> MakeChannel(const RemoteTarget& target)
{
    auto arguments = Arguments();
    if (target.IsLocal())
        return grpc::CreateCustomChannel("unix:" + Escape(target.socket.string()),
                                         grpc::InsecureChannelCredentials(), arguments);
    arguments.SetSslTargetNameOverride(target.certificateName.empty() ? target.host : target.certificateName);
    const bool isV6 = target.host.find(':') != std::string::npos;
    const auto host = isV6 ? '[' + target.host + ']' : target.host;
    return grpc::CreateCustomChannel("dns:///" + Escape(host) + ':' + std::to_string(target.port),
                                     grpc::SslCredentials({target.authority, target.key, target.certificate}),
                                     arguments);
}

}  // namespace

Connection::Connection(std::unique_ptr<Stub> stub, WhileWaiting hook, const Deadlines& deadlines)
    : m_stub(std::move(stub)),
      m_hook(std::move(hook)),
      m_deadlines(deadlines)
{
}

void Connection::SetDeadline(grpc::ClientContext& context, Time deadline)
{
    context.set_deadline(
        gpr_time_add(gpr_now(GPR_CLOCK_MONOTONIC), gpr_time_from_millis(deadline.count(), GPR_TIMESPAN)));
}

Result<std::shared_ptr<Connection>> Connection::Open(const RemoteTarget& target, const WhileWaiting& hook,
                                                     const Deadlines& deadlines)
{
    KeepLibrary();
    if (!target.IsLocal()) {
        if (const auto only = AllowOnlyTls13(); !only) return Fail(only.error());
        if (const auto checked = CheckFiles(target); !checked) return Fail(checked.error());
    }
    const std::shared_ptr<Connection> connection(
        new Connection(v1::Administration::NewStub(MakeChannel(target)), hook, deadlines));
    if (const auto agreed = connection->ShakeHands(); !agreed) return Fail(agreed.error());
    return connection;
}

Done Connection::ShakeHands()
{
    v1::HelloRequest request;
    request.set_version(kVersion);
    const auto reply = Ask(&Stub::PrepareAsyncHello, request, m_deadlines.connect);
    if (!reply && reply.error().code == Code::Timeout)
        return Fail(Code::ServerUnavailable, "ZentrelAdmin", "The server did not answer in time.");
    if (!reply && reply.error().code == Code::InvalidData)
        return Fail(Code::UnknownInterface, "ZentrelAdmin");
    if (!reply) return Fail(reply.error());
    if (reply->version() != kVersion)
        return Fail(Code::InterfaceNotFound, "ZentrelAdmin",
                    "The server speaks another version of the administration protocol.");
    if (reply->role() == static_cast<std::uint32_t>(Role::Operator)) m_role = Role::Operator;
    if (reply->role() == static_cast<std::uint32_t>(Role::Admin)) m_role = Role::Admin;
    return {};
}

SystemError Connection::Failed(const grpc::Status& status, std::string_view source)
{
    if (IsConnectionLost(status)) SetLost();
    return FromStatus(status, source);
}

}  // namespace zentrel
