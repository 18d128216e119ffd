#pragma once

#include "remote/AdminRig.h"
#include "zentrelctl/Program.h"

#include <filesystem>
#include <fstream>
#include <string>

// A data folder and a configuration for the program.
class DaemonRig : public testing::Test {
protected:
    DaemonRig()
    {
        const auto authority = *zentrel::MakeAuthority("test", 30);
        const auto pair = *zentrel::MakeServerCertificate(authority, {"localhost"}, 30);
        const auto other = *zentrel::MakeServerCertificate(authority, {"localhost"}, 30);
        Write("ca.pem", authority.certificate);
        Write("server.pem", pair.certificate);
        Write("server.key", pair.key);
        Write("other.key", other.key);
    }

    std::filesystem::path Folder() const { return m_store.Folder().parent_path(); }

    void Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(Folder() / name, std::ios::trunc) << text;
    }

    // Line 1 of the configuration names the data, line 2 is empty; `text` begins with line 3.
    std::vector<std::string> Configured(const std::string& text, std::vector<std::string> more = {}) const
    {
        Write("zentreld.conf", "data = data\n\n" + text);
        more.insert(more.begin(), {"--config", (Folder() / "zentreld.conf").string()});
        return more;
    }

    std::unique_ptr<zentrel::v1::Administration::Stub> Connect(const std::string& socket) const
    {
        return zentrel::v1::Administration::NewStub(
            grpc::CreateChannel("unix:" + (Folder() / socket).string(), grpc::InsecureChannelCredentials()));
    }

    TestStore m_store;
};
