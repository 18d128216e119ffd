#pragma once

#include "base/Result.h"
#include "zentrel/FileHandle.h"

#include <dirent.h>
#include <filesystem>
#include <memory>

namespace zentrel {

// Lists a folder's entries, in no order.
class Directory {
public:
    // folder: may have been opened as a place only (O_PATH).
    static Result<Directory> Open(const FileHandle& folder);
    static Result<Directory> Open(const std::filesystem::path& path);

    // The next entry but "." and ".."; nullptr at the end. Good until the next call.
    const dirent* Next() const;

    // DT_DIR, DT_REG, DT_LNK and so on; DT_UNKNOWN only when the entry is gone.
    unsigned char TypeOf(const dirent& entry) const;

private:
    struct Close {
        void operator()(DIR* directory) const { closedir(directory); }
    };

    static Result<Directory> From(int descriptor);
    explicit Directory(DIR* directory) : m_directory(directory) {}

    std::unique_ptr<DIR, Close> m_directory;
};

}  // namespace zentrel
