#pragma once

#include <cstdint>
#include <string>

// The system codes that the program produces or tells apart. A code may come plain (5) or wrapped in 32
// bits (0x80070005); SystemError::Plain() makes them comparable.
namespace Code {
inline constexpr std::uint32_t FileNotFound = 2;
inline constexpr std::uint32_t PathNotFound = 3;
inline constexpr std::uint32_t AccessDenied = 5;
inline constexpr std::uint32_t InvalidHandle = 6;
inline constexpr std::uint32_t OutOfMemory = 14;
inline constexpr std::uint32_t IoError = 29;
inline constexpr std::uint32_t SharingViolation = 32;
inline constexpr std::uint32_t NotSupported = 50;
inline constexpr std::uint32_t InvalidParameter = 87;
inline constexpr std::uint32_t DiskFull = 112;
inline constexpr std::uint32_t InvalidName = 123;
inline constexpr std::uint32_t BadPathName = 161;
inline constexpr std::uint32_t AlreadyExists = 183;
inline constexpr std::uint32_t InvalidData = 13;
inline constexpr std::uint32_t MoreData = 234;          // the buffer is too small
inline constexpr std::uint32_t NoMoreItems = 259;       // an enumeration is at its end
inline constexpr std::uint32_t IoPending = 997;         // begun, not ended yet
inline constexpr std::uint32_t ServiceIsNeeded = 1051;  // by services that run
inline constexpr std::uint32_t ServiceNoCheckIn = 1053;
inline constexpr std::uint32_t ServiceNoThread = 1054;
inline constexpr std::uint32_t ServiceDatabaseLocked = 1055;
inline constexpr std::uint32_t ServiceAlreadyRunning = 1056;
inline constexpr std::uint32_t ServiceDisabled = 1058;
inline constexpr std::uint32_t ServiceDoesNotExist = 1060;
inline constexpr std::uint32_t ServiceNotActive = 1062;
inline constexpr std::uint32_t ServiceDependencyFailed = 1068;
inline constexpr std::uint32_t ServiceLogonFailed = 1069;
inline constexpr std::uint32_t ServiceDependencyDeleted = 1075;
inline constexpr std::uint32_t RegistryCorrupt = 1015;
inline constexpr std::uint32_t RegistryIoFailed = 1016;
inline constexpr std::uint32_t KeyDeleted = 1018;
inline constexpr std::uint32_t Cancelled = 1223;
inline constexpr std::uint32_t FileCorrupt = 1392;
inline constexpr std::uint32_t Timeout = 1460;
inline constexpr std::uint32_t UnknownInterface = 0x800706B5;   // plain 1717
inline constexpr std::uint32_t ServerUnavailable = 0x800706BA;  // plain 1722
inline constexpr std::uint32_t InterfaceNotFound = 0x800706DF;  // plain 1759
}  // namespace Code

// Why an operation failed.
struct SystemError {
    std::uint32_t code = 0;   // 32 bits, plain or wrapped; see Code
    std::string source;       // the layer that failed, for example "Metabase"
    std::string description;  // one sentence for the user; UTF-8, may hold a server's text

    // The low 16 bits: what codes are compared by, and what the user is shown.
    std::uint32_t Plain() const { return code & 0xFFFFU; }
    bool Is(std::uint32_t other) const { return Plain() == (other & 0xFFFFU); }
};

// The system's own sentence for a code, translated; "Unknown error" for one it does not know.
std::string SystemText(std::uint32_t code);

// The code that stands for an errno value: ENOENT 2, EACCES 5, ENOSPC 112 and so on; others IoError.
std::uint32_t CodeFromErrno(int error);
