#pragma once

#include "base/Result.h"
#include "zentrel/StopSignals.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zentrel {

// Reads a file, or what comes through a pipe, line by line in bounded memory.
class LineReader {
public:
    static constexpr std::size_t kLongest = 64U << 10U;  // bytes; what a longer line has beyond is dropped

    // file: an open descriptor, which stays the caller's. Waiting for it ends when a signal is raised.
    LineReader(int file, StopSignals& signals) : m_file(file), m_signals(signals) {}

    // The next line without its line end ("\n" or "\r\n"), good until the next call. Empty at the end of
    // the file and after a signal.
    Result<std::optional<std::string_view>> Next();

    std::uint64_t LineNumber() const { return m_lines; }  // of the line that Next answered last, from 1
    std::uint64_t BytesRead() const { return m_bytes; }

private:
    Result<bool> Fill();
    Done SkipRest();
    std::string_view Take(std::size_t end);

    int m_file;
    StopSignals& m_signals;
    std::string m_buffer;
    std::size_t m_at = 0;  // start of what is not yet answered
    std::uint64_t m_lines = 0;
    std::uint64_t m_bytes = 0;
    bool m_isCut = false;  // the last line was too long; its rest comes next
};

}  // namespace zentrel
