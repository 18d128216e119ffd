#pragma once

#include "platform/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

// A PostgreSQL server of its own: in a temporary folder, on a socket there, with the administrator "quillet"
// whom it trusts; it asks a role "guarded", if one is made, for its password. It ends with this object, or
// with the process. As root it runs as another user, since it refuses to run as root.
class PostgresRig {
public:
    PostgresRig() : m_folder(std::move(*TempFolder::Make("quillet-pg")))
    {
        if (geteuid() == 0) ChooseUser();
        if (!Run({Program("initdb"), "-D", Data(), "-U", "quillet", "-A", "trust", "-E", "UTF8", "--locale=C",
                  "--no-sync", "--no-instructions"}))
            return;
        std::ofstream(Data() + "/pg_hba.conf") << "local all guarded scram-sha-256\nlocal all all trust\n";
        m_server = Start({Program("postgres"), "-D", Data(), "-k", Folder(), "-c", "listen_addresses=", "-c",
                          "fsync=off", "-c", "max_connections=20", "-c", "dynamic_shared_memory_type=mmap"});
        AwaitReady();
    }

    ~PostgresRig() { Kill(); }
    PostgresRig(const PostgresRig&) = delete;
    PostgresRig& operator=(const PostgresRig&) = delete;

    bool IsRunning() const { return m_isReady && m_server > 0; }
    std::string Folder() const { return m_folder.Path().string(); }  // where the socket is

    // Stops it where it stands, all processes of it; it lets itself be connected to, and says nothing.
    void Freeze() const { SignalAll(SIGSTOP); }
    void Thaw() const { SignalAll(SIGCONT); }

    // As after a power failure: connections drop.
    void Kill()
    {
        if (m_server <= 0) return;
        Thaw();
        kill(m_server, SIGQUIT);
        waitpid(m_server, nullptr, 0);
        m_server = -1;
    }

private:
    static std::string Program(const std::string& name)
    {
        std::error_code error;
        for (const auto& version : std::filesystem::directory_iterator("/usr/lib/postgresql", error))
            if (auto file = version.path() / "bin" / name; exists(file)) return file.string();
        ADD_FAILURE() << "PostgreSQL's " << name << " is not installed";
        return {};
    }

    std::string Data() const { return Folder() + "/data"; }

    void ChooseUser()
    {
        const passwd* user = getpwnam("postgres");
        if (user == nullptr) user = getpwnam("nobody");
        ASSERT_NE(user, nullptr);
        m_user = user->pw_uid;
        m_group = user->pw_gid;
        ASSERT_EQ(chown(Folder().c_str(), m_user, m_group), 0);
    }

    // Its output goes to "log" in the folder.
    pid_t Start(const std::vector<std::string>& command) const
    {
        std::vector<char*> arguments;
        for (const auto& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        const auto log = Folder() + "/log";
        const pid_t parent = getpid();
        const pid_t child = fork();
        if (child != 0) return child;
        if (m_user != 0 && (setgroups(0, nullptr) != 0 || setgid(m_group) != 0 || setuid(m_user) != 0))
            _exit(126);
        prctl(PR_SET_PDEATHSIG, SIGQUIT);
        const int output = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
        if (getppid() != parent || chdir(Folder().c_str()) != 0 || output < 0) _exit(126);
        dup2(output, STDOUT_FILENO);
        dup2(output, STDERR_FILENO);
        execv(arguments[0], arguments.data());
        _exit(127);
    }

    bool Run(const std::vector<std::string>& command) const
    {
        int status = -1;
        const pid_t child = Start(command);
        const bool isGood = child > 0 && waitpid(child, &status, 0) == child && status == 0;
        EXPECT_TRUE(isGood) << command[0] << "\n" << Log();
        return isGood;
    }

    std::string Log() const
    {
        std::ifstream stream(Folder() + "/log");
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    void AwaitReady()
    {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!m_isReady && std::chrono::steady_clock::now() < deadline) {
            if (waitpid(m_server, nullptr, WNOHANG) != 0) m_server = -1;
            if (m_server < 0) break;
            std::ifstream stream(Data() + "/postmaster.pid");
            const std::string text(std::istreambuf_iterator<char>(stream), {});
            m_isReady = text.find("ready") != std::string::npos;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_TRUE(m_isReady) << Log();
    }

    void SignalAll(int signal) const
    {
        if (m_server <= 0) return;
        kill(m_server, signal);
        const auto id = std::to_string(m_server);
        std::ifstream children("/proc/" + id + "/task/" + id + "/children");
        for (pid_t child = 0; children >> child;) kill(child, signal);
    }

    TempFolder m_folder;
    uid_t m_user = 0;
    gid_t m_group = 0;
    pid_t m_server = -1;
    bool m_isReady = false;
};
