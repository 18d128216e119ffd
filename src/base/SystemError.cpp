#include "base/Result.h"

#include <array>
#include <cerrno>
#include <system_error>

namespace {

struct TextRow {
    std::uint32_t plain;
    const char* text;
};

constexpr std::array kTexts{
    TextRow{2, "The system cannot find the file specified."},
    TextRow{3, "The system cannot find the path specified."},
    TextRow{5, "Access is denied."},
    TextRow{6, "The handle is invalid."},
    TextRow{13, "The data is invalid."},
    TextRow{14, "Not enough memory is available to complete this operation."},
    TextRow{29, "The system cannot read from or write to the device."},
    TextRow{32, "The process cannot access the file because it is being used by another process."},
    TextRow{50, "The request is not supported."},
    TextRow{87, "The parameter is incorrect."},
    TextRow{112, "There is not enough space on the disk."},
    TextRow{123, "The file name, directory name, or volume label syntax is incorrect."},
    TextRow{161, "The specified path is invalid."},
    TextRow{183, "Cannot create a file when that file already exists."},
    TextRow{234, "More data is available."},
    TextRow{259, "No more data is available."},
    TextRow{997, "The operation is in progress."},
    TextRow{1051, "Services that run need this service."},
    TextRow{1053, "The service did not respond to the start or control request in a timely fashion."},
    TextRow{1054, "A thread could not be created for the service."},
    TextRow{1055, "The service database is locked."},
    TextRow{1056, "An instance of the service is already running."},
    TextRow{1058, "The service is disabled."},
    TextRow{1060, "The specified service does not exist."},
    TextRow{1062, "The service has not been started."},
    TextRow{1068, "The dependency service or group failed to start."},
    TextRow{1069, "The service did not start because its account could not log on."},
    TextRow{1075, "A service that the service depends on does not exist or will be deleted."},
    TextRow{1015, "The registry is corrupted."},
    TextRow{1016, "An I/O operation initiated by the registry failed unrecoverably."},
    TextRow{1018, "Illegal operation attempted on a registry key that has been marked for deletion."},
    TextRow{1223, "The operation was canceled by the user."},
    TextRow{1392, "The file or directory is corrupted and unreadable."},
    TextRow{1460, "The operation took too long and was given up."},
    TextRow{1717, "The interface is unknown."},
    TextRow{1722, "The server is unavailable."},
    TextRow{1759, "The interface was not found."},
};

}  // namespace

std::string SystemText(std::uint32_t code)
{
    for (const auto& row : kTexts)
        if (row.plain == (code & 0xFFFFU)) return row.text;
    return "Unknown error";
}

std::uint32_t CodeFromErrno(int error)
{
    switch (error) {
    case ENOENT: return Code::FileNotFound;
    case ENOTDIR: return Code::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS: return Code::AccessDenied;
    case ENOMEM: return Code::OutOfMemory;
    case EAGAIN:
    case EBUSY: return Code::SharingViolation;
    case EINVAL: return Code::InvalidParameter;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return Code::DiskFull;
    case EEXIST: return Code::AlreadyExists;
    case ENAMETOOLONG: return Code::InvalidName;
    default: return Code::IoError;
    }
}

tl::unexpected<SystemError> FailErrno(int error, std::string_view source, std::string_view what)
{
    return Fail(CodeFromErrno(error), source,
                std::string(what) + ": " + std::generic_category().message(error));
}
