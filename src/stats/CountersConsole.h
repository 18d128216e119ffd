#pragma once

#include "contracts/MessageBoxes.h"
#include "format/FormatLocale.h"
#include "stats/CounterChartGrid.h"
#include "stats/CounterFeed.h"
#include "stats/CounterHistory.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// What the console uses; all of it must outlive the console.
struct CountersConsoleHost {
    PerformanceData& library;
    CounterList list;
    MessageBoxes& boxes;
    FormatLocale locale;
    std::function<QString(const QString& proposed)> askFileName =
        {};  // empty answer: none; a dialog if not set
    std::function<SampleTime()> now = SampleTime::Now;
};

// The counters console: a window beside the main window with a chart for each counter, which it reads at an
// interval of its own. Closed it reads nothing, but keeps what it has seen in the last ten minutes; hidden or
// minimised it goes on reading. It never waits for anything but the server's answer, and survives whatever
// happens while messages run meanwhile: another server, its own closing and its own end.
class CountersConsole : public QWidget {
    Q_OBJECT

public:
    explicit CountersConsole(CountersConsoleHost host, QWidget* parent = nullptr);

    // The connected server; empty: there is no connection, or another is about to be made. Gives the query
    // back. What was seen of a server stays until another one is connected.
    void SetServer(std::optional<CounterServer> server);
    // Brings the window up, or to the front, and begins to read.
    void Open();
    // Reads the counters now. Does nothing while the window is closed or paused, or a reading is under way.
    void Sample();

    void SetPaused(bool isPaused);
    void CopyValues();
    void SaveAsCsv();

    bool IsReading() const { return m_timer.isActive() || m_isSampling; }
    const CounterHistory& History() const { return m_history; }

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLayout* BuildControls();
    void AddButton(QLayout* row, QPushButton* button, const char* name, void (CountersConsole::*click)());
    void BuildCharts();
    void TogglePause() { SetPaused(!m_isPaused); }
    void CloseWindow() { close(); }

    bool IsRunning() const { return m_isOpen && !m_isPaused && m_feed->HasServer(); }
    std::int64_t Interval() const;
    void ChangeInterval();
    void Schedule(std::int64_t milliseconds);
    void Take(CounterReading reading);
    void ShowHistory();
    void ShowState();
    QString ProposedName() const;
    QString AskFileName(const QString& proposed);

    const CountersConsoleHost m_host;
    const std::shared_ptr<CounterFeed> m_feed;  // also held by a reading under way
    CounterHistory m_history;
    std::string m_seen;  // name of the server that the history is of
    QString m_trouble;

    QTimer m_timer;
    std::int64_t m_lastBegin = 0;  // tick of the last reading's begin
    bool m_isOpen = false;
    bool m_isPaused = false;
    bool m_isSampling = false;

    QComboBox* const m_interval;
    QLabel* const m_message;
    QLabel* const m_state;
    CounterChartGrid* m_grid;  // the scroll area's
    QPushButton* const m_pause;
    QPushButton* const m_copy;
    QPushButton* const m_save;
    std::unique_ptr<QScrollArea> m_scroll;  // the last member: its charts read the history as they go
};
