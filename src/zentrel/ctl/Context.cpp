#include "zentrel/ctl/Context.h"

#include "zentrel/KeyPath.h"

namespace zentrel {

namespace {

constexpr std::uint32_t kHighestSite = 0x7FFF'FFFF;  // what a site may be numbered

}  // namespace

CLI::Validator KeyPathCheck()
{
    const auto check = [](const std::string& path) {
        const auto checked = CheckPath(path);
        return checked ? std::string{} : checked.error().description;
    };
    return CLI::Validator(check, "PATH");
}

CLI::Option* AddSiteNumber(CLI::App& command, const std::string& name, std::uint32_t& number)
{
    return command.add_option(name, number, "The site's number, 1 or above")
        ->required()
        ->check(CLI::Range(1U, kHighestSite));
}

std::string Counted(std::uint64_t count, std::string_view one, std::string_view several)
{
    return std::to_string(count).append(" ").append(count == 1 ? one : several);
}

tl::unexpected<SystemError> Cancelled(std::string description)
{
    return Fail(Code::Cancelled, "zentrelctl", std::move(description));
}

}  // namespace zentrel
