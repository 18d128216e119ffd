#pragma once

#include "base/Result.h"
#include "zentrel/Compressor.h"
#include "zentrel/Service.h"
#include "zentrel/SourceFile.h"

#include <optional>

namespace zentrel {

// Compresses files and hands them to the service to keep. Belongs to one thread.
class VersionMaker {
public:
    explicit VersionMaker(Service& service) : m_service(service) {}

    // Whether a file of this name and size is compressed at all.
    static bool Takes(std::string_view fileName, const FileStamp& source);

    struct Made {
        Bytes plain;                      // the file as it is
        std::optional<Bytes> compressed;  // empty when compression gains nothing
        Done kept;                        // whether the service could keep it
        bool isKept = false;  // false without an error: gains nothing, or the file changed meanwhile
    };
    // Fails only when the file cannot be read. level: 1 to 9.
    Result<Made> Make(const VersionKey& key, const SourceFile& source, int level);

private:
    Result<NewVersion> Compress(std::span<const std::byte> body, Encoding encoding, int level);

    Service& m_service;
    Compressor m_compressor;
    Bytes m_block;
};

}  // namespace zentrel
