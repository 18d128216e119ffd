#pragma once

#include "contracts/StatusLine.h"
#include "controls/PlainLabel.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QStatusBar>

#include <string>

// The status bar with its panels "Version", "Status" and "Connection". A status text may be set a million
// times in a scan: the last one is shown by the event loop, about twenty times a second at most.
class StatusPanels : public QStatusBar, public StatusLine {
    Q_OBJECT

public:
    explicit StatusPanels(QWidget* parent = nullptr);

    void SetVersion(std::string_view text);
    void SetStatus(std::string_view text) override;
    void SetConnStatus(std::string_view text) override;
    void ShowConnected(bool isConnected);  // in the connection panel's icon

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    PlainLabel* const m_version;
    PlainLabel* const m_status;
    PlainLabel* const m_connection;
    std::string m_statusText;
    QBasicTimer m_change;
    QElapsedTimer m_lastShown;
};
