#include "zentrel/daemon/Log.h"

#include "zentrel/Printable.h"

#include <unistd.h>

#include <string>

namespace zentrel::Log {

namespace {

void Write(std::string_view level, std::string_view text)
{
    const auto line = "zentreld: " + std::string(level) + ": " + Printable(text) + '\n';
    if (write(STDERR_FILENO, line.data(), line.size()) < 0) return;  // nobody is left to be told
}

}  // namespace

void Info(std::string_view text)
{
    Write("info", text);
}

void Warning(std::string_view text)
{
    Write("warning", text);
}

void Error(std::string_view text)
{
    Write("error", text);
}

void Error(std::string_view text, const SystemError& error)
{
    Error(std::string(text) + ": " + error.description + " (error " + std::to_string(error.Plain()) + ')');
}

}  // namespace zentrel::Log
