#include "base/Result.h"
#include "base/Translate.h"

#include <array>
#include <cerrno>
#include <system_error>

namespace {

struct TextRow {
    std::uint32_t plain;
    const char* text;
};

constexpr std::array kTexts{
    TextRow{2, TRANSLATE_NOOP("SystemError", "The system cannot find the file specified.")},
    TextRow{3, TRANSLATE_NOOP("SystemError", "The system cannot find the path specified.")},
    TextRow{5, TRANSLATE_NOOP("SystemError", "Access is denied.")},
    TextRow{6, TRANSLATE_NOOP("SystemError", "The handle is invalid.")},
    TextRow{13, TRANSLATE_NOOP("SystemError", "The data is invalid.")},
    TextRow{14, TRANSLATE_NOOP("SystemError", "Not enough memory is available to complete this operation.")},
    TextRow{29, TRANSLATE_NOOP("SystemError", "The system cannot read from or write to the device.")},
    TextRow{32, TRANSLATE_NOOP(
                    "SystemError",
                    "The process cannot access the file because it is being used by another process.")},
    TextRow{50, TRANSLATE_NOOP("SystemError", "The request is not supported.")},
    TextRow{87, TRANSLATE_NOOP("SystemError", "The parameter is incorrect.")},
    TextRow{112, TRANSLATE_NOOP("SystemError", "There is not enough space on the disk.")},
    TextRow{123, TRANSLATE_NOOP("SystemError",
                                "The file name, directory name, or volume label syntax is incorrect.")},
    TextRow{161, TRANSLATE_NOOP("SystemError", "The specified path is invalid.")},
    TextRow{183, TRANSLATE_NOOP("SystemError", "Cannot create a file when that file already exists.")},
    TextRow{234, TRANSLATE_NOOP("SystemError", "More data is available.")},
    TextRow{259, TRANSLATE_NOOP("SystemError", "No more data is available.")},
    TextRow{997, TRANSLATE_NOOP("SystemError", "The operation is in progress.")},
    TextRow{1051, TRANSLATE_NOOP("SystemError", "Services that run need this service.")},
    TextRow{1053, TRANSLATE_NOOP(
                      "SystemError",
                      "The service did not respond to the start or control request in a timely fashion.")},
    TextRow{1054, TRANSLATE_NOOP("SystemError", "A thread could not be created for the service.")},
    TextRow{1055, TRANSLATE_NOOP("SystemError", "The service database is locked.")},
    TextRow{1056, TRANSLATE_NOOP("SystemError", "An instance of the service is already running.")},
    TextRow{1058, TRANSLATE_NOOP("SystemError", "The service is disabled.")},
    TextRow{1060, TRANSLATE_NOOP("SystemError", "The specified service does not exist.")},
    TextRow{1062, TRANSLATE_NOOP("SystemError", "The service has not been started.")},
    TextRow{1068, TRANSLATE_NOOP("SystemError", "The dependency service or group failed to start.")},
    TextRow{1069,
            TRANSLATE_NOOP("SystemError", "The service did not start because its account could not log on.")},
    TextRow{1075, TRANSLATE_NOOP("SystemError",
                                 "A service that the service depends on does not exist or will be deleted.")},
    TextRow{1015, TRANSLATE_NOOP("SystemError", "The registry is corrupted.")},
    TextRow{1016, TRANSLATE_NOOP("SystemError",
                                 "An I/O operation initiated by the registry failed unrecoverably.")},
    TextRow{1018, TRANSLATE_NOOP(
                      "SystemError",
                      "Illegal operation attempted on a registry key that has been marked for deletion.")},
    TextRow{1223, TRANSLATE_NOOP("SystemError", "The operation was canceled by the user.")},
    TextRow{1392, TRANSLATE_NOOP("SystemError", "The file or directory is corrupted and unreadable.")},
    TextRow{1460, TRANSLATE_NOOP("SystemError", "The operation took too long and was given up.")},
    TextRow{1717, TRANSLATE_NOOP("SystemError", "The interface is unknown.")},
    TextRow{1722, TRANSLATE_NOOP("SystemError", "The server is unavailable.")},
    TextRow{1759, TRANSLATE_NOOP("SystemError", "The interface was not found.")},
};

}  // namespace

std::string SystemText(std::uint32_t code)
{
    for (const auto& row : kTexts)
        if (row.plain == (code & 0xFFFFU)) return Translate("SystemError", row.text);
    return Translate("SystemError", "Unknown error");
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
    case EBUSY:
    case EADDRINUSE: return Code::SharingViolation;
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
