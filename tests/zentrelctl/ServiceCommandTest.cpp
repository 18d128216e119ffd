#include "zentrelctl/Server.h"

#include "zentrel/remote/ListenSocket.h"

#include <csignal>

// A zentreld that administrators reach over TCP, made with the program's own certificates.
class ServiceCommandTest : public Server {
protected:
    std::filesystem::path Folder() const { return Root() / "certificates"; }

    void WriteConfig(const char* name, const std::string& text) const
    {
        std::ofstream(Folder() / name) << text;
    }

    void MakeHost() const
    {
        const auto port = zentrel::PortOf(*zentrel::ListenTcp("127.0.0.1", 0));  // free again
        Do({"init"});
        for (const auto& made : std::vector<Args>{{"authority"},
                                                  {"server", "web01", "127.0.0.1"},
                                                  {"client", "--role", "admin", "anna"},
                                                  {"client", "--role", "operator", "bert"}}) {
            Args arguments{"cert", made.front(), "--dir", Folder().string()};
            arguments.insert(arguments.end(), made.begin() + 1, made.end());
            Do(arguments);
        }
        const auto at = "address = 127.0.0.1\nport = " + std::to_string(port) + "\n";
        WriteConfig("zentreld.conf",
                    "[network]\ncertificate = web01.pem\nkey = web01.key\nclient-ca = ca.pem\n" + at);
        std::string servers = "[defaults]\nca = ca.pem\n";
        for (const std::string who : {"anna", "bert"})
            servers += "[server " + who + "]\nhost = 127.0.0.1\nport = " + std::to_string(port) +
                       "\ncertificate = " + who + ".pem\nkey = " + who + ".key\nname = web01\n";
        WriteConfig("servers.conf", servers);
    }

    // zentrelctl service ACTION --server NAME [SERVICE]
    Outcome At(const std::string& server, const std::string& action,
               const Args& rest = {"remoteregistry"}) const
    {
        Args arguments{
            "service", action, "--server", server, "--known-servers", (Folder() / "servers.conf").string()};
        arguments.insert(arguments.end(), rest.begin(), rest.end());
        return Ctl(arguments);
    }
};

TEST_F(ServiceCommandTest, AnAdministratorStartsAndStopsServicesFromAfar)
{
    MakeHost();
    Program daemon(ZENTRELD, OnData({"--config", (Folder() / "zentreld.conf").string()}));
    ASSERT_TRUE(daemon.WaitForError("admin.sock"));
    const auto query = [&] {
        return Do({"service", "query", "RemoteRegistry"});
    };  // through the local socket
    EXPECT_EQ(query(), "RemoteRegistry: stopped\n");
    const auto started = At("anna", "start");
    EXPECT_EQ(started.out, "remoteregistry: running\n") << started.err;
    EXPECT_EQ(query(), "RemoteRegistry: running\n");
    EXPECT_TRUE(Contains(At("anna", "list", {}).out, "running  manual     RemoteRegistry\n"));
    EXPECT_EQ(At("bert", "query").exitCode, 0);
    const auto refused = At("bert", "stop");
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(Contains(refused.err, "(error 5)")) << refused.err;
    EXPECT_EQ(query(), "RemoteRegistry: running\n");
    EXPECT_EQ(At("anna", "stop").out, "remoteregistry: stopped\n");
    EXPECT_TRUE(Contains(At("anna", "query", {"none"}).err, "(error 1060)"));
    EXPECT_EQ(query(), "RemoteRegistry: stopped\n");
    daemon.Signal(SIGTERM);
    EXPECT_EQ(daemon.Wait().exitCode, 0);
}

TEST_F(ServiceCommandTest, AHostThatDoesNotAnswerIsUnavailable)
{
    MakeHost();
    EXPECT_TRUE(Contains(At("anna", "query").err, "(error 1722)"));
    for (const char* const name : {"", "localhost"}) {
        const auto outcome = Ctl({"service", "query", "RemoteRegistry", "--server", name});
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_TRUE(Contains(outcome.err, " listens there. (error 1722)")) << outcome.err;
    }
    EXPECT_EQ(Ctl({"service", "query"}).exitCode, 2);
}
