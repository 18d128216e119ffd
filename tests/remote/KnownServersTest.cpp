#include "platform/TempFolder.h"
#include "support/LyingServer.h"
#include "zentrel/EmbeddedTransport.h"
#include "zentrel/remote/KnownServers.h"
#include "zentrel/remote/ServerDirectory.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

using namespace zentrel;

TEST(HostName, HasThePartsThatAPersonWrites)
{
    struct Case {
        std::string text, host;
        int port;  // 0: not said
    };
    const Case cases[] = {
        {"web01", "web01", 0},
        {"Web_01.example.org:443", "Web_01.example.org", 443},
        {"10.0.0.5:5280", "10.0.0.5", 5280},
        {"::1", "::1", 0},
        {"[::1]", "::1", 0},
        {"[fe80::1]:65535", "fe80::1", 65535},
    };
    for (const auto& [text, host, port] : cases) {
        const auto parsed = ParseHost(text);
        ASSERT_TRUE(parsed) << text;
        EXPECT_EQ(parsed->host, host);
        EXPECT_EQ(parsed->port.value_or(0), port);
    }
    for (const std::string text :
         {"", "web 01", "\\\\web01", "web01/x", "web\n01", "web01:", "web01:0", "web01:65536", "web01:5280x",
          ":5280", "[::1", "[::1]5280", "[]:1", "b\xC3\xBCro"}) {
        const auto parsed = ParseHost(text);
        EXPECT_TRUE(!parsed && parsed.error().Is(Code::ServerUnavailable)) << text;
    }
    EXPECT_FALSE(ParseHost(std::string(256, 'a')));
}

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

[server plain:7000]
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
        {"web01", "10.0.0.5", 6000, "web01.example", "me.key"},
        {"WEB01", "10.0.0.5", 6000, "web01.example", "me.key"},
        {"web01:7", "10.0.0.5", 7, "web01.example", "me.key"},
        {"Büro", "::1", 5280, "", "other.key"},
        {"plain:7000", "plain", 7000, "", "me.key"},
        {"stranger", "stranger", 5280, "", "me.key"},
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
    EXPECT_TRUE(known->Target("no host").error().Is(Code::ServerUnavailable));
}

TEST_F(Known, WhatIsMissingIsSaid)
{
    const auto none = KnownServers::Read(File("nobody.conf"));
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->Target("web01").error().Is(Code::ServerUnavailable));
    EXPECT_NE(none->Target("web01").error().description.find("certificates"), std::string::npos);
    const auto gone = Read("[defaults]\nca = gone.pem\ncertificate = me.pem\nkey = me.key\n");
    ASSERT_TRUE(gone);
    EXPECT_EQ(gone->Target("web01").error().code, Code::FileNotFound);
    EXPECT_NE(gone->Target("web01").error().description.find("gone.pem"), std::string::npos);
}

TEST_F(Known, AMistakeIsNamedByItsLine)
{
    const std::pair<const char*, const char*> cases[] = {
        {"[server a]\nhots = b\n", "line 2"},        {"host = b\n", "line 1"},
        {"[server]\nhost = b\n", "line 1"},          {"[client a]\n", "line 1"},
        {"[defaults]\nhost = b\n", "line 2"},        {"[defaults x]\n", "line 1"},
        {"[server a]\nport = 0\n", "line 2"},        {"[server a]\nport = 5280x\n", "line 2"},
        {"[server a]\nhost = b c\n", "line 2"},      {"[server a]\nhost = b:1\n", "line 2"},
        {"[server a]\n[server A]\n", "line 2"},      {"[server a]\nhost = b\nhost = c\n", "line 3"},
        {"[server a]\ncertificate = c\n", "line 1"}, {"[server a]\nca =\n", "line 2"},
        {"\n[server a]\nnonsense\n", "line 3"},
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
        for (const char* name : {".", "localhost", "LOCALHOST", "127.0.0.1", "::1", "here", "HERE"}) {
            const auto session = Directory().Connect(name);
            ASSERT_TRUE(session) << name;
            EXPECT_EQ((*session)->ServerName(), name);
            EXPECT_TRUE((*session)->IsLocal());
            EXPECT_TRUE((*session)->OpenKey("LM/W3SVC"));
        }
        EXPECT_EQ((*Directory().Connect(""))->ServerName(), "HERE");
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
    for (const char* machine : {"", "127.0.0.1", "\\\\127.0.0.1"}) {
        const auto services = directory.OpenServiceManager(machine, ServiceAccess::GenericRead);
        ASSERT_TRUE(services) << machine;
        EXPECT_TRUE((*services)->ListServices());
    }
    const auto alone = Directory().OpenServiceManager("", ServiceAccess::GenericRead);
    ASSERT_FALSE(alone);
    EXPECT_EQ(alone.error().code, Code::ServerUnavailable & 0xFFFFU);
}

TEST_F(OnThisMachine, OtherNamesNeedTheFileAndAnEntryGoesFirst)
{
    Write("servers.conf", "[server gone");
    EXPECT_EQ(Directory().Connect("web01").error().code, Code::InvalidData);
    EXPECT_EQ(Directory().OpenServiceManager("web01", 4).error().code, Code::ServerUnavailable & 0xFFFFU);
    Write(
        "servers.conf",
        "[server localhost]\nhost = 127.0.0.1\nport = 1\nca = ca.pem\ncertificate = me.pem\nkey = me.key\n");
    const auto refused = Directory().Connect("localhost");
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, Code::ServerUnavailable) << refused.error().description;
    EXPECT_EQ(Directory().Connect("no host").error().code, Code::ServerUnavailable);
}

}  // namespace
