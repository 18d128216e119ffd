#pragma once

#include "base/SystemError.h"

#include <tl/expected.hpp>

#include <string_view>
#include <utility>

// A value, or why there is none. Failures travel as values through every layer; a result that nobody looks
// at is a compile error.
template <class T>
class [[nodiscard]] Result : public tl::expected<T, SystemError> {
public:
    using tl::expected<T, SystemError>::expected;
    Result(tl::expected<T, SystemError> other) : tl::expected<T, SystemError>(std::move(other)) {}
};

using Done = Result<void>;

// Fails with the system's own text for the code.
inline tl::unexpected<SystemError> Fail(std::uint32_t code, std::string_view source)
{
    return tl::unexpected<SystemError>(SystemError{code, std::string(source), SystemText(code)});
}

inline tl::unexpected<SystemError> Fail(std::uint32_t code, std::string_view source, std::string description)
{
    return tl::unexpected<SystemError>(SystemError{code, std::string(source), std::move(description)});
}

inline tl::unexpected<SystemError> Fail(SystemError error)
{
    return tl::unexpected<SystemError>(std::move(error));
}

// Fails with the code and text of an errno value; `what` says what was tried, for example "Cannot open x".
tl::unexpected<SystemError> FailErrno(int error, std::string_view source, std::string_view what);
