#include "help/SystemInformationPath.h"

#include "settings/Registry.h"

#include <string>
#include <system_error>

namespace {

std::string TextAt(RegistryStore& registry, const char* key, const char* name)
{
    Registry machine(registry);
    machine.hKey = kLocalMachine;
    machine.KeyRoot = key;
    const auto value = machine.GetRegistryValue(name);
    const auto* const text = std::get_if<std::string>(&value);
    return text == nullptr ? std::string() : *text;
}

}  // namespace

std::filesystem::path SystemInformationPath(RegistryStore& registry)
{
    const auto path = TextAt(registry, R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)", "PATH");
    if (!path.empty()) return path;
    const auto folder = TextAt(registry, R"(SOFTWARE\Microsoft\Shared Tools Location)", "MSINFO");
    if (folder.empty()) return {};
    auto program = std::filesystem::path(folder) / "MSINFO32.EXE";
    std::error_code ignored;
    return std::filesystem::exists(program, ignored) ? program : std::filesystem::path();
}
