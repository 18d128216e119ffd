#include "zentrel/ctl/Progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace zentrel {

namespace {

bool CanPaint()
{
    const char* const terminal = std::getenv("TERM");
    return isatty(STDERR_FILENO) != 0 && (terminal == nullptr || std::string_view(terminal) != "dumb");
}

std::size_t TerminalColumns()
{
    winsize size{};
    const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : 80;
}

}  // namespace

std::string ProgressLine(const std::string& label, std::uint64_t done, std::uint64_t total,
                         std::size_t columns)
{
    constexpr std::size_t kLeastBar = 5;
    constexpr std::size_t kMostBar = 50;
    const auto most = std::max<std::size_t>(columns, 1) - 1;  // the last column would wrap
    if (total == 0) return (label + ' ' + std::to_string(done)).substr(0, most);

    const double share = static_cast<double>(std::min(done, total)) / static_cast<double>(total);
    const auto percent = std::to_string(static_cast<int>(share * 100)) + " %";
    const auto counts = ' ' + std::to_string(done) + '/' + std::to_string(total);
    const auto around = label.size() + std::string_view(" [] ").size() + percent.size() + counts.size();
    if (around + kLeastBar > most) return (label + ' ' + percent).substr(0, most);
    const auto bar = std::min(most - around, kMostBar);
    const auto full = static_cast<std::size_t>(share * static_cast<double>(bar));
    return label + " [" + std::string(full, '#') + std::string(bar - full, ' ') + "] " + percent + counts;
}

Progress::Progress(std::string label) : m_label(std::move(label)), m_isTerminal(CanPaint()) {}

void Progress::Show(std::uint64_t done, std::uint64_t total)
{
    if (!m_isTerminal) return;
    const auto now = Clock::now();
    if (now < m_nextPaint) return;
    m_nextPaint = now + std::chrono::milliseconds(100);
    m_isPainted = true;
    std::cerr << '\r' << ProgressLine(m_label, done, total, TerminalColumns()) << "\x1b[K" << std::flush;
}

void Progress::Clear()
{
    if (m_isPainted) std::cerr << "\r\x1b[K" << std::flush;
    m_isPainted = false;
}

}  // namespace zentrel
