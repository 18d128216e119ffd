#pragma once

#include "platform/Odbc.h"
#include "platform/TempFolder.h"
#include "support/PostgresRig.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// The PostgreSQL driver does not free its locks, its first environment and what its client library made for
// it.
extern "C" __attribute__((used, visibility("default"))) inline const char* __lsan_default_suppressions()
{
    return "leak:psqlodbcw.so\nleak:libpq.so\n";
}

// Data sources of the test's own, in files that take the place of the user's and the machine's while it
// lives: one on an SQLite file in a folder, and one on a PostgreSQL server once that was started. Their names
// are new for each rig, since the driver manager remembers for a while what it read of a name.
class OdbcRig {
public:
    OdbcRig() : m_folder(std::move(*TempFolder::Make("quillet-odbc")))
    {
        setenv("ODBCINI", UserFile().c_str(), 1);
        setenv("ODBCSYSINI", m_folder.Path().c_str(), 1);
        // What they keep for the whole process would count as lost once the driver manager unloads them.
        for (const auto& library :
             {std::string("libpq.so.5"), Driver("libsqlite3odbc.so"), std::string("libodbcinst.so.2")})
            EXPECT_NE(dlopen(library.c_str(), RTLD_NOW | RTLD_NODELETE), nullptr);
        AddSource(Sqlite(), {{"Driver", Driver("libsqlite3odbc.so")}, {"Database", SqliteFile()}});
    }

    ~OdbcRig()
    {
        unsetenv("ODBCINI");
        unsetenv("ODBCSYSINI");
    }
    OdbcRig(const OdbcRig&) = delete;
    OdbcRig& operator=(const OdbcRig&) = delete;

    std::string Sqlite() const { return Unique("lite"); }  // names of data sources
    std::string Postgresql() const { return Unique("server"); }
    // The name, and something of this rig.
    std::string Unique(const std::string& name) const
    {
        const auto folder = m_folder.Path().string();
        return name + " " + folder.substr(folder.size() - 6);
    }

    std::string SqliteFile() const { return (m_folder.Path() / "test.db").string(); }

    std::string UserFile() const { return (m_folder.Path() / "user.ini").string(); }

    PostgresRig& StartPostgres()
    {
        m_server = std::make_unique<PostgresRig>();
        AddSource(Postgresql(), PostgresSettings());
        return *m_server;
    }

    PostgresRig& Postgres() { return *m_server; }

    using Settings = std::vector<std::pair<std::string, std::string>>;
    Settings PostgresSettings() const
    {
        return {{"Driver", Driver("psqlodbcw.so")},
                {"Servername", m_server->Folder()},
                {"Database", "postgres"},
                {"Username", "quillet"}};
    }
    void AddSource(const std::string& name, const Settings& settings) const
    {
        std::ofstream file(UserFile(), std::ios::app);
        file << '[' << name << "]\n";
        for (const auto& [key, value] : settings) file << key << " = " << value << '\n';
    }

    // The driver's library, found where distributions put it.
    static std::string Driver(const std::string& name)
    {
        namespace fs = std::filesystem;
        std::error_code error;
        for (const auto& folder : fs::directory_iterator("/usr/lib", error))
            if (auto file = folder.path() / "odbc" / name; fs::exists(file, error)) return file.string();
        for (const auto* folder : {"/usr/lib/odbc", "/usr/lib64", "/usr/lib"})
            if (auto file = fs::path(folder) / name; fs::exists(file, error)) return file.string();
        ADD_FAILURE() << "the ODBC driver " << name << " is not installed";
        return {};
    }

private:
    TempFolder m_folder;
    std::unique_ptr<PostgresRig> m_server;
};
