#pragma once

#include "base/Result.h"
#include "zentrel/Property.h"

#include <span>
#include <string_view>
#include <utility>

namespace zentrel {

// Owns a file descriptor.
class FileHandle {
public:
    FileHandle() = default;
    explicit FileHandle(int descriptor) : m_descriptor(descriptor) {}
    ~FileHandle() { Close(); }
    FileHandle(FileHandle&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    FileHandle& operator=(FileHandle&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }

    explicit operator bool() const { return m_descriptor >= 0; }
    int Get() const { return m_descriptor; }
    void Close();

private:
    int m_descriptor = -1;
};

// Reads from where the file stands to its end. sizeHint: bytes expected.
Result<Bytes> ReadToEnd(const FileHandle& file, std::size_t sizeHint, std::string_view source);

Done WriteAll(const FileHandle& file, std::span<const std::byte> bytes, std::string_view source);

}  // namespace zentrel
