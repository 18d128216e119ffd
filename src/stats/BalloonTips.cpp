#include "stats/BalloonTips.h"

#include "stats/CounterList.h"
#include "stats/ToolTip.h"

#include <QWidget>

#include <algorithm>

BalloonTips::BalloonTips() = default;

BalloonTips::~BalloonTips()
{
    Clear();
}

void BalloonTips::Clear()
{
    while (!m_tips.empty()) m_tips.pop_back();
}

void BalloonTips::SetVisible(bool isVisible)
{
    for (const auto& tip : m_tips) tip->SetEnabled(isVisible);
    m_isVisible = isVisible;
}

void BalloonTips::AddTips(std::span<QWidget* const> controls, std::span<const PerfCounter> counters)
{
    const auto count = std::min(controls.size(), counters.size());
    for (std::size_t i = 0; i < count; ++i)
        AddTip(CounterWords(counters[i].info.counterName), CounterWords(counters[i].info.explainText),
               controls[i]);
}

void BalloonTips::AddTip(const std::string& title, std::string_view text, QWidget* control)
{
    auto tip = std::make_unique<ToolTip>();
    tip->SetParentControl(control);
    tip->SetTitle(title);
    tip->SetIcon(ToolTip::Information);
    tip->SetStyle(ToolTip::BalloonStyle);
    tip->SetTipText(text);
    tip->Create();
    tip->SetEnabled(m_isVisible);
    m_tips.push_back(std::move(tip));
}
