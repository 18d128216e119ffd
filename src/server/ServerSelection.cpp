#include "server/ServerSelection.h"

#include "base/FillIn.h"
#include "base/Text.h"
#include "contracts/ShowError.h"
#include "settings/ServerList.h"

#include <utility>

namespace {

// The classes of the administration component are not registered here.
constexpr std::uint32_t kClassNotRegistered = 0x80040154;
constexpr std::uint32_t kClassNotAvailable = 0x80040155;

}  // namespace

ServerSelection::ServerSelection(std::shared_ptr<zentrel::Transport> transport,
                                 const zentrel::ServerAdmin& current, std::string computerName,
                                 Settings& settings, SelectionHost host, SiteReadingLimits limits)
    : m_server(std::move(transport)),
      m_current(current),
      m_computerName(std::move(computerName)),
      m_settings(settings),
      m_host(host),
      m_limits(limits)
{
}

void ServerSelection::Load(SelectionScreen& screen)
{
    if (m_isBusy) return;
    m_screen = &screen;
    m_sitesConfirmed = false;
    m_serverChanged = false;
    m_servers = OfferServers(m_settings, m_computerName, m_current.ServerName());
    m_name = m_servers.entries[m_servers.selected].name;
    m_screen->ShowServers();
    ConnectTo(true);
}

void ServerSelection::Unload()
{
    auto* const screen = m_screen;
    End();
    if (screen != nullptr) screen->Close();
}

void ServerSelection::End()
{
    m_screen = nullptr;
    m_sites.Clear();
    m_sites.ForgetOrder();
    m_state = SitesState::NotConnected;
}

// ---- the server box

void ServerSelection::EditServer(std::string text)
{
    m_name = std::move(text);
    if (IsConnectedTo(TrimBlanks(m_name))) return;
    m_serverChanged = true;
    m_state = SitesState::Edited;
    if (m_screen != nullptr) m_screen->ShowState();
}

void ServerSelection::PickServer(std::size_t entry)
{
    if (m_isBusy || entry >= m_servers.entries.size()) return;
    m_name = m_servers.entries[entry].name;
    m_serverChanged = true;
    ConnectTo(true);
}

void ServerSelection::LeaveServer()
{
    if (m_isBusy || m_screen == nullptr) return;
    TrimName();
    ConnectTo(false);
}

void ServerSelection::Connect()
{
    if (m_isBusy || m_screen == nullptr) return;
    TrimName();
    ConnectTo(true);
}

void ServerSelection::TrimName()
{
    const auto trimmed = std::string(TrimBlanks(m_name));
    if (trimmed == m_name) return;
    m_name = trimmed;
    m_screen->ShowServerName();
}

// ---- the connection

// A local server answers to several names, so the name that it was connected by counts as well as its own.
bool ServerSelection::IsConnectedTo(std::string_view name) const
{
    return name == m_server.ServerName() || m_connectedName == name;
}

void ServerSelection::ConnectTo(bool isForced)
{
    if (m_isBusy || m_screen == nullptr) return;
    m_isBusy = true;
    if (isForced || !IsConnectedTo(m_name)) Reconnect();
    m_isBusy = false;
    if (m_screen != nullptr) m_screen->ShowState();
}

void ServerSelection::Reconnect()
{
    const auto connected = BindServer();
    if (m_screen == nullptr) return;
    if (!connected) {
        m_state = SitesState::NotConnected;
        m_screen->ShowState();
        ReportUnconnected(connected.error());
        return;
    }
    const auto complete = LoadSites();
    if (m_screen == nullptr) return;
    if (complete && m_sites.Size() > 0) return FinishSites(!*complete);
    // Without a site there is no first one to check.
    ReportUnlisted(complete ? SystemError{Code::NoMoreItems, "ServerAdmin",
                                          Translate("ServerSelection", "The server has no web site.")}
                            : complete.error());
}

Done ServerSelection::BindServer()
{
    CWaitCursor wait(m_host.pointer);
    wait.ShowCursor(ScreenPointer::Hourglass);
    // A name in the form of a network path.
    if (const auto start = m_name.find_first_not_of('\\'); start != 0 && !m_name.empty()) {
        m_name.erase(0, start);
        m_screen->ShowServerName();
    }
    const auto name = m_name;
    auto connected = m_server.Connect(name);
    if (connected) m_connectedName = name;
    return connected;
}

void ServerSelection::ReportUnconnected(const SystemError& error)
{
    auto message = FillIn(Translate("ServerSelection", "Cannot connect to %1."), {m_name});
    if (error.code == kClassNotRegistered || error.code == kClassNotAvailable)
        message += "\r\n" + Translate("ServerSelection", "IIS Administration runtime is not installed.");
    ShowError(m_host.boxes, message, BoxStyle::Exclamation, error);
}

// ---- the sites

// Answers whether the server has no more sites than these.
Result<bool> ServerSelection::LoadSites()
{
    CWaitCursor wait(m_host.pointer);
    wait.ShowCursor(ScreenPointer::Hourglass);
    m_sites.Clear();
    m_siteCount = 0;
    m_state = SitesState::Reading;
    m_screen->ShowSites();
    m_screen->ShowState();
    const bool checksAll = !IsConnectedTo(m_settings.LastServer);
    return ReadSites(
        m_server,
        [&](Site site) {
            if (m_screen == nullptr) return false;
            site.isChecked = checksAll || m_settings.Sites.Contains(site.number);
            m_sites.Add(std::move(site));
            return true;
        },
        m_limits);
}

void ServerSelection::FinishSites(bool isCutShort)
{
    m_sites.Arrange();
    if (m_sites.CheckedCount() == 0) m_sites.Check(0, true);
    m_siteCount = static_cast<int>(m_sites.Size());
    m_isCutShort = isCutShort;
    m_state = SitesState::Loaded;
    m_screen->ShowSites();
}

void ServerSelection::ReportUnlisted(SystemError error)
{
    m_state = SitesState::NotListed;
    m_screen->ShowSites();
    m_screen->ShowState();
    if (error.Is(Code::AccessDenied)) error.description = Translate("ServerSelection", "Access denied");
    ShowError(m_host.boxes,
              Translate("ServerSelection", "Unable to retrieve the list of web sites from the server"),
              BoxStyle::Exclamation, error);
}

void ServerSelection::Check(std::size_t row, bool isChecked)
{
    if (row < m_sites.Size()) m_sites.Check(row, isChecked);
}

std::vector<std::size_t> ServerSelection::SortBy(SiteColumn column)
{
    CWaitCursor wait(m_host.pointer);
    wait.ShowCursor(ScreenPointer::Hourglass);
    return m_sites.SortBy(column);
}

// ---- the end

void ServerSelection::Confirm()
{
    if (m_isBusy || m_screen == nullptr || !CanConfirm()) return;
    for (std::size_t row = 0; row < m_sites.Size(); ++row) {
        const auto& site = m_sites[row];
        if (site.isChecked)
            m_settings.Sites.Add(site.number);
        else
            m_settings.Sites.Remove(site.number);
    }
    if (m_sites.CheckedCount() == 0) {
        m_host.boxes.Show(Translate("ServerSelection", "You must select at least one website for analysis"),
                          BoxStyle::Information, Translate("frmServer", kSelectionTitle));
        return;
    }
    std::vector<std::string> offered;
    for (const auto& server : m_servers.entries) offered.push_back(server.name);
    RememberServer(m_settings, m_name, offered);
    m_sitesConfirmed = true;
    m_screen->Close();
}
