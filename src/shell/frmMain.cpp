#include "shell/frmMain.h"

#include "base/FillIn.h"
#include "base/Translate.h"
#include "contracts/ShowError.h"
#include "controls/PlainText.h"
#include "server/frmServer.h"
#include "shell/OfferedSites.h"
#include "shell/Operation.h"
#include "shell/frmOptions.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QDialog>

#include <algorithm>

namespace {

std::string VersionText()
{
    return " Zentrel v" + std::to_string(QUILLET_VERSION_MAJOR) + "." +
           std::to_string(QUILLET_VERSION_MINOR) + "   ";
}

}  // namespace

frmMain::frmMain(ProcessState& state, const Desktop& desktop)
    : Toolbar(new CustomToolBar(QStringLiteral("Toolbar"), this)),
      StatusBar(new StatusPanels(this)),
      TopStrip(new QFrame(this)),
      lblTopStrip(new PlainLabel(QStringLiteral("lblTopStrip"), tr("Server"), TopStrip)),
      spltMain(new Splitter(QStringLiteral("spltMain"), this)),
      trvFiles(new CacheTreeView(spltMain)),
      mnuPopUp_Tree(new QMenu(this)),
      mnuPopUp_Perf(new QMenu(this)),
      m_state(state),
      m_desktop(desktop),
      m_scan(state.server, state.cache, {*this, *this, desktop.boxes, desktop.pump, desktop.pointer},
             state.stop, state.contents),
      m_info(*spltMain, *trvFiles, state, desktop, [this] { return Caption(); }),
      m_connection(
          state.server, state.cache, state.settings,
          {*this, *this, desktop.boxes, desktop.pump, desktop.pointer, state.transport.get(), &m_info}),
      m_selection(state.transport, state.server, state.computerName, state.settings,
                  {desktop.boxes, desktop.pointer}),
      m_removal(state.cache, *this, desktop.boxes, desktop.pump, desktop.pointer),
      m_placer(*this),
      m_helpKey([this]() -> frmHelp& { return Help(); }),
      m_details({state.server, state.cache, desktop.boxes, desktop.pump, desktop.pointer, state.tempFiles},
                state.locale)
{
    Load();
}

// ---- coming up and going down: the order of each is written here and nowhere else

void frmMain::Load()
{
    BuildClientArea();
    BuildToolbar();
    BuildMenuBar();
    BuildPopUps();
    SetCaption(std::string(kProgramTitle));
    SetTopStrip({});
    StatusBar->SetVersion(VersionText());
    SetConnStatus(tr("Not connected").toStdString());
}

void frmMain::Display()
{
    const Operation running(*this);
    RestoreSettings();
    FocusTree();  // or else the toolbar's first button would have it
    show();
    m_desktop.pump.Visit();
    if (m_isClosing) return;
    if (m_state.first) {
        TakeFirst(*m_state.first);
    } else if (m_state.settings.StartConnectDialog) {
        SelectSites(true);
        return;
    } else {
        SelectStartServer();
    }
    ConnectToServer();
    Rescan();
    FocusTree();
}

void frmMain::RestoreSettings()
{
    const auto& store = m_state.settingsStore;
    m_placer.Place(store.LoadPlacement());
    tmrStats->Restore(store.LoadRefreshInterval(tmrStats->Interval()));
    for (const auto& row : m_views) {
        row.item->setChecked(store.LoadView(row.setting));
        row.show(row.item->isChecked());
    }
    tmrStats->Restore(store.LoadRefreshInterval(tmrStats->Interval()));
    Toolbar->RestoreLayout(store.LoadToolbar());
}

void frmMain::Unload()
{
    auto& store = m_state.settingsStore;
    const auto& settings = m_state.settings;
    ForgetContents();
    if (settings.SaveWindowPos) store.SavePlacement(m_placer.Read(), tmrStats->Interval());
    if (settings.SavePanels) store.SavePanels(m_info.PanelLayout());
    if (settings.SaveView) {
        SaveViews();
        store.SaveToolbar(Toolbar->StoredLayout());
    }
    if (settings.SaveAutoStats) store.SaveRefreshInterval(tmrStats->Interval());
    tmrStats->SetEnabled(false);
    m_info.CloseQuery();
    if (m_console != nullptr) m_console->close();
    if (m_report != nullptr) m_report->close();
    if (m_help != nullptr) m_help->close();
    for (auto* const dialog : findChildren<QDialog*>()) dialog->reject();
    store.Save(settings);
    m_isUnloaded = true;
}

void frmMain::closeEvent(QCloseEvent* event)
{
    m_isClosing = true;
    if (m_operations > 0) {
        Stop();
        m_selection.Unload();
        for (auto* const dialog : findChildren<QDialog*>()) dialog->reject();
        event->ignore();
        return;
    }
    if (!m_isUnloaded) Unload();
    event->accept();
}

// ---- what the window is asked to do

void frmMain::SelectStartServer()
{
    auto& settings = m_state.settings;
    if (!settings.RememberLastServer || settings.LastServer.empty())
        settings.LastServer = zentrel::ServerAdmin(m_state.transport).ServerName();
}

// Its sites are chosen as if the user had chosen them. A server that cannot be asked offers nothing; why,
// the connection will tell.
void frmMain::TakeFirst(const FirstConnection& first)
{
    auto& settings = m_state.settings;
    if (first.server) {
        settings.LastServer = *first.server;
    } else {
        SelectStartServer();
    }
    CWaitCursor wait(m_desktop.pointer);
    wait.ShowCursor(ScreenPointer::Hourglass);
    SetConnStatus(FillIn(Translate("ConnectRoutine", "Connecting to %1..."), {settings.LastServer}));
    zentrel::ServerAdmin server(m_state.transport);
    if (!server.Connect(settings.LastServer)) return;
    const auto offered = OfferedSites(server);
    if (!offered) return;
    for (const auto site : *offered) {
        const bool isWanted =
            !first.sites || std::find(first.sites->begin(), first.sites->end(), site) != first.sites->end();
        isWanted ? settings.Sites.Add(site) : settings.Sites.Remove(site);
    }
    SetSiteCount(static_cast<int>(offered->size()));
}

// Not while a scan or a connection is under way, which work on the server that stands.
void frmMain::SelectSites(bool force)
{
    if (m_isClosing || IsOccupied()) return;
    const Operation running(*this);
    ::SelectSites(force, m_selection, *this);
}

void frmMain::ShowSelection()
{
    frmServer dialog(m_selection, this);
    dialog.ShowModal();
}

bool frmMain::IsOccupied() const
{
    const bool isRead = m_isExporting || (m_report != nullptr && m_report->IsBusy());
    return isRead || m_scan.IsBusy() || m_connection.IsBusy() || m_removal.IsBusy();
}

void frmMain::ConnectToServer()
{
    if (m_isClosing || IsOccupied()) return;
    const Operation running(*this);
    if (m_console != nullptr) m_console->SetServer(std::nullopt);
    m_connection.ConnectToServer();
    TellConsole();
    StatusBar->ShowConnected(m_connection.IsConnected());
}

void frmMain::Rescan()
{
    if (m_isClosing || IsOccupied() || !IsConnected()) return;
    const Operation running(*this);
    m_scan.Rescan(m_state.settings.Sites.Slots(), m_connection.IsConnected());
    NoteScan();
    UpdatePerfSummary();
}

// Lets messages run: those may close the window.
void frmMain::UpdatePerfSummary()
{
    if (m_isClosing) return;
    const Operation running(*this);
    m_info.UpdatePerfSummary();
}

void frmMain::LoadInfo2()
{
    if (m_isClosing || IsOccupied() || !IsConnected()) return;
    const Operation running(*this);
    m_scan.LoadInfo2(m_state.settings.Sites.Slots());
    NoteScan();
}

void frmMain::NoteScan()
{
    static const QDate dayZero(1899, 12, 30);
    const auto now = QDateTime::currentDateTime();
    m_state.scannedAt.days = static_cast<double>(dayZero.daysTo(now.date())) +
                             now.time().msecsSinceStartOfDay() / (24.0 * 60 * 60 * 1000);
    m_state.scannedServer = m_state.server.ServerName();
}

void frmMain::ExpandAll()
{
    if (m_scan.IsBusy() || !m_connection.IsConnected()) return;
    CWaitCursor wait(m_desktop.pointer);
    wait.ShowCursor(ScreenPointer::Hourglass);
    HideTree();
    trvFiles->expandAll();
    trvFiles->scrollTo(m_model.index(0, 0));
    ShowTree();
}

void frmMain::Stop()
{
    m_state.stop.isSet = true;
}

void frmMain::SavePosition()
{
    auto& store = m_state.settingsStore;
    store.SavePlacement(m_placer.Read(), tmrStats->Interval());
    store.SavePanels(m_info.PanelLayout());
    SaveViews();
    store.SaveRefreshInterval(tmrStats->Interval());
}

void frmMain::SaveViews()
{
    for (const auto& row : m_views) m_state.settingsStore.SaveView(row.setting, row.item->isChecked());
}

void frmMain::ShowView(const ViewRow& row, bool isShown)
{
    row.show(isShown);
    LayOutClientArea();
}

void frmMain::ShowOptions()
{
    if (m_isClosing) return;
    const Operation running(*this);
    frmOptions dialog(m_state.settings, m_desktop.boxes, this);
    dialog.exec();
}

// ---- what the scan and the connection show

void frmMain::SetCaption(const std::string& text)
{
    m_caption = text;
    setWindowTitle(PlainText(text));
}

void frmMain::HideTree()
{
    m_treeHadFocus = trvFiles->hasFocus();
    trvFiles->hide();
}

void frmMain::ShowTree()
{
    trvFiles->show();
    if (m_treeHadFocus) trvFiles->setFocus();
}

void frmMain::ForgetContents()
{
    m_model.SetTree(nullptr);
    m_info.ClearInfo();
}

void frmMain::ShowContents()
{
    m_model.SetTree(&m_state.contents.tree);
    trvFiles->expand(m_model.index(0, 0));
    m_info.ShowContents();
}
