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
    TextRow{13, "The data is invalid."},
    TextRow{14, "Not enough memory is available to complete this operation."},
    TextRow{29, "The system cannot read from or write to the device."},
    TextRow{32, "The process cannot access the file because it is being used by another process."},
    TextRow{50, "The request is not supported."},
    TextRow{87, "The parameter is incorrect."},
    TextRow{112, "There is not enough space on the disk."},
    TextRow{123, "The file name, directory name, or volume label syntax is incorrect."},
    TextRow{183, "Cannot create a file when that file already exists."},
    TextRow{1223, "The operation was canceled by the user."},
    TextRow{1392, "The file or directory is corrupted and unreadable."},
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
