#include "server/ConnectRoutine.h"

#include "contracts/ShowError.h"

void ConnectRoutine::ConnectToServer()
{
    const auto server = m_settings.LastServer;
    m_host.pointer.Set(ScreenPointer::Hourglass);
    m_host.status.SetConnStatus("Connecting to " + server + "...");
    m_host.pump.Visit();

    if (auto connected = m_server.Connect(server); !connected)
        return GiveUp("Cannot connect to " + server, connected.error());
    m_host.pump.Run();
    if (auto connected = m_cache.Connect(server); !connected) {
        const auto& error = connected.error();
        const bool isAbsent = error.Is(Code::UnknownInterface) || error.Is(Code::ServerUnavailable) ||
                              error.Is(Code::InterfaceNotFound);
        return GiveUp(isAbsent ? "Zentrel is not started on this server or it is an older version"
                               : "Cannot connect to Zentrel RPC server on " + server,
                      error);
    }
    m_host.pump.Run();
    Succeed(server);
}

void ConnectRoutine::Succeed(const std::string& server)
{
    m_isConnected = true;
    m_host.status.SetConnStatus("Connected to " + server);
    m_host.pointer.Set(ScreenPointer::Default);
    m_host.pump.Run();
    m_host.display.SetCaption(server + " - " + std::string(kProgramTitle));
    std::string strip = server + " - ";
    if (m_server.IsLocal()) strip += "Local - ";
    strip += std::to_string(m_siteCount) + " web site";
    if (m_siteCount != 1) strip += 's';
    m_host.display.SetTopStrip(strip);
}

void ConnectRoutine::GiveUp(const std::string& message, SystemError error)
{
    m_host.pointer.Set(ScreenPointer::Default);
    m_host.status.SetConnStatus("Not connected - Error");
    m_isConnected = false;
    if (error.Is(Code::AccessDenied)) error.description = "Access denied";
    ShowError(m_host.boxes, message, BoxStyle::Exclamation, error);
}
