#include "zentrel/FileHandle.h"

#include <cerrno>
#include <unistd.h>

namespace zentrel {

void FileHandle::Close()
{
    if (m_descriptor >= 0) close(std::exchange(m_descriptor, -1));
}

Result<Bytes> ReadToEnd(const FileHandle& file, std::size_t sizeHint, std::string_view source)
{
    Bytes bytes(sizeHint + 1);  // one more, so that the end shows without another round
    std::size_t size = 0;
    for (;;) {
        if (size == bytes.size()) bytes.resize(size + size / 2 + 4096);
        const auto count = read(file.Get(), bytes.data() + size, bytes.size() - size);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return FailErrno(errno, source, "Cannot read a file");
        if (count == 0) break;
        size += static_cast<std::size_t>(count);
    }
    bytes.resize(size);
    return bytes;
}

Done WriteAll(const FileHandle& file, std::span<const std::byte> bytes, std::string_view source)
{
    while (!bytes.empty()) {
        const auto count = write(file.Get(), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return FailErrno(errno, source, "Cannot write a file");
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return {};
}

}  // namespace zentrel
