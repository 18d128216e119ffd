#include "platform/TempFolder.h"

#include "base/FillIn.h"
#include "base/Translate.h"

#include <cerrno>
#include <cstdlib>
#include <exception>
#include <string>
#include <system_error>
#include <utility>

namespace {

constexpr std::string_view kSource = "TempFolder";

std::string ParentFolder()
{
    const char* asked = std::getenv("TMPDIR");
    return asked != nullptr && *asked != '\0' ? asked : "/tmp";
}

}  // namespace

Result<TempFolder> TempFolder::Make(std::string_view prefix)
{
    if (prefix.find_first_of(std::string_view("/\0", 2)) != std::string_view::npos)
        return Fail(Code::InvalidName, kSource);
    // Absolute, so that a later change of the working folder does not change what is removed.
    std::error_code error;
    const auto parent = std::filesystem::absolute(ParentFolder(), error);
    if (error)
        return FailErrno(error.value(), kSource, Translate("TempFolder", "Cannot find the temporary folder"));
    std::string name = (parent / (std::string(prefix) + "XXXXXX")).string();
    if (mkdtemp(name.data()) == nullptr) {
        const int reason = errno;
        return FailErrno(reason, kSource,
                         FillIn(Translate("TempFolder", "Cannot make a folder in %1"), {parent.string()}));
    }
    return TempFolder(std::filesystem::path(std::move(name)));
}

TempFolder::TempFolder(TempFolder&& other) noexcept : m_path(std::exchange(other.m_path, {})) {}

TempFolder& TempFolder::operator=(TempFolder&& other) noexcept
{
    TempFolder taken(std::move(other));  // removes what this one held
    m_path.swap(taken.m_path);
    return *this;
}

TempFolder::~TempFolder()
{
    if (m_path.empty()) return;
    try {
        std::error_code ignored;  // what cannot be removed stays behind; nobody could act on it here
        std::filesystem::remove_all(m_path, ignored);
    } catch (const std::exception&) {
        return;  // out of memory: the folder stays behind
    }
}
