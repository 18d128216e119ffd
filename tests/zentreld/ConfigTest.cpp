#include "zentreld/DaemonRig.h"

class Config : public DaemonRig {};

TEST_F(Config, TellsTheLineOfWhatIsWrong)
{
    const std::string network = "[network]\naddress = 0.0.0.0\n";
    const std::string tls = "certificate = server.pem\nkey = server.key\nclient-ca = ca.pem\n";
    struct {
        std::string text;
        const char* told;
    } const cases[] = {
        {"", nullptr},
        {"interval = 5\naudit = audit.log\n[local]\nsocket = a\nmode = 0600\n[viewers]\nsocket = b\n" +
             network + tls +
             "[network more]\naddress = ::1\nport = 1\nwithout-tls = yes\n[limits]\nconnections = 1\n" +
             "calls = 1\nstreams = 32\nstreams-per-client = 1\nstall = 1\nstream-time = 1\n" +
             "[service remoteregistry]\nstart = automatic\nneeds = Zentrel\naccount = root\ncheck-in = 1\n",
         nullptr},
        {"[local]\nsocket =\n", nullptr},
        {"metrics = 127.0.0.1:0\n", nullptr},
        {"metrics = [::1]:65535\n", nullptr},
        {"metrics =\n", nullptr},
        {"metrics = 0.0.0.0:9280\n", "line 3: \"0.0.0.0:9280\": other machines reach"},
        {"metrics = [::ffff:10.0.0.1]:9280\n", "line 3: \"[::ffff:10.0.0.1]:9280\": other machines reach"},
        {"metrics = localhost:9280\n", "line 3: \"localhost:9280\": this is no numeric address"},
        {"metrics = ::1:9280\n", "line 3: \"::1:9280\": an address with colons"},
        {"metrics = [127.0.0.1]:9280\n", "line 3: \"[127.0.0.1]:9280\": an address with colons"},
        {"metrics = 127.0.0.1\n", "line 3: \"127.0.0.1\": metrics are offered at"},
        {"[service RemoteRegistry]\nneeds = Zentrel, Nobody\n", nullptr},
        {"colour = red\n", "line 3: there is no key \"colour\""},
        {"interval = 0\n", "line 3: \"interval\""},
        {"interval = 7\ninterval = 8\n", "line 4: \"interval\" stands twice"},
        {"interval = soon\n", "line 3: "},
        {"[remote]\n", "line 3: there is no section [remote]"},
        {"[local extra]\nsocket = a\n", "line 3: "},
        {"[local]\nmode = 0600\n", "line 3: this needs a socket"},
        {"[viewers]\nsocket = " + std::string(120, 'x') + "\n", "line 3: The path of the socket is too long"},
        {"[local]\nsocket = a\nmode = 0666\n", "line 5: everybody would be an admin"},
        {"[viewers]\nsocket = a\nmode = 8\n", "line 5: "},
        {"[viewers]\nsocket = a\n[viewers]\nsocket = b\n", "line 5: there is a section"},
        {network, "line 3: this needs certificate"},
        {network + "certificate = server.pem\nkey = server.key\n", "line 3: this needs certificate"},
        {network + "certificate = gone.pem\n", "line 5: "},
        {network + "without-tls = yes\n", "line 3: Other machines reach 0.0.0.0"},
        {network + tls + "without-tls = yes\n", "line 3: "},
        {network + "without-tls = perhaps\n", "line 5: "},
        {network + "certificate = server.pem\nkey = other.key\nclient-ca = ca.pem\n",
         "line 3: The key is not the certificate's"},
        {network + "certificate = ca.pem\nkey = server.key\nclient-ca = server.key\n", "line 3: "},
        {"[network]\naddress = localhost\n" + tls, "line 3: This is no numeric address"},
        {"[network]\naddress = ::1\nport = 70000\n" + tls, "line 5: \"port\""},
        {"[limits]\nstreams = 33\n", "line 4: \"streams\" does not go from 1 to 32"},
        {"[service]\nstart = manual\n", "line 3: "},
        {"[service RemoteRegistry]\nstart = never\n", "line 4: "},
        {"[service Nobody]\nstart = manual\n", "There is no service \"Nobody\""},
        {"[service zentrel]\nstart = disabled\n", "is this program itself"},
        {"[service RemoteRegistry]\nneeds = REMOTEREGISTRY\n", "needs itself"},
    };
    for (const auto& [text, told] : cases) {
        const auto checked = RunProgram(ZENTRELD, Configured(text, {"--check-config"}));
        EXPECT_EQ(checked.exitCode, told == nullptr ? 0 : 1) << text << checked.err;
        const auto* const expected = told == nullptr ? "info: the configuration is good" : told;
        EXPECT_NE(checked.err.find(expected), std::string::npos) << text << checked.err;
    }
    const auto missing = RunProgram(ZENTRELD, {"--config", "/nowhere/z.conf", "--check-config"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_NE(missing.err.find("/nowhere/z.conf"), std::string::npos) << missing.err;
    EXPECT_FALSE(std::filesystem::exists(Folder() / "data/admin.sock")) << "a check starts nothing";
}
