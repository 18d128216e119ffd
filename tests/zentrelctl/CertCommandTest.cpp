#include "zentrelctl/Server.h"

#include "zentrel/TextFile.h"
#include "zentrel/remote/Certificates.h"

#include <sys/stat.h>

namespace fs = std::filesystem;

class CertCommandTest : public Server {
protected:
    fs::path Folder() const { return Root() / "certificates"; }

    // zentrelctl cert KIND --dir FOLDER ...
    Outcome Cert(const std::string& kind, Args rest) const
    {
        rest.insert(rest.begin(), {"cert", kind, "--dir", Folder().string()});
        return RunProgram(ZENTRELCTL, rest);
    }

    static mode_t Mode(const fs::path& file)
    {
        struct stat info {};
        return stat(file.c_str(), &info) == 0 ? info.st_mode & 07777U : 0;
    }
};

TEST_F(CertCommandTest, AnAuthorityAndWhatItSigns)
{
    const auto authority = Cert("authority", {"--name", "Ours"});
    EXPECT_EQ(authority.exitCode, 0) << authority.err;
    EXPECT_EQ(Mode(Folder()), 0700U);
    const auto server = Cert("server", {"web01", "10.0.0.5", "--days", "30"});
    EXPECT_EQ(server.exitCode, 0) << server.err;
    EXPECT_TRUE(Contains(server.out, "  certificate = web01.pem\n  key = web01.key\n")) << server.out;
    const auto client = Cert("client", {"--role", "operator", "Anna B."});
    EXPECT_EQ(client.exitCode, 0) << client.err;
    for (const char* const key : {"ca.key", "web01.key", "Anna B..key"})
        EXPECT_EQ(Mode(Folder() / key), 0600U);
    EXPECT_EQ(std::distance(fs::directory_iterator(Folder()), {}), 6) << "nothing else is left";

    const auto read = zentrel::ReadClient(zentrel::ReadTextFile(Folder() / "Anna B..pem", 1 << 16).value());
    ASSERT_TRUE(read) << read.error().description;
    EXPECT_EQ(read->who, "Anna B.");
    EXPECT_EQ(read->role, zentrel::Role::Operator);
    const auto shown = RunProgram(ZENTRELCTL, {"cert", "show", (Folder() / "web01.pem").string()}).out;
    for (const char* const part : {"Kind         server\n", "Reached as   10.0.0.5\n", "Signed by    Ours\n"})
        EXPECT_TRUE(Contains(shown, part)) << shown;
}

TEST_F(CertCommandTest, NothingIsReplacedUnlessForced)
{
    const auto content = [&](const char* name) {
        return zentrel::ReadTextFile(Folder() / name, 1 << 16).value_or("");
    };
    EXPECT_EQ(Cert("authority", {}).exitCode, 0);
    const auto pem = content("ca.pem");
    const auto key = content("ca.key");
    const auto again = Cert("authority", {});
    EXPECT_EQ(again.exitCode, 1);
    EXPECT_TRUE(Contains(again.err, "ca.key exists already; --force replaces it. (error 183)")) << again.err;
    fs::remove(Folder() / "ca.key");
    EXPECT_EQ(Cert("authority", {}).exitCode, 1) << "half of a pair";
    EXPECT_FALSE(fs::exists(Folder() / "ca.key")) << "no key is left that fits nothing";
    EXPECT_EQ(content("ca.pem"), pem);
    EXPECT_EQ(Cert("authority", {"--force"}).exitCode, 0);
    EXPECT_NE(content("ca.pem"), pem);
    EXPECT_NE(content("ca.key"), key);
    EXPECT_EQ(Mode(Folder() / "ca.key"), 0600U);
}

TEST_F(CertCommandTest, WrongUsageAndFailuresAreToldApart)
{
    const auto missing = Cert("client", {"--role", "admin", "anna"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(Contains(missing.err, "There is no authority in")) << missing.err;
    EXPECT_EQ(Cert("authority", {}).exitCode, 0);
    for (const auto& [kind, rest] :
         std::vector<std::pair<std::string, Args>>{{"server", {"ca"}},
                                                   {"server", {"web01", "--days", "0"}},
                                                   {"client", {"--role", "root", "anna"}},
                                                   {"client", {"--role", "admin", "../anna"}}}) {
        const auto outcome = Cert(kind, rest);
        EXPECT_EQ(outcome.exitCode, 2) << kind << " " << (rest.empty() ? "" : rest.back()) << outcome.err;
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(Folder()), {}), 2);
}
