#include "platform/TempFolder.h"
#include "support/LyingServer.h"
#include "zentrel/EmbeddedTransport.h"
#include "zentrel/remote/KnownServers.h"
#include "zentrel/remote/ServerDirectory.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

using namespace zentrel;

class Known : public ::testing::Test {
protected:
    Known()
    {
        for (const char* name : {"ca.pem", "me.pem", "me.key", "other.pem", "other.key"}) Write(name, name);
    }
    void Write(const std::string& name, const std::string& text) { std::ofstream(File(name)) << text; }
    std::filesystem::path File(const std::string& name) const { return m_folder.Path() / name; }
    Result<KnownServers> Read(const std::string& text)
    {
        Write("servers.conf", text);
        return KnownServers::Read(File("servers.conf"));
    }

private:
    TempFolder m_folder = std::move(*TempFolder::Make("quillet-known"));
};

constexpr const char* kServers = R"([defaults]
ca = ca.pem
certificate = me.pem
key = me.key

[server web01]
host = 10.0.0.5
port = 6000
name = web01.example

[server Büro]
host = ::1
certificate = other.pem
key = other.key
)";

TEST_F(Known, ANameLeadsToItsHostWithItsCertificates)
{
    const auto known = Read(kServers);
    ASSERT_TRUE(known) << known.error().description;
    struct Case {
        std::string name, host;
        int port;
        std::string certificateName, key;
    };
    const Case cases[] = {
        {"WEB01", "10.0.0.5", 6000, "web01.example", "me.key"},
        {"web01:7", "10.0.0.5", 7, "web01.example", "me.key"},
        {"Büro", "::1", 5280, "", "other.key"},
        {"[::2]:9", "::2", 9, "", "me.key"},
    };
    for (const auto& [name, host, port, certificateName, key] : cases) {
        const auto target = known->Target(name);
        ASSERT_TRUE(target) << name << target.error().description;
        EXPECT_EQ(target->host, host);
        EXPECT_EQ(target->port, port) << name;
        EXPECT_EQ(target->certificateName, certificateName);
        EXPECT_EQ(target->key, key);
        EXPECT_EQ(target->authority, "ca.pem");
    }
    for (const char* wrong : {"no host", "web01:0", "web01:65536", "[::1", "caf\xC3\xA9"})
        EXPECT_TRUE(known->Target(wrong).error().Is(Code::ServerUnavailable)) << wrong;
}

TEST_F(Known, AMistakeIsNamedByItsLine)
{
    const std::pair<const char*, const char*> cases[] = {
        {"[server a]\nhots = b\n", "line 2"},   {"host = b\n", "line 1"},
        {"[server a]\nport = 0\n", "line 2"},   {"[server a]\nhost = b:1\n", "line 2"},
        {"[server a]\n[server A]\n", "line 2"}, {"[server a]\ncertificate = c\n", "line 1"},
        {"[server a]\nca =\n", "line 2"},       {"\n[server a]\nnonsense\n", "line 3"},
    };
    for (const auto& [text, line] : cases) {
        const auto known = Read(text);
        ASSERT_FALSE(known) << text;
        EXPECT_EQ(known.error().code, Code::InvalidData);
        const auto& told = known.error().description;
        EXPECT_NE(told.find("servers.conf: " + std::string(line)), std::string::npos) << told;
    }
}

// This machine's service without a daemon around it.
class OnThisMachine : public Known {
protected:
    OnThisMachine() { EXPECT_TRUE(Service::Init(File("data"))); }
    ServerDirectory Directory(std::vector<std::filesystem::path> sockets = {})
    {
        return ServerDirectory(std::make_shared<EmbeddedTransport>(File("data"), "HERE"),
                               {std::move(sockets), File("servers.conf")});
    }
};

TEST_F(OnThisMachine, LocalNamesLeadToTheEmbeddedServiceUnderTheNameThatWasGiven)
{
    for (const char* text : {"", "[server gone", kServers}) {  // a bad file is no harm here
        Write("servers.conf", text);
        for (const char* name : {".", "LOCALHOST", "127.0.0.1", "::1", "here"}) {
            const auto session = Directory().Connect(name);
            ASSERT_TRUE(session) << name;
            EXPECT_EQ((*session)->ServerName(), name);
            EXPECT_TRUE((*session)->IsLocal());
            EXPECT_TRUE((*session)->OpenKey("LM/W3SVC"));
        }
    }
}

TEST_F(OnThisMachine, ADaemonThatListensIsAskedFirstAndItsServicesToo)
{
    std::ofstream(File("stale.sock"));
    const LyingServer daemon;
    auto directory = Directory({File("none.sock"), File("stale.sock"), daemon.Socket()});
    const auto session = directory.Connect("127.0.0.1");
    ASSERT_TRUE(session);
    EXPECT_EQ((*session)->ServerName(), "127.0.0.1");
    EXPECT_TRUE((*session)->IsLocal());
    EXPECT_EQ(daemon.Calls(), 1);
    const auto services = directory.OpenServiceManager("\\\\127.0.0.1", ServiceAccess::GenericRead);
    ASSERT_TRUE(services);
    EXPECT_TRUE((*services)->ListServices());
}

TEST_F(OnThisMachine, OtherNamesNeedTheFileAndAnEntryGoesFirst)
{
    Write("servers.conf", "[server gone");
    EXPECT_EQ(Directory().Connect("web01").error().code, Code::InvalidData);
    Write(
        "servers.conf",
        "[server localhost]\nhost = 127.0.0.1\nport = 1\nca = ca.pem\ncertificate = me.pem\nkey = me.key\n");
    const auto refused = Directory().Connect("localhost");
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, Code::ServerUnavailable) << refused.error().description;
}

}  // namespace
