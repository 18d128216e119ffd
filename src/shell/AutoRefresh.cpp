#include "shell/AutoRefresh.h"

#include "settings/RefreshIntervals.h"

namespace {

constexpr std::size_t kAtFirst = 1;  // the item that is checked at first

}  // namespace

AutoRefresh::AutoRefresh(QMenu* menu) : QObject(menu)
{
    m_timer.setObjectName(QStringLiteral("tmrStats"));
    m_timer.setInterval(kRefreshIntervals[kAtFirst]);
    connect(&m_timer, &QTimer::timeout, this, &AutoRefresh::Due);

    const std::array captions{tr("Every &1 second"), tr("Every &5 seconds"), tr("Every 1&0 seconds"),
                              QString(), tr("&Disable Auto-refresh")};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        auto* const item = kRefreshIntervals[i] < 0 ? menu->addSeparator() : menu->addAction(captions[i]);
        item->setObjectName(QStringLiteral("mnuRefresh_Item(%1)").arg(i));
        m_items.push_back(item);
        if (item->isSeparator()) continue;
        item->setCheckable(true);
        item->setChecked(i == kAtFirst);
        connect(item, &QAction::triggered, this, [this, i] { Choose(i); });
    }
}

void AutoRefresh::Choose(std::size_t item)
{
    for (auto* const each : m_items) each->setChecked(false);
    m_items[item]->setChecked(true);
    SetInterval(kRefreshIntervals[item]);
    SetEnabled(Interval() != 0);
    if (Interval() != 0) Q_EMIT Due();
}

void AutoRefresh::Restore(int interval)
{
    if (interval < 0) return;
    SetInterval(interval);
    if (const auto item = RefreshItemOf(interval)) Choose(*item);
}

void AutoRefresh::SetEnabled(bool isEnabled)
{
    m_isEnabled = isEnabled;
    if (isEnabled && Interval() != 0) {
        m_timer.start();
    } else {
        m_timer.stop();
    }
}

// A timer of Qt with the interval 0 would fire all the time.
void AutoRefresh::SetInterval(int interval)
{
    m_timer.setInterval(interval);
    SetEnabled(m_isEnabled);
}
