#include "zentrel/ctl/LineReader.h"

#include <unistd.h>

#include <cerrno>

namespace zentrel {

Result<std::optional<std::string_view>> LineReader::Next()
{
    if (m_isCut) {
        if (auto skipped = SkipRest(); !skipped) return Fail(skipped.error());
    }
    for (auto searched = m_at;;) {
        if (const auto end = m_buffer.find('\n', searched); end != std::string::npos) return Take(end);
        if (m_buffer.size() - m_at >= kLongest) {
            m_isCut = true;
            return Take(m_at + kLongest);
        }
        m_buffer.erase(0, m_at);
        m_at = 0;
        searched = m_buffer.size();
        const auto more = Fill();
        if (!more) return Fail(more.error());
        if (*more) continue;
        if (m_buffer.empty() || m_signals.Raised()) return std::nullopt;
        return Take(m_buffer.size());
    }
}

// Appends what can be read; false at the end of the file and after a signal.
Result<bool> LineReader::Fill()
{
    constexpr std::size_t kChunk = 64U << 10U;
    if (!m_signals.WaitReadable(m_file)) return false;
    const auto had = m_buffer.size();
    m_buffer.resize(had + kChunk);
    const auto got = read(m_file, m_buffer.data() + had, kChunk);
    const int error = errno;
    m_buffer.resize(had + (got > 0 ? static_cast<std::size_t>(got) : 0));
    if (got < 0) return FailErrno(error, "LineReader", "Cannot read the log");
    m_bytes += static_cast<std::uint64_t>(got);
    return got > 0;
}

Done LineReader::SkipRest()
{
    for (;;) {
        if (const auto end = m_buffer.find('\n', m_at); end != std::string::npos) {
            m_at = end + 1;
            break;
        }
        m_buffer.clear();
        m_at = 0;
        const auto more = Fill();
        if (!more) return Fail(more.error());
        if (!*more) break;
    }
    m_isCut = false;
    return {};
}

std::string_view LineReader::Take(std::size_t end)
{
    std::string_view line(m_buffer.data() + m_at, end - m_at);
    m_at = m_isCut || end == m_buffer.size() ? end : end + 1;
    if (line.ends_with('\r')) line.remove_suffix(1);
    ++m_lines;
    return line.substr(0, kLongest);
}

}  // namespace zentrel
