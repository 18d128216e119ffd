#pragma once

#include <cstdint>
#include <string_view>

// The numbers and texts by which the controls report misuse. What is refused has changed nothing.
namespace ControlError {
inline constexpr std::uint32_t InvalidArgument = 5;
inline constexpr std::string_view InvalidArgumentText = "Invalid procedure call or argument";
inline constexpr std::uint32_t OutOfRange = 9;
inline constexpr std::string_view OutOfRangeText = "Subscript out of range";
inline constexpr std::uint32_t CannotSubclass = 601;
inline constexpr std::uint32_t NotContained = 0x800403E8;
inline constexpr std::string_view NotContainedText = "The control must be contained in the Splitter";
}  // namespace ControlError
