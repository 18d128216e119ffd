#pragma once

#include <QMenu>
#include <QTimer>

#include <vector>

// How often the statistics are refreshed: the menu that chooses the interval, and the timer tmrStats, which
// fires while it is enabled and its interval is not 0.
class AutoRefresh : public QObject {
    Q_OBJECT

public:
    // Fills the menu with its items mnuRefresh_Item(0) to (4), of which "every 5 seconds" is checked.
    explicit AutoRefresh(QMenu* menu);

    // What a click on a menu item does: checks it alone, takes its interval, starts or stops the timer and
    // refreshes at once unless the interval is 0.
    void Choose(std::size_t item);
    // Takes an interval as it was saved and chooses the first item that has it; with none the menu stays
    // as it is. A negative interval is ignored.
    void Restore(int interval);

    void SetEnabled(bool isEnabled);
    int Interval() const { return m_timer.interval(); }
    bool IsRunning() const { return m_timer.isActive(); }

Q_SIGNALS:
    void Due();

private:
    void SetInterval(int interval);

    std::vector<QAction*> m_items;
    QTimer m_timer;
    bool m_isEnabled = false;
};
