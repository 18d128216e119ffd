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
        {"metrics = [::1]:65535\n", nullptr},
        {"metrics = 0.0.0.0:9280\n", "line 3: \"0.0.0.0:9280\": other machines reach"},
        {"metrics = [::ffff:10.0.0.1]:9280\n", "line 3: \"[::ffff:10.0.0.1]:9280\": other machines reach"},
        {"metrics = ::1:9280\n", "line 3: \"::1:9280\": an address with colons"},
        {"colour = red\n", "line 3: there is no key \"colour\""},
        {"[viewers]\nsocket = " + std::string(120, 'x') + "\n", "line 3: The path of the socket is too long"},
        {"[local]\nsocket = a\nmode = 0666\n", "line 5: everybody would be an admin"},
        {network + "certificate = server.pem\nkey = server.key\n", "line 3: this needs certificate"},
        {network + "without-tls = yes\n", "line 3: Other machines reach 0.0.0.0"},
        {network + "certificate = server.pem\nkey = other.key\nclient-ca = ca.pem\n",
         "line 3: The key is not the certificate's"},
        {network + "certificate = ca.pem\nkey = server.key\nclient-ca = ca.pem\n",
         "line 3: The certificate is not for servers"},
        {"[viewers]\nsocket = a\nmode = 8\n", "line 5: \"mode\" does not go from 0600 to 0777"},
        {"[network]\naddress = ::1\nport = 70000\n" + tls, "line 5: \"port\""},
        {"[limits]\nstreams = 33\n", "line 4: \"streams\" does not go from 1 to 32"},
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
