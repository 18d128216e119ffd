#pragma once

#include "base/Result.h"
#include "zentrel/FileHandle.h"
#include "zentrel/Versions.h"

#include <filesystem>
#include <string>

namespace zentrel {

// A file that a site offers, open for reading.
class SourceFile {
public:
    // Opens a regular file below a folder. A link on the way may lead anywhere within the folder.
    // FileNotFound and PathNotFound; AccessDenied when the way leads out of the folder, to something other
    // than a file, or to one that may not be read.
    static Result<SourceFile> Open(const std::filesystem::path& folder, const std::string& relative);

    const FileStamp& Stamp() const { return m_stamp; }  // when it was opened

    Result<Bytes> Read() const;  // the whole file, once

    // Whether somebody changed the file since it was opened; what was read may then be of two minds.
    bool HasChanged() const;

private:
    SourceFile(FileHandle file, const FileStamp& stamp) : m_file(std::move(file)), m_stamp(stamp) {}

    FileHandle m_file;
    FileStamp m_stamp;
};

}  // namespace zentrel
