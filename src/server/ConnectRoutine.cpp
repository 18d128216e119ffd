#include "server/ConnectRoutine.h"

#include "base/FillIn.h"
#include "base/Translate.h"
#include "contracts/ShowError.h"
#include "server/modServices.h"

#include <cstdio>
#include <utility>

namespace {

constexpr std::string_view kRemoteRegistry = "RemoteRegistry";

std::string Hexadecimal(std::uint32_t code)
{
    char text[9];
    std::snprintf(text, sizeof text, "%X", code);
    return text;
}

}  // namespace

void ConnectRoutine::ConnectToServer()
{
    if (std::exchange(m_isBusy, true)) return;
    const auto server = m_settings.LastServer;
    Begin(server);
    if (!IsGivenUp() && ConnectObjects(server)) {
        const auto figures = OpenFigures(server);
        if (!IsGivenUp()) {
            if (figures == Figures::Readable) RunPerformanceSteps();
            if (figures == Figures::Unreadable && m_host.performance) m_host.performance->ShowNoFigures();
            Succeed(server);
        }
    }
    m_isBusy = false;
}

void ConnectRoutine::Begin(const std::string& server)
{
    m_isConnected = false;  // until it stands, nothing may be read through objects of two servers
    m_host.pointer.Set(ScreenPointer::Hourglass);
    m_host.status.SetConnStatus(FillIn(Translate("ConnectRoutine", "Connecting to %1..."), {server}));
    if (m_host.performance) {
        m_host.performance->CloseQuery();
        m_host.performance->ForgetCollectionWarning();
        m_host.performance->EnableTimer(false);
    }
    m_host.pump.Visit();
}

// Whether the window was closed while messages ran; then the connection is not made.
bool ConnectRoutine::IsGivenUp()
{
    if (!m_host.display.IsClosing()) return false;
    EndUnconnected();
    return true;
}

bool ConnectRoutine::ConnectObjects(const std::string& server)
{
    if (auto connected = m_server.Connect(server); !connected) {
        GiveUp(FillIn(Translate("ConnectRoutine", "Cannot connect to %1"), {server}), connected.error());
        return false;
    }
    m_host.pump.Run();
    if (IsGivenUp()) return false;
    if (auto connected = m_cache.Connect(server); !connected) {
        const auto& error = connected.error();
        const bool isAbsent = error.Is(Code::UnknownInterface) || error.Is(Code::ServerUnavailable) ||
                              error.Is(Code::InterfaceNotFound);
        GiveUp(isAbsent ? Translate("ConnectRoutine",
                                    "Zentrel is not started on this server or it is an older version")
                        : FillIn(Translate("ConnectRoutine", "Cannot connect to Zentrel RPC server on %1"),
                                 {server}),
               error);
        return false;
    }
    m_host.pump.Run();
    return !IsGivenUp();
}

// A remote server shows its counters only while its Remote Registry service runs. A local one is asked for
// that service too, but does not need it.
ConnectRoutine::Figures ConnectRoutine::OpenFigures(const std::string& server)
{
    const bool isRemote = !m_server.IsLocal();
    Result<bool> running = true;
    if (m_host.transport != nullptr)
        running = modServices::IsServiceRunning(*m_host.transport, isRemote ? server : std::string(),
                                                kRemoteRegistry);
    if (!isRemote || running.value_or(false)) return Figures::Readable;
    if (m_settings.StartRemoteReg == RemoteRegPolicy::Never) return Figures::Unreadable;

    if (running) return StartRemoteRegistry(server) ? Figures::Readable : Figures::Unreadable;
    // Where the service does not exist the counters need none.
    if (running.error().Is(Code::ServiceDoesNotExist)) return Figures::Readable;
    if (!m_host.display.IsClosing())
        ShowError(
            m_host.boxes,
            FillIn(Translate("ConnectRoutine", "Cannot access Remote Registry service on %1"), {server}),
            BoxStyle::Exclamation, running.error());
    return Figures::Unreadable;
}

// Starts the service that is stopped, if the user wants that.
bool ConnectRoutine::StartRemoteRegistry(const std::string& server)
{
    if (m_host.display.IsClosing()) return false;
    if (m_settings.StartRemoteReg == RemoteRegPolicy::Prompt) {
        const auto answer = m_host.boxes.Show(
            // The first line is spelled as everybody knows it.
            FillIn(Translate("ConnectRoutine",
                             "The Remore Registry service is not started on %1\r\n"
                             "This service is necessary to retrieve Zentrel Performance statistics\r\n"
                             "Start the service?"),
                   {server}),
            BoxStyle::YesNoQuestion, m_host.display.Caption());
        if (answer != BoxAnswer::Yes || m_host.display.IsClosing()) return false;
    }
    const auto started = modServices::StartServiceByName(*m_host.transport, server, kRemoteRegistry);
    if (!started && !m_host.display.IsClosing())
        ShowError(m_host.boxes,
                  FillIn(Translate("ConnectRoutine", "Cannot start Remote Registry service on %1"), {server}),
                  BoxStyle::Exclamation, started.error());
    return started.has_value();
}

void ConnectRoutine::RunPerformanceSteps()
{
    if (m_host.performance == nullptr) return;
    auto& steps = *m_host.performance;
    if (const auto opened = steps.OpenQuery(); !opened) {
        const auto& error = opened.error();
        m_host.boxes.Show(
            FillIn(Translate("ConnectRoutine", "Cannot open performance collection library\nError 0x%1 - %2"),
                   {Hexadecimal(error.code), error.description}),
            BoxStyle::Exclamation, m_host.display.Caption());
    }
    steps.InitPerfCounters();
    steps.BuildPerfRows();
    steps.ResetToolTips();
    steps.UpdatePerfSummary();
    steps.EnableTimer(true);
}

void ConnectRoutine::Succeed(const std::string& server)
{
    m_isConnected = true;
    m_host.status.SetConnStatus(FillIn(Translate("ConnectRoutine", "Connected to %1"), {server}));
    m_host.pointer.Set(ScreenPointer::Default);
    m_host.pump.Run();
    m_host.display.SetCaption(server + " - " + std::string(kProgramTitle));
    const auto sites = FillIn(m_siteCount == 1 ? Translate("ConnectRoutine", "%1 web site")
                                               : Translate("ConnectRoutine", "%1 web sites"),
                              {std::to_string(m_siteCount)});
    const auto strip =
        m_server.IsLocal() ? Translate("ConnectRoutine", "%1 - Local - %2") : std::string("%1 - %2");
    m_host.display.SetTopStrip(FillIn(strip, {server, sites}));
}

void ConnectRoutine::GiveUp(const std::string& message, SystemError error)
{
    EndUnconnected();
    if (m_host.display.IsClosing()) return;
    if (error.Is(Code::AccessDenied)) error.description = Translate("ConnectRoutine", "Access denied");
    ShowError(m_host.boxes, message, BoxStyle::Exclamation, error);
}

void ConnectRoutine::EndUnconnected()
{
    m_host.pointer.Set(ScreenPointer::Default);
    m_host.status.SetConnStatus(Translate("ConnectRoutine", "Not connected - Error"));
    m_isConnected = false;
    if (m_host.performance) m_host.performance->ShowNoFigures();
}
