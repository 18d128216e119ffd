#pragma once

// How the programs of the service end.
namespace zentrel::ExitCode {
inline constexpr int Done = 0;
inline constexpr int Failed = 1;
inline constexpr int WrongUsage = 2;
}  // namespace zentrel::ExitCode
