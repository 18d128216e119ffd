#pragma once

#include "stats/modPerfCntr.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class QWidget;
class ToolTip;

// The balloons that explain the performance summary: they are switched on and off together.
class BalloonTips {
public:
    BalloonTips();
    ~BalloonTips();

    void Clear();

    bool Visible() const { return m_isVisible; }
    void SetVisible(bool isVisible);

    // A balloon with each counter's name and explanation for the control of the same index; controls beyond
    // the counters get none.
    void AddTips(std::span<QWidget* const> controls, std::span<const PerfCounter> counters);
    void AddTip(const std::string& title, std::string_view text, QWidget* control);

    std::size_t Count() const { return m_tips.size(); }

private:
    std::vector<std::unique_ptr<ToolTip>> m_tips;
    bool m_isVisible = true;
};
