#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace zentrel {

// One line such as "Warming [######        ] 45 % 450/1000" for a terminal of so many columns, narrower
// than the terminal. total 0: not known, only the count is shown.
std::string ProgressLine(const std::string& label, std::uint64_t done, std::uint64_t total,
                         std::size_t columns);

// The progress of long work at the foot of the terminal that stderr is; nothing when it is none.
class Progress {
public:
    explicit Progress(std::string label);
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(std::uint64_t done, std::uint64_t total);  // paints at most ten times a second
    void Clear();                                        // before other text goes to stderr

private:
    using Clock = std::chrono::steady_clock;

    std::string m_label;
    bool m_isTerminal;
    bool m_isPainted = false;
    Clock::time_point m_nextPaint;
};

}  // namespace zentrel
