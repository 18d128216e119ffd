#include "zentrel/ctl/NewFile.h"

#include "zentrel/FileHandle.h"

#include <cerrno>
#include <span>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "zentrelctl";

tl::unexpected<SystemError> FailWriting(const std::filesystem::path& place)
{
    return FailErrno(errno, kSource, "Cannot write " + place.string());
}

}  // namespace

Result<NewFile> NewFile::Write(std::filesystem::path place, mode_t mode, std::string_view text)
{
    NewFile made(std::move(place));
    unlink(made.m_written.c_str());  // left behind by one that was killed
    const FileHandle file(open(made.m_written.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                               S_IRUSR | S_IWUSR));
    if (!file) return FailWriting(made.m_place);
    if (auto written = WriteAll(file, std::as_bytes(std::span(text)), kSource); !written)
        return Fail(written.error());
    if (fchmod(file.Get(), mode) != 0 || fsync(file.Get()) != 0) return FailWriting(made.m_place);
    return made;
}

NewFile::~NewFile()
{
    if (!m_written.empty()) unlink(m_written.c_str());
}

Done NewFile::Publish(bool replace)
{
    if (!replace && link(m_written.c_str(), m_place.c_str()) != 0) {
        if (errno != EEXIST) return FailWriting(m_place);
        return Fail(Code::AlreadyExists, kSource, m_place.string() + " exists already; --force replaces it.");
    }
    if (!replace) return {};  // the name that it was written under goes with this object
    if (rename(m_written.c_str(), m_place.c_str()) != 0) return FailWriting(m_place);
    m_written.clear();
    return {};
}

}  // namespace zentrel
