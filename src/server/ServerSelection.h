#pragma once

#include "base/Translate.h"
#include "contracts/MessageBoxes.h"
#include "contracts/WaitCursor.h"
#include "server/ReadSites.h"
#include "server/ServerChoices.h"
#include "server/SiteList.h"
#include "settings/Settings.h"
#include "zentrel/Admin.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

// The title of the dialog and of its own message boxes, in English.
inline constexpr const char* kSelectionTitle = TRANSLATE_NOOP("frmServer", "Select Server and Web Sites");

// What the dialog's list of sites stands for.
enum class SitesState {
    NotConnected,  // the server named in the box could not be connected; the list may be another server's
    NotListed,     // it was connected, but its sites could not be listed
    Edited,        // the name was edited since; the list is the former server's
    Reading,       // it was connected and is being asked for its sites
    Loaded,
};

// The window of the dialog, as far as the selection knows it.
class SelectionScreen {
public:
    virtual ~SelectionScreen() = default;
    virtual void ShowServers() = 0;     // the entries and the text of the server box
    virtual void ShowServerName() = 0;  // its text alone
    virtual void ShowSites() = 0;       // rows, check marks and their order
    virtual void ShowState() = 0;       // whether OK is enabled, and what the list stands for
    virtual void Close() = 0;           // the choice is made, or there is none to be made any more
};

struct SelectionHost {
    MessageBoxes& boxes;
    ScreenPointer& pointer;
};

// The choice of a server and of its web sites: everything that the dialog frmServer decides. It outlives the
// dialog's showings, as do its outcome and its own connection.
class ServerSelection {
public:
    // current: the main window's administration object. All that is given must outlive this.
    ServerSelection(std::shared_ptr<zentrel::Transport> transport, const zentrel::ServerAdmin& current,
                    std::string computerName, Settings& settings, SelectionHost host,
                    SiteReadingLimits limits = {});

    // ---- the outcome of the last showing

    bool SitesConfirmed() const { return m_sitesConfirmed; }  // with at least one site checked
    int SiteCount() const { return m_siteCount; }             // sites at the last successful load, else 0
    bool ServerChanged() const { return m_serverChanged; }    // the box was edited or an entry picked

    // ---- a showing: Load begins it, Unload or End ends it. The calls between may wait for a server; a call
    // that comes while another one waits does nothing.

    void Load(SelectionScreen& screen);  // fills the box, connects, lists the sites
    void Unload();  // closes the screen; also while a call waits, which then ends at its next step
    void End();     // the screen is closing
    bool IsLoaded() const { return m_screen != nullptr; }

    const ServerChoices& Servers() const { return m_servers; }
    const std::string& ServerName() const { return m_name; }  // the box's text; any bytes
    const SiteList& Sites() const { return m_sites; }
    SitesState State() const { return m_state; }
    bool CanConfirm() const { return m_state == SitesState::Loaded; }
    bool IsCutShort() const { return m_isCutShort; }  // the server offers more sites than are listed

    void EditServer(std::string text);   // the user typed in the box
    void PickServer(std::size_t entry);  // an entry was picked from its list
    void LeaveServer();                  // the focus leaves the box
    void Connect();                      // the user asks for it
    // The rows change at once; the screen is not told.
    void Check(std::size_t row, bool isChecked);
    void CheckAll(bool isChecked) { m_sites.CheckAll(isChecked); }
    // Answers for each row the row where it stood before.
    std::vector<std::size_t> SortBy(SiteColumn column);
    void Confirm();  // OK

private:
    void TrimName();
    bool IsConnectedTo(std::string_view name) const;
    void ConnectTo(bool isForced);
    void Reconnect();
    Done BindServer();
    Result<bool> LoadSites();
    void FinishSites(bool isCutShort);
    void ReportUnconnected(const SystemError& error);
    void ReportUnlisted(SystemError error);

    zentrel::ServerAdmin m_server;  // the dialog's own
    const zentrel::ServerAdmin& m_current;
    const std::string m_computerName;
    Settings& m_settings;
    SelectionHost m_host;
    const SiteReadingLimits m_limits;

    bool m_sitesConfirmed = false;
    int m_siteCount = 0;
    bool m_serverChanged = false;
    std::optional<std::string>
        m_connectedName;  // what m_server was connected by; a server may call itself otherwise

    SelectionScreen* m_screen = nullptr;  // between Load and Unload
    bool m_isBusy = false;
    ServerChoices m_servers;
    std::string m_name;
    SiteList m_sites;
    SitesState m_state = SitesState::NotConnected;
    bool m_isCutShort = false;
};
