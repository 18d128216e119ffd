#include "zentrel/remote/AdminEndpoint.h"

#include "zentrel/remote/AdminCall.h"

#include <grpc/grpc_security_constants.h>
#include <grpcpp/resource_quota.h>
#include <grpcpp/security/server_credentials.h>

#include <algorithm>

namespace zentrel {

namespace {

constexpr int kThreads = 2;
constexpr int kLongestRequest = 64 << 10;
constexpr int kCallsPerConnection = 32;
constexpr std::size_t kMemory = std::size_t{64} << 20U;  // of gRPC's own buffers
constexpr std::size_t kMostIdentities = 256;

void Limit(grpc::ServerBuilder& builder)
{
    grpc::ResourceQuota quota("zentrel");
    quota.Resize(kMemory);
    builder.SetResourceQuota(quota);
    builder.SetMaxReceiveMessageSize(kLongestRequest);
    builder.AddChannelArgument(GRPC_ARG_MAX_CONCURRENT_STREAMS, kCallsPerConnection);
    builder.AddChannelArgument(GRPC_ARG_SERVER_HANDSHAKE_TIMEOUT_MS, 5'000);
    // A client that vanished is noticed within a minute and a half; one that asks every 10 s is welcome.
    builder.AddChannelArgument(GRPC_ARG_KEEPALIVE_TIME_MS, 60'000);
    builder.AddChannelArgument(GRPC_ARG_KEEPALIVE_TIMEOUT_MS, 20'000);
    builder.AddChannelArgument(GRPC_ARG_HTTP2_MIN_RECV_PING_INTERVAL_WITHOUT_DATA_MS, 10'000);
    builder.AddChannelArgument(GRPC_ARG_KEEPALIVE_PERMIT_WITHOUT_CALLS, 1);
}

// gRPC writes ':' and brackets of some addresses as %3A, %5B, %5D.
std::string PlainAddress(std::string_view peer)
{
    std::string plain;
    peer.remove_prefix(std::min(peer.size(), peer.find(':') + 1));
    while (!peer.empty()) {
        const auto code = peer.substr(0, 3);
        const char c = code == "%5B" ? '[' : code == "%5D" ? ']' : code == "%3A" ? ':' : '\0';
        plain += c != '\0' ? c : peer.front();
        peer.remove_prefix(c != '\0' ? 3 : 1);
    }
    return plain;
}

}  // namespace

Result<std::unique_ptr<AdminEndpoint>> AdminEndpoint::Start(AdminCore& core, Kind kind)
{
    std::unique_ptr<AdminEndpoint> endpoint(new AdminEndpoint(core, std::move(kind)));
    if (!endpoint->Build()) return Fail(Code::IoError, "AdminServer", "The server cannot be started.");
    return endpoint;
}

bool AdminEndpoint::Build()
{
    grpc::ServerBuilder builder;
    Limit(builder);
    builder.RegisterAsyncGenericService(&m_service);
    m_queue = builder.AddCompletionQueue();
    const auto credentials =
        m_kind.material ? MakeTlsCredentials(m_kind.material) : grpc::InsecureServerCredentials();
    m_acceptor = builder.experimental().AddExternalConnectionAcceptor(
        grpc::ServerBuilder::experimental_type::ExternalConnectionType::FROM_FD, credentials);
    m_server = builder.BuildAndStart();
    if (m_server == nullptr) return false;
    AdminCall::Await(*this);
    for (int i = 0; i < kThreads; ++i) m_threads.emplace_back([this] { Serve(); });
    return true;
}

AdminEndpoint::~AdminEndpoint()
{
    if (m_server == nullptr) return;
    {
        std::unique_lock guard(m_mutex);
        m_allLeft.wait(guard, [this] { return m_calls == 0; });
    }
    m_queue->Shutdown();
    for (auto& thread : m_threads) thread.join();
}

void AdminEndpoint::Admit(int connection)
{
    grpc::experimental::ExternalConnectionAcceptor::NewConnectionParameters parameters;
    parameters.fd = connection;
    m_acceptor->HandleNewConnection(&parameters);
}

void AdminEndpoint::Shutdown(std::chrono::system_clock::time_point deadline)
{
    m_server->Shutdown(deadline);
}

void AdminEndpoint::Serve()
{
    void* tag = nullptr;
    bool ok = false;
    while (m_queue->Next(&tag, &ok)) AdminCall::Dispatch(tag, ok);
}

void AdminEndpoint::RequestCall(grpc::GenericServerContext& context,
                                grpc::GenericServerAsyncReaderWriter& stream, void* tag)
{
    m_service.RequestCall(&context, &stream, m_queue.get(), m_queue.get(), tag);
}

void AdminEndpoint::Arrived()
{
    const std::lock_guard guard(m_mutex);
    ++m_calls;
}

void AdminEndpoint::Left()
{
    const std::lock_guard guard(m_mutex);
    if (--m_calls == 0) m_allLeft.notify_all();
}

std::optional<Caller> AdminEndpoint::Identify(const grpc::ServerContext& context)
{
    Caller caller{{}, context.peer(), m_kind.role, m_kind.isLocal};
    if (m_kind.material == nullptr) {
        caller.who = m_kind.isLocal ? m_kind.users() : "nobody";
        return caller;
    }
    const auto certificates = context.auth_context()->FindPropertyValues(GRPC_X509_PEM_CERT_PROPERTY_NAME);
    if (certificates.size() != 1) return std::nullopt;
    auto identity = Remembered(std::string(certificates[0].data(), certificates[0].size()));
    if (!identity) return std::nullopt;
    caller.who = std::move(identity->who);
    caller.role = identity->role;
    return caller;
}

std::optional<ClientIdentity> AdminEndpoint::Remembered(const std::string& certificate)
{
    {
        const std::lock_guard guard(m_mutex);
        const auto found = m_identities.find(certificate);
        if (found != m_identities.end()) return found->second;
    }
    auto identity = ReadClient(certificate);
    if (!identity) return std::nullopt;
    const std::lock_guard guard(m_mutex);
    if (m_identities.size() >= kMostIdentities) m_identities.clear();
    m_identities.emplace(certificate, *identity);
    return std::move(*identity);
}

void AdminEndpoint::Greet(const Caller& caller) const
{
    if (!caller.isLocal) m_kind.greet(PlainAddress(caller.from));
}

Places::Place AdminEndpoint::TakeCallPlace(const std::string& who)
{
    const auto most = m_core.Limits().calls;
    return m_callPlaces.Take(who, most, std::max<std::size_t>(most / 2, 1));
}

Places::Place AdminEndpoint::TakeStreamPlace(const std::string& who)
{
    const auto limits = m_core.Limits();
    return m_streamPlaces.Take(who, limits.streams, limits.streamsPerClient);
}

}  // namespace zentrel
