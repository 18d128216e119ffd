#include "ops/TempFiles.h"

#include "base/FillIn.h"
#include "base/Translate.h"
#include "zentrel/FileHandle.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr std::string_view kSource = "TempFiles";

}  // namespace

Result<std::string> TempFiles::GetTempFile()
{
    if (m_folder.empty()) {
        std::error_code error;
        auto folder = std::filesystem::temp_directory_path(error);
        if (!error) folder = std::filesystem::absolute(folder, error);
        if (error)
            return FailErrno(error.value(), kSource,
                             Translate("TempFolder", "Cannot find the temporary folder"));
        m_folder = std::move(folder);
    }
    std::string name = (m_folder / "tmpXXXXXX").string();
    const zentrel::FileHandle file(mkostemp(name.data(), O_CLOEXEC));  // readable by this user only
    if (file) return name;
    const int reason = errno;
    return FailErrno(
        reason, kSource,
        FillIn(Translate("TempFolder", "Cannot make a temporary file in %1"), {m_folder.string()}));
}

void TempFile::Remove()
{
    if (std::exchange(m_isThere, false)) unlink(m_name.c_str());
}
