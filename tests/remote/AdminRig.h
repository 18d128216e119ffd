#pragma once

#include "support/TestStore.h"
#include "zentrel/EmbeddedTransport.h"
#include "zentrel/remote/AdminServer.h"
#include "zentrel/remote/Certificates.h"
#include "zentrel/remote/ListenSocket.h"
#include "zentrel/remote/RemoteTransport.h"

#include "administration.grpc.pb.h"

#include <grpcpp/grpcpp.h>
#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

// A server with every kind of listener on a small store, and bare clients of it.
class AdminRig : public testing::Test {
protected:
    using Stub = zentrel::v1::Administration::Stub;
    enum Listener : std::size_t { kAdmins, kViewers, kTls, kTls6 };

    AdminRig()
    {
        m_store.PutSite(1, "Main");
        PutEntries(1, 30, [this](std::uint32_t i) {
            return m_root + "/dir" + std::to_string(i % 3) + "/page" + std::to_string(i);
        });
    }

    template <class PathOf>
    void PutEntries(std::uint32_t first, std::uint32_t count, PathOf pathOf, std::size_t bulk = 0)
    {
        m_store.Write([&](auto& txn) {
            for (auto i = first; i < first + count; ++i) {
                auto set = TestStore::Entry(i, 1000, 300);
                if (bulk != 0) set.SetBytes(9999, zentrel::Bytes(bulk));
                EXPECT_TRUE(txn.SetProperties(pathOf(i), set));
            }
        });
    }

    void Start()
    {
        auto opened = zentrel::Service::Open(m_store.Folder(), zentrel::Service::Role::Writer);
        ASSERT_TRUE(opened) << opened.error().description;
        service = *opened;
        services->Add(zentrel::kRemoteReading, {[](const std::function<void()>& checkIn) {
                                                    checkIn();
                                                    return Done();
                                                },
                                                [] {}});
        const auto tls = zentrel::AdminTls{serverPair.certificate, serverPair.key, authority.certificate};
        const bool hasV6 = zentrel::ListenTcp("::1", 0).has_value();  // not every machine has
        options.serverName = "testhost";
        options.audit = Path("audit.log");
        const auto* const other = hasV6 ? "::1" : "127.0.0.2";  // not in the certificate
        options.listeners = {{Path("admin.sock"), 0660, {}, 0, {}, zentrel::Role::Admin},
                             {Path("viewer.sock"), 0666, {}, 0, {}, zentrel::Role::Viewer},
                             {{}, 0, "127.0.0.1", 0, tls},
                             {{}, 0, other, 0, tls}};
        auto started = zentrel::AdminServer::Start(service, services, options);
        ASSERT_TRUE(started) << started.error().description;
        server = std::move(*started);
    }

    std::filesystem::path Path(const std::string& name) const
    {
        return m_store.Folder().parent_path() / name;
    }

    std::shared_ptr<grpc::ChannelCredentials> As(zentrel::Role role, const std::string& who = "alice",
                                                 const zentrel::KeyPair* signer = nullptr)
    {
        const auto pair =
            zentrel::MakeClientCertificate(signer == nullptr ? authority : *signer, who, role, 30);
        return grpc::SslCredentials({authority.certificate, pair->key, pair->certificate});
    }

    // Where a client finds a listener and, with TLS, who it is.
    zentrel::RemoteTarget TargetOf(Listener listener, zentrel::Role role = zentrel::Role::Admin) const
    {
        zentrel::RemoteTarget target;
        target.socket = options.listeners[listener].path;
        if (!target.socket.empty()) return target;
        const auto pair = zentrel::MakeClientCertificate(authority, "tester", role, 30);
        target.host = options.listeners[listener].address;
        target.port = server->Port(listener);
        target.authority = authority.certificate;
        target.certificate = pair->certificate;
        target.key = pair->key;
        return target;
    }

    std::shared_ptr<grpc::Channel> Dial(Listener listener,
                                        std::shared_ptr<grpc::ChannelCredentials> credentials = nullptr) const
    {
        grpc::ChannelArguments arguments;
        arguments.SetInt("a channel of its own", ++m_channels);  // else gRPC shares connections
        arguments.SetInt(GRPC_ARG_HTTP2_BDP_PROBE, 0);
        if (!credentials) credentials = grpc::InsecureChannelCredentials();
        return grpc::CreateCustomChannel(Target(listener), credentials, arguments);
    }

    std::unique_ptr<Stub> Connect(Listener listener,
                                  std::shared_ptr<grpc::ChannelCredentials> credentials = nullptr) const
    {
        return zentrel::v1::Administration::NewStub(Dial(listener, std::move(credentials)));
    }

    std::string Target(Listener listener) const
    {
        if (listener == kAdmins || listener == kViewers)
            return "unix:" + options.listeners[listener].path.string();
        const auto port = std::to_string(server->Port(listener));
        const auto& address = options.listeners[listener].address;
        return (address == "::1" ? "[::1]" : address) + ':' + port;
    }

    // The audit log's lines, without their times.
    std::vector<std::string> Audit() const
    {
        std::ifstream file(Path("audit.log"));
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);) lines.push_back(line.substr(line.find(' ') + 1));
        return lines;
    }

    const std::string m_root = "LM/W3SVC/1/Root";
    TestStore m_store;
    zentrel::KeyPair authority = *zentrel::MakeAuthority("test", 30);
    zentrel::KeyPair serverPair = *zentrel::MakeServerCertificate(authority, {"127.0.0.1", "localhost"}, 30);
    std::shared_ptr<zentrel::Service> service;
    std::shared_ptr<zentrel::ServiceTable> services = std::make_shared<zentrel::ServiceTable>();
    zentrel::AdminOptions options;
    std::unique_ptr<zentrel::AdminServer> server;

private:
    mutable std::atomic<int> m_channels{0};
};

// What a failed call says: the code of its Failure, else 100000 + gRPC's own.
inline std::uint32_t CodeIn(const grpc::Status& status)
{
    zentrel::v1::Failure failure;
    if (status.ok()) return 0;
    if (status.error_details().empty() || !failure.ParseFromString(status.error_details()))
        return 100'000U + static_cast<std::uint32_t>(status.error_code());
    return failure.code() & 0xFFFFU;
}

// Makes one call with a deadline of ten seconds.
template <class Request, class Reply>
std::uint32_t Ask(zentrel::v1::Administration::Stub& stub,
                  grpc::Status (zentrel::v1::Administration::Stub::*call)(grpc::ClientContext*,
                                                                          const Request&, Reply*),
                  const Request& request, Reply* reply = nullptr)
{
    Reply unused;
    grpc::ClientContext context;
    context.set_deadline(std::chrono::system_clock::now() + std::chrono::seconds(10));
    return CodeIn((stub.*call)(&context, request, reply == nullptr ? &unused : reply));
}

inline zentrel::v1::KeyRequest Key(const std::string& path)
{
    zentrel::v1::KeyRequest request;
    request.set_path(path);
    return request;
}

inline zentrel::v1::ServiceRequest ServiceNamed(const std::string& name, std::uint32_t access = 0)
{
    zentrel::v1::ServiceRequest request;
    request.set_name(name);
    request.set_access(access);
    return request;
}

// Reads a whole subtree; empty when the stream fails.
inline std::string ReadSubtree(zentrel::v1::Administration::Stub& stub, const std::string& path,
                               std::uint32_t* code = nullptr)
{
    grpc::ClientContext context;
    context.set_deadline(std::chrono::system_clock::now() + std::chrono::seconds(20));
    const auto stream = stub.OpenSubtree(&context, Key(path));
    zentrel::v1::SubtreeBatch batch;
    std::string rows;
    while (stream->Read(&batch)) rows += batch.rows();
    const auto ended = CodeIn(stream->Finish());
    if (code != nullptr) *code = ended;
    return ended == 0 ? rows : std::string();
}

inline std::uint32_t DeleteTree(zentrel::v1::Administration::Stub& stub, const std::string& path,
                                std::vector<zentrel::v1::DeleteProgress>* news = nullptr)
{
    grpc::ClientContext context;
    context.set_deadline(std::chrono::system_clock::now() + std::chrono::seconds(20));
    const auto stream = stub.DeleteTree(&context, Key(path));
    for (zentrel::v1::DeleteProgress one; stream->Read(&one);)
        if (news != nullptr) news->push_back(one);
    return CodeIn(stream->Finish());
}
