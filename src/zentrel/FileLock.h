#pragma once

#include "base/Result.h"
#include "zentrel/FileHandle.h"

#include <filesystem>

namespace zentrel {

// The one writer's place on a data folder: a locked file that holds the writer's process number. It keeps
// out other processes and other owners in the same process, and goes with its owner, however that ends.
class FileLock {
public:
    // Makes the file when it is not there; its folder must exist. Does not wait.
    // SharingViolation when somebody else holds it (the text names the process), AccessDenied.
    static Result<FileLock> Acquire(const std::filesystem::path& file);

private:
    explicit FileLock(FileHandle file) : m_file(std::move(file)) {}

    FileHandle m_file;
};

}  // namespace zentrel
