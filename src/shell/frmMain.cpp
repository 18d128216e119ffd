#include "shell/frmMain.h"

#include "contracts/ShowError.h"
#include "controls/PlainText.h"
#include "shell/OfferedSites.h"

#include <QCloseEvent>

namespace {

std::string VersionText()
{
    return " Zentrel v" + std::to_string(QUILLET_VERSION_MAJOR) + "." +
           std::to_string(QUILLET_VERSION_MINOR) + "   ";
}

}  // namespace

// Marks an operation that lets messages run. A window that the user closes meanwhile goes down when the
// outermost operation has ended, so that nothing below it on the stack works on a window that is gone.
class frmMain::Operation {
public:
    explicit Operation(frmMain& window) : m_window(window) { ++m_window.m_operations; }
    ~Operation()
    {
        if (--m_window.m_operations == 0 && m_window.m_isClosing) m_window.close();
    }
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

private:
    frmMain& m_window;
};

frmMain::frmMain(ProcessState& state, const Desktop& desktop)
    : Toolbar(new QToolBar(this)),
      StatusBar(new StatusPanels(this)),
      TopStrip(new QFrame(this)),
      lblTopStrip(new PlainLabel(QStringLiteral("lblTopStrip"), tr("Server"), TopStrip)),
      spltMain(new QFrame(this)),
      trvFiles(new CacheTreeView(spltMain)),
      mnuPopUp_Tree(new QMenu(this)),
      m_state(state),
      m_desktop(desktop),
      m_scan(state.server, state.cache, {*this, *this, desktop.boxes, desktop.pump, desktop.pointer},
             state.stop, state.contents),
      m_connection(state.server, state.cache, state.settings,
                   {*this, *this, desktop.boxes, desktop.pump, desktop.pointer})
{
    Load();
}

// ---- coming up and going down: the order of each is written here and nowhere else

void frmMain::Load()
{
    BuildClientArea();
    BuildToolbar();
    BuildMenuBar();
    BuildPopUp();
    SetCaption(std::string(kProgramTitle));
    SetTopStrip({});
    StatusBar->SetVersion(VersionText());
    SetConnStatus("Not connected");
}

void frmMain::Display()
{
    const Operation running(*this);
    show();
    m_desktop.pump.Visit();
    SelectStartServer();
    SelectOfferedSites();
    ConnectToServer();
    Rescan();
    trvFiles->setFocus();
}

void frmMain::Unload()
{
    ForgetContents();
    m_isUnloaded = true;
}

void frmMain::closeEvent(QCloseEvent* event)
{
    m_isClosing = true;
    if (m_operations > 0) {
        Stop();
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
    if (!settings.RememberLastServer)
        settings.LastServer = zentrel::ServerAdmin(m_state.transport).ServerName();
}

// A server that cannot be asked offers nothing; why, the connection will tell.
void frmMain::SelectOfferedSites()
{
    zentrel::ServerAdmin server(m_state.transport);
    if (!server.Connect(m_state.settings.LastServer)) return;
    const auto sites = OfferedSites(server);
    if (!sites) return;
    m_connection.SetSiteCount(static_cast<int>(sites->size()));
    if (!m_state.selectsAllSites) return;
    m_state.settings.Sites = SiteSet();
    for (const auto site : *sites) m_state.settings.Sites.Add(site);
}

void frmMain::ConnectToServer()
{
    if (m_isClosing || m_scan.IsBusy()) return;
    const Operation running(*this);
    m_connection.ConnectToServer();
    StatusBar->ShowConnected(m_connection.IsConnected());
}

void frmMain::Rescan()
{
    if (m_isClosing) return;
    const Operation running(*this);
    m_scan.Rescan(m_state.settings.Sites.Slots(), m_connection.IsConnected());
}

void frmMain::LoadInfo2()
{
    if (m_isClosing) return;
    const Operation running(*this);
    m_scan.LoadInfo2(m_state.settings.Sites.Slots());
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

void frmMain::RefreshFileNode()
{
    m_scan.RefreshFileNode(SelectedNode());
}

void frmMain::Stop()
{
    m_state.stop.isSet = true;
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
}

void frmMain::ShowContents()
{
    m_model.SetTree(&m_state.contents.tree);
    trvFiles->expand(m_model.index(0, 0));
}

NodeId frmMain::SelectedNode() const
{
    return CacheTreeModel::NodeOf(trvFiles->currentIndex());
}
