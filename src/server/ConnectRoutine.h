#pragma once

#include "contracts/MessageBoxes.h"
#include "contracts/MessagePump.h"
#include "contracts/PerformanceSteps.h"
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
    virtual std::string Caption() const = 0;
    // The user wants the window gone: a connection that is being made ends without another word.
    virtual bool IsClosing() const { return false; }
};

struct ConnectHost {
    ConnectionDisplay& display;
    StatusLine& status;
    MessageBoxes& boxes;
    MessagePump& pump;
    ScreenPointer& pointer;
    zentrel::Transport* transport = nullptr;  // to the services of hosts; null: they count as running
    PerformanceSteps* performance = nullptr;  // null: the program shows no performance data
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
    // Lets messages run; a second call that one of them makes does nothing.
    void ConnectToServer();

    const bool& IsConnected() const { return m_isConnected; }  // false also while a connection is being made
    // A connection is being made: until it stands, the administration objects may be bound to two servers.
    bool IsBusy() const { return m_isBusy; }
    void SetSiteCount(int count) { m_siteCount = count; }  // sites that the server offers

private:
    // Whether the performance data of a server can be read.
    enum class Figures { Readable, Unreadable };

    void Begin(const std::string& server);
    bool ConnectObjects(const std::string& server);
    bool IsGivenUp();
    Figures OpenFigures(const std::string& server);
    bool StartRemoteRegistry(const std::string& server);
    void RunPerformanceSteps();
    void Succeed(const std::string& server);
    void GiveUp(const std::string& message, SystemError error);
    void EndUnconnected();

    zentrel::ServerAdmin& m_server;
    zentrel::CacheAdmin& m_cache;
    const Settings& m_settings;
    ConnectHost m_host;
    bool m_isConnected = false;
    bool m_isBusy = false;
    int m_siteCount = 0;
};
