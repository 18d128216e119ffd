#pragma once

#include <cstdint>
#include <string>

// The system codes that the program produces or tells apart. A code may come plain (5) or wrapped in 32
// bits (0x80070005); SystemError::Plain() makes them comparable.
namespace Code {
inline constexpr std::uint32_t FileNotFound = 2;
inline constexpr std::uint32_t PathNotFound = 3;
inline constexpr std::uint32_t AccessDenied = 5;
inline constexpr std::uint32_t OutOfMemory = 14;
inline constexpr std::uint32_t IoError = 29;
inline constexpr std::uint32_t SharingViolation = 32;
inline constexpr std::uint32_t NotSupported = 50;
inline constexpr std::uint32_t InvalidParameter = 87;
inline constexpr std::uint32_t DiskFull = 112;
inline constexpr std::uint32_t InvalidName = 123;
inline constexpr std::uint32_t AlreadyExists = 183;
inline constexpr std::uint32_t InvalidData = 13;
inline constexpr std::uint32_t Cancelled = 1223;
inline constexpr std::uint32_t FileCorrupt = 1392;
inline constexpr std::uint32_t UnknownInterface = 0x800706B5;   // plain 1717
inline constexpr std::uint32_t ServerUnavailable = 0x800706BA;  // plain 1722
inline constexpr std::uint32_t InterfaceNotFound = 0x800706DF;  // plain 1759
}  // namespace Code

// Why an operation failed.
struct SystemError {
    std::uint32_t code = 0;   // 32 bits, plain or wrapped; see Code
    std::string source;       // the layer that failed, for example "Metabase"
    std::string description;  // one English sentence for the user; UTF-8, may hold a server's text

    // The low 16 bits: what codes are compared by, and what the user is shown.
    std::uint32_t Plain() const { return code & 0xFFFFU; }
    bool Is(std::uint32_t other) const { return Plain() == (other & 0xFFFFU); }
};

// The system's own English sentence for a code; "Unknown error" for one it does not know.
std::string SystemText(std::uint32_t code);

// The code that stands for an errno value: ENOENT 2, EACCES 5, ENOSPC 112 and so on; others IoError.
std::uint32_t CodeFromErrno(int error);
