#pragma once

#include <cstddef>
#include <memory>
#include <vector>

// A vector that grows by whole chunks: elements never move, growing copies nothing, and memory that was not
// reached yet is not touched. For elements that are cheap to make and need no destructor.
template <class T, std::size_t ChunkBits = 13>
class ChunkedVector {
    static_assert(std::is_trivially_destructible_v<T>);

public:
    std::size_t size() const { return m_size; }
    T& operator[](std::size_t i) { return m_chunks[i >> ChunkBits][i & kMask]; }
    const T& operator[](std::size_t i) const { return m_chunks[i >> ChunkBits][i & kMask]; }

    T& push_back(const T& value)
    {
        if (m_size >> ChunkBits == m_chunks.size())
            m_chunks.push_back(std::make_unique_for_overwrite<T[]>(std::size_t{1} << ChunkBits));
        auto& place = (*this)[m_size++];
        place = value;
        return place;
    }

    void clear()
    {
        m_chunks.clear();
        m_size = 0;
    }

private:
    static constexpr std::size_t kMask = (std::size_t{1} << ChunkBits) - 1;

    std::vector<std::unique_ptr<T[]>> m_chunks;
    std::size_t m_size = 0;
};

// Keeps short texts side by side; what it answers stays where it is until clear().
class TextPool {
public:
    const char* Keep(const char* text, std::size_t size)
    {
        if (size > m_left) {
            const auto chunk = size > kChunk ? size : kChunk;
            m_chunks.push_back(std::make_unique_for_overwrite<char[]>(chunk));
            m_next = m_chunks.back().get();
            m_left = chunk;
        }
        char* const place = m_next;
        for (std::size_t i = 0; i < size; ++i) place[i] = text[i];
        m_next += size;
        m_left -= size;
        return place;
    }

    void clear()
    {
        m_chunks.clear();
        m_next = nullptr;
        m_left = 0;
    }

private:
    static constexpr std::size_t kChunk = std::size_t{256} << 10U;

    std::vector<std::unique_ptr<char[]>> m_chunks;
    char* m_next = nullptr;
    std::size_t m_left = 0;
};
