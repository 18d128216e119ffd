#pragma once

#include <cstdint>

// The system colours that the controls use, as OLE colour values; see SystemColor.
namespace OleColor {
inline constexpr std::uint32_t SystemBit = 0x80000000;
inline constexpr std::uint32_t WindowBackground = 0x80000005;
inline constexpr std::uint32_t WindowText = 0x80000008;
inline constexpr std::uint32_t Highlight = 0x8000000D;
inline constexpr std::uint32_t HighlightText = 0x8000000E;
inline constexpr std::uint32_t ButtonFace = 0x8000000F;
inline constexpr std::uint32_t ButtonShadow = 0x80000010;
inline constexpr std::uint32_t ButtonText = 0x80000012;
inline constexpr std::uint32_t ButtonHighlight = 0x80000014;
inline constexpr std::uint32_t DarkShadow = 0x80000015;
inline constexpr std::uint32_t ButtonLight = 0x80000016;
}  // namespace OleColor
