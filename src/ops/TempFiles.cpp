#include "ops/TempFiles.h"

#include "base/FillIn.h"
#include "base/Translate.h"
#include "platform/BackgroundJob.h"
#include "zentrel/FileHandle.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr std::string_view kSource = "TempFiles";
constexpr off_t kLarge = off_t{16} << 20U;  // bytes; the room of less is given back in no time

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

// The system gives the room of a file back when nobody holds it any longer. Some need a third of a second for
// 1 GiB, so the last one to hold a large file is a thread of its own.
void TempFile::Remove()
{
    if (!std::exchange(m_isThere, false)) return;
    zentrel::FileHandle held(open(m_name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    unlink(m_name.c_str());
    struct stat status {};
    if (!held || fstat(held.Get(), &status) != 0 || status.st_size < kLarge) return;
    const auto large = std::make_shared<zentrel::FileHandle>(std::move(held));
    static_cast<void>(background::RunDetached([large] { large->Close(); }));
}
