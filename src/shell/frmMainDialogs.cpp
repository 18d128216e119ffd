// The windows and dialogs that the main window opens.
#include "export/frmDbExport.h"
#include "help/WebSite.h"
#include "help/frmAbout.h"
#include "shell/Operation.h"
#include "shell/ScanSnapshot.h"

namespace {

FileDetails DetailsOf(const FileInfo& info)
{
    return {info.FileName,  info.FilePath,       info.PhysycalPath(),   info.CacheFilePath(),
            info.CompLevel, info.CompressedSize, info.UncompressedSize, info.Ratio(),
            info.TotalHits, info.CacheHits};
}

}  // namespace

// The dialog works on a copy of the record: the node may be gone before it is closed.
void frmMain::ShowFileDetails(bool analyse)
{
    if (m_isClosing || IsOccupied()) return;
    const auto node = SelectedNode();
    const auto& tree = m_state.contents.tree;
    if (node == kNoNode || !IsUrl(tree.Kind(node)) || !tree.HasInfo(node)) return;
    const Operation running(*this);
    m_details.ShowInfo(this, DetailsOf(tree.Info(node)), analyse);
}

void frmMain::ShowCounters()
{
    if (m_isClosing) return;
    if (m_console == nullptr) {
        m_console = std::make_unique<CountersConsole>(CountersConsoleHost{
            m_state.performanceData, m_state.counterList, m_desktop.boxes, m_state.locale});
        TellConsole();
    }
    m_console->Open();
}

// The console reads the server that this window is connected to.
void frmMain::TellConsole()
{
    if (m_console == nullptr) return;
    if (IsConnected())
        m_console->SetServer(CounterServer{m_state.server.ServerName(), m_state.server.IsLocal()});
    else
        m_console->SetServer(std::nullopt);
}

// ---- what is made of the last scan; it stands still meanwhile

std::unique_ptr<CacheSnapshot> frmMain::LastScan() const
{
    if (m_state.scannedAt == DateTime()) return nullptr;
    return std::make_unique<ScanSnapshot>(m_state.contents, m_state.scannedServer, m_state.scannedAt,
                                          m_state.counters.Counters());
}

void frmMain::ShowReport()
{
    const auto isScanning = [this] { return m_scan.IsBusy() || m_connection.IsBusy() || m_removal.IsBusy(); };
    if (m_isClosing) return;
    if (m_report == nullptr)
        m_report = std::make_unique<frmReport>(
            ReportHost{[this] { return LastScan(); }, m_desktop.boxes, m_state.locale, {}, isScanning});
    m_report->Open();
}

void frmMain::ExportToDatabase()
{
    if (m_isClosing || IsOccupied()) return;
    const Operation running(*this);
    m_isExporting = true;
    const ScanSnapshot scan(m_state.contents, m_state.scannedServer, m_state.scannedAt,
                            m_state.counters.Counters());
    frmDbExport dialog(m_state.registry, scan, m_desktop.boxes, this);
    dialog.exec();
    m_isExporting = false;
}

// ---- the others

void frmMain::CustomizeToolbar()
{
    if (!m_isClosing) Toolbar->Customize();
}

frmHelp& frmMain::Help()
{
    if (m_help == nullptr) m_help = std::make_unique<frmHelp>(m_helpBook);
    return *m_help;
}

void frmMain::ShowHelp()
{
    if (!m_isClosing) Help().ShowContents();
}

void frmMain::OpenWebSite()
{
    m_desktop.web.Open(WebSiteAddress(m_state.registry));
}

void frmMain::ShowAbout()
{
    if (m_isClosing) return;
    const Operation running(*this);
    frmAbout dialog({m_state.registry, m_desktop.starter, m_desktop.boxes}, this);
    dialog.exec();
}
