#pragma once

#include <cstdint>

// What the performance data helper answers to every call. The top two bits are the severity: 0 success,
// 1 information, 2 warning, 3 error.
using PdhStatus = std::uint32_t;

namespace Pdh {
inline constexpr PdhStatus Good = 0;
inline constexpr PdhStatus NewData = 1;  // good as well
inline constexpr PdhStatus NoMachine = 0x800007D0;
inline constexpr PdhStatus NoInstance = 0x800007D1;
inline constexpr PdhStatus NotValidated = 0x800007D3;  // added, not collected yet
inline constexpr PdhStatus Retry = 0x800007D4;
inline constexpr PdhStatus NoData = 0x800007D5;
inline constexpr PdhStatus NoObject = 0xC0000BB8;
inline constexpr PdhStatus NoCounter = 0xC0000BB9;
inline constexpr PdhStatus SenselessData = 0xC0000BBA;
inline constexpr PdhStatus OutOfMemory = 0xC0000BBB;
inline constexpr PdhStatus InvalidHandle = 0xC0000BBC;
inline constexpr PdhStatus InvalidArgument = 0xC0000BBD;
inline constexpr PdhStatus NoCounterName = 0xC0000BBF;
inline constexpr PdhStatus BadPath = 0xC0000BC0;
inline constexpr PdhStatus CannotConnect = 0xC0000BC3;
inline constexpr PdhStatus BadInstance = 0xC0000BC5;
inline constexpr PdhStatus InvalidData = 0xC0000BC6;  // there is no value now
inline constexpr PdhStatus NoExplainText = 0xC0000BC8;

// A status may have the severity of a success and still not be one: plain system codes have it.
constexpr bool IsGoodStatus(PdhStatus status)
{
    return status == Good || status == NewData;
}
}  // namespace Pdh

// The kinds of counters, as the helper numbers them. Fractions and timers read as percentages, 0 to 100.
namespace PdhType {
inline constexpr std::uint32_t RawCount = 0x00010000;
inline constexpr std::uint32_t LargeRawCount = 0x00010100;
inline constexpr std::uint32_t RawFraction = 0x20020400;
inline constexpr std::uint32_t LargeRawFraction = 0x20020500;
inline constexpr std::uint32_t Timer100Ns = 0x20510500;
}  // namespace PdhType
