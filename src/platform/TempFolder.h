#pragma once

#include "base/Result.h"

#include <filesystem>
#include <string_view>
#include <utility>

// A new folder, readable by this user only, that is removed with everything below it when its owner goes.
class TempFolder {
public:
    // Makes it below $TMPDIR, or /tmp when that is not set, with a unique name that starts with `prefix`.
    // InvalidName when the prefix holds a "/" or a NUL; else the system's code.
    static Result<TempFolder> Make(std::string_view prefix);

    TempFolder(TempFolder&& other) noexcept;
    TempFolder& operator=(TempFolder&& other) noexcept;
    ~TempFolder();

    const std::filesystem::path& Path() const { return m_path; }  // absolute; empty once moved from

private:
    explicit TempFolder(std::filesystem::path path) : m_path(std::move(path)) {}

    std::filesystem::path m_path;
};
