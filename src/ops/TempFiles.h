#pragma once

#include "base/Result.h"

#include <filesystem>
#include <string>
#include <utility>

// Makes temporary files in the user's temporary folder, which it looks up once and remembers.
class TempFiles {
public:
    // The full name of a new, empty file whose name begins with "tmp" and that nobody else may read. It stays
    // until the caller removes it. The system's code when the folder is not there, or takes no file.
    Result<std::string> GetTempFile();

private:
    std::filesystem::path m_folder;  // absolute; empty before the first call
};

// Owns a temporary file: it is gone with its owner at the latest.
class TempFile {
public:
    explicit TempFile(std::string name) : m_name(std::move(name)) {}
    ~TempFile() { Remove(); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const std::string& Name() const { return m_name; }
    // The name is gone at once, the room of a large file soon after: that does not keep the caller.
    void Remove();

private:
    const std::string m_name;
    bool m_isThere = true;
};
