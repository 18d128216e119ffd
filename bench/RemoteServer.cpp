#include "RemoteServer.h"

#include "zentrel/remote/AdminServer.h"
#include "zentrel/remote/Certificates.h"

#include <administration.grpc.pb.h>

#include <grpcpp/security/server_credentials.h>
#include <grpcpp/server_builder.h>

#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using std::filesystem::path;

constexpr int kDays = 2;

path Beside(const path& data, const char* what)
{
    return data.string() + what;
}

void Write(const path& file, const std::string& text)
{
    std::ofstream(file, std::ios::binary) << text;
}

std::string Read(const path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

struct Certificates {
    zentrel::KeyPair authority, server, client;
};

Result<Certificates> MakeCertificates()
{
    auto authority = zentrel::MakeAuthority("bench", kDays);
    if (!authority) return Fail(authority.error());
    auto server = zentrel::MakeServerCertificate(*authority, {"127.0.0.1"}, kDays);
    if (!server) return Fail(server.error());
    auto client = zentrel::MakeClientCertificate(*authority, "bench", zentrel::Role::Admin, kDays);
    if (!client) return Fail(client.error());
    return Certificates{*authority, *server, *client};
}

class Echo : public zentrel::v1::Administration::Service {
public:
    grpc::Status GetData(grpc::ServerContext*, const zentrel::v1::GetDataRequest*,
                         zentrel::v1::GetDataReply* reply) override
    {
        reply->set_exists(true);
        reply->set_value(std::string(56, 'x'));
        return grpc::Status::OK;
    }
};

std::unique_ptr<grpc::Server> StartEcho(Echo& echo, const path& data, const Certificates& made, int& port)
{
    grpc::SslServerCredentialsOptions tls(GRPC_SSL_REQUEST_AND_REQUIRE_CLIENT_CERTIFICATE_AND_VERIFY);
    tls.pem_root_certs = made.authority.certificate;
    tls.pem_key_cert_pairs.push_back({made.server.key, made.server.certificate});
    grpc::ServerBuilder builder;
    builder.AddListeningPort("unix:" + Beside(data, ".echo").string(), grpc::InsecureServerCredentials());
    builder.AddListeningPort("127.0.0.1:0", grpc::SslServerCredentials(tls), &port);
    builder.RegisterService(&echo);
    return builder.BuildAndStart();
}

zentrel::RemoteTarget Target(const path& data, Wire wire, const char* socket, const char* port)
{
    zentrel::RemoteTarget target;
    if (wire == Wire::Unix) {
        target.socket = Beside(data, socket);
        return target;
    }
    target.host = "127.0.0.1";
    target.port = static_cast<std::uint16_t>(std::stoi(Read(Beside(data, port))));
    target.authority = Read(Beside(data, ".ca"));
    target.certificate = Read(Beside(data, ".pem"));
    target.key = Read(Beside(data, ".key"));
    return target;
}

}  // namespace

RemoteServer::RemoteServer(const path& dataFolder)
{
    int life[2];
    int ready[2];
    if (::pipe2(life, O_CLOEXEC) != 0 || ::pipe2(ready, O_CLOEXEC) != 0) return;
    m_process = ::fork();
    if (m_process == 0) {
        ::dup2(life[0], STDIN_FILENO);
        ::dup2(ready[1], STDOUT_FILENO);
        ::execl("/proc/self/exe", "quillet_bench", "--probe=serve", dataFolder.c_str(), nullptr);
        ::_exit(1);
    }
    ::close(life[0]);
    ::close(ready[1]);
    m_life = life[1];
    char sign = 0;
    m_isUp = ::read(ready[0], &sign, 1) == 1;
    ::close(ready[0]);
}

RemoteServer::~RemoteServer()
{
    ::close(m_life);
    if (m_process > 0) ::waitpid(m_process, nullptr, 0);
}

int ProbeServe(const path& dataFolder)
{
    auto service = zentrel::Service::Open(dataFolder, zentrel::Service::Role::Viewer);
    const auto made = MakeCertificates();
    if (!service || !made) return 1;
    zentrel::AdminOptions options;
    options.serverName = "bench";
    options.audit = Beside(dataFolder, ".audit");
    options.limits.connections = 64;
    options.listeners.resize(2);
    options.listeners[0].path = Beside(dataFolder, ".sock");
    options.listeners[1].address = "127.0.0.1";
    options.listeners[1].tls = {made->server.certificate, made->server.key, made->authority.certificate};
    const auto server =
        zentrel::AdminServer::Start(*service, std::make_shared<zentrel::ServiceTable>(), options);
    if (!server) return 1;
    Echo answers;
    int echoPort = 0;
    const auto echo = StartEcho(answers, dataFolder, *made, echoPort);

    Write(Beside(dataFolder, ".port"), std::to_string((*server)->Port(1)));
    Write(Beside(dataFolder, ".echoport"), std::to_string(echoPort));
    Write(Beside(dataFolder, ".ca"), made->authority.certificate);
    Write(Beside(dataFolder, ".pem"), made->client.certificate);
    Write(Beside(dataFolder, ".key"), made->client.key);
    char byte = '!';
    if (::write(STDOUT_FILENO, &byte, 1) != 1) return 1;
    while (::read(STDIN_FILENO, &byte, 1) > 0) {
    }
    ::_exit(0);  // nothing to save; the library takes its time to go down
}

zentrel::RemoteTarget ServerTarget(const path& dataFolder, Wire wire)
{
    return Target(dataFolder, wire, ".sock", ".port");
}

zentrel::RemoteTarget EchoTarget(const path& dataFolder, Wire wire)
{
    return Target(dataFolder, wire, ".echo", ".echoport");
}
