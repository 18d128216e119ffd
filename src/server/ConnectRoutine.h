#pragma once

#include "contracts/MessageBoxes.h"
#include "contracts/MessagePump.h"
#include "contracts/StatusLine.h"
#include "contracts/WaitCursor.h"
#include "settings/Settings.h"
#include "zentrel/Admin.h"

#include <string>

// Where a connection shows itself in the main window.
class ConnectionDisplay {
public:
    virtual ~ConnectionDisplay() = default;
    virtual void SetCaption(const std::string& text) = 0;
    virtual void SetTopStrip(const std::string& text) = 0;
};

struct ConnectHost {
    ConnectionDisplay& display;
    StatusLine& status;
    MessageBoxes& boxes;
    MessagePump& pump;
    ScreenPointer& pointer;
};

// Binds the program to the server that Settings::LastServer names. Does not scan.
class ConnectRoutine {
public:
    ConnectRoutine(zentrel::ServerAdmin& server, zentrel::CacheAdmin& cache, const Settings& settings,
                   ConnectHost host)
        : m_server(server),
          m_cache(cache),
          m_settings(settings),
          m_host(host)
    {
    }

    // Reconnects both administration objects. On failure the user is told, caption and top strip stay.
    void ConnectToServer();

    const bool& IsConnected() const { return m_isConnected; }
    void SetSiteCount(int count) { m_siteCount = count; }  // sites that the server offers

private:
    void Succeed(const std::string& server);
    void GiveUp(const std::string& message, SystemError error);

    zentrel::ServerAdmin& m_server;
    zentrel::CacheAdmin& m_cache;
    const Settings& m_settings;
    ConnectHost m_host;
    bool m_isConnected = false;
    int m_siteCount = 0;
};
