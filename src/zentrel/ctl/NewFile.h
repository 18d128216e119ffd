#pragma once

#include "base/Result.h"

#include <sys/types.h>

#include <filesystem>
#include <string_view>
#include <utility>

namespace zentrel {

// A file that appears whole or not at all: it is written beside its place, and what is never published goes.
class NewFile {
public:
    // mode: exactly these rights, whatever the umask is. The system's code; descriptions name the place.
    static Result<NewFile> Write(std::filesystem::path place, mode_t mode, std::string_view text);

    NewFile(NewFile&& other) noexcept
        : m_place(std::move(other.m_place)),
          m_written(std::exchange(other.m_written, {}))
    {
    }
    NewFile& operator=(NewFile&& other) = delete;
    ~NewFile();

    // Puts it into its place. AlreadyExists when something is there that is not to be replaced.
    Done Publish(bool replace);

private:
    explicit NewFile(std::filesystem::path place) : m_place(std::move(place)), m_written(m_place)
    {
        m_written += ".new";
    }

    std::filesystem::path m_place;
    std::filesystem::path m_written;  // empty: there is none, or no longer
};

}  // namespace zentrel
