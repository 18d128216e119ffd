#include "zentrelctl/Program.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <pty.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string Contents(int file)
{
    std::string text;
    char buffer[4096];
    off_t at = 0;
    for (ssize_t got = 0; (got = pread(file, buffer, sizeof buffer, at)) > 0; at += got)
        text.append(buffer, static_cast<std::size_t>(got));
    return text;
}

}  // namespace

Program::Program(const std::string& file, const std::vector<std::string>& arguments, std::string_view text,
                 Input input)
    : m_isTerminal(input == Input::Terminal)
{
    int childInput = -1;
    if (m_isTerminal) {
        winsize size{24, 60, 0, 0};
        EXPECT_EQ(openpty(&m_input, &childInput, nullptr, nullptr, &size), 0);
        fcntl(m_input, F_SETFD, FD_CLOEXEC);
    } else {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        childInput = ends[0];
        m_input = ends[1];
        m_out = memfd_create("out", MFD_CLOEXEC);
        m_err = memfd_create("err", MFD_CLOEXEC);
    }
    std::vector<char*> argv{const_cast<char*>(file.c_str())};
    for (const auto& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    m_pid = fork();
    if (m_pid == 0) {
        dup2(childInput, STDIN_FILENO);
        dup2(m_isTerminal ? childInput : m_out, STDOUT_FILENO);
        dup2(m_isTerminal ? childInput : m_err, STDERR_FILENO);
        execv(file.c_str(), argv.data());
        _exit(127);
    }
    close(childInput);
    EXPECT_EQ(write(m_input, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    if (input == Input::Given) close(std::exchange(m_input, -1));
}

Program::~Program()
{
    if (m_pid > 0) {
        Signal(SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
    for (const int file : {m_input, m_out, m_err})
        if (file >= 0) close(file);
}

void Program::Signal(int number) const
{
    if (m_pid > 0) kill(m_pid, number);
}

bool Program::WaitForError(std::string_view text)
{
    for (int i = 0; i < 2000; ++i) {
        if (Contents(m_err).find(text) != std::string::npos) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

Outcome Program::Wait()
{
    Outcome outcome;
    if (m_isTerminal) ReadTerminal(outcome);
    int status = 0;
    waitpid(std::exchange(m_pid, -1), &status, 0);
    outcome.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    if (m_isTerminal) return outcome;
    outcome.out = Contents(m_out);
    outcome.err = Contents(m_err);
    return outcome;
}

void Program::ReadTerminal(Outcome& outcome) const
{
    char buffer[4096];
    for (ssize_t got = 0; (got = read(m_input, buffer, sizeof buffer)) > 0;)
        outcome.out.append(buffer, static_cast<std::size_t>(got));
}
