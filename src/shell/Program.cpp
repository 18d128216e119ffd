#include "shell/Program.h"

#include "controls/Images.h"
#include "help/QtOutside.h"
#include "platform/ComputerName.h"
#include "platform/ConfigFolder.h"
#include "platform/RegistryStore.h"
#include "platform/TempFolder.h"
#include "shell/ConsoleBoxes.h"
#include "shell/Demo.h"
#include "shell/DemoTraffic.h"
#include "shell/Language.h"
#include "shell/QtMessageBoxes.h"
#include "shell/QtMessagePump.h"
#include "shell/QtScreenPointer.h"
#include "shell/frmMain.h"
#include "zentrel/DataFolder.h"
#include "zentrel/EmbeddedTransport.h"
#include "zentrel/StopSignals.h"
#include "zentrel/remote/ServerDirectory.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QLocale>
#include <QTimer>

#include <csignal>
#include <iostream>

namespace {

constexpr int kFailed = 1;
constexpr int kSettling = 100;  // milliseconds
constexpr QSize kPictureSize(1000, 700);
constexpr const char* kPictureName = "quillet-screenshot.png";
constexpr const char* kKnownServersName = "servers.conf";
constexpr const char* kHiveName = "settings.hive";
constexpr const char* kMachineHive = "/etc/quillet/machine.hive";
constexpr const char* kPlatformVariable = "QT_QPA_PLATFORM";

bool HasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty(kPlatformVariable);
}

// This machine's service by its usual names, and all other servers by theirs.
struct Transports {
    std::shared_ptr<zentrel::Transport> servers;
    std::shared_ptr<zentrel::Transport> counters;  // with less patience
};

Transports EveryServer(const std::shared_ptr<zentrel::Transport>& embedded,
                       const std::vector<std::filesystem::path>& sockets)
{
    auto known = DefaultConfigFolder();
    if (!known.empty()) known /= kKnownServersName;
    const zentrel::ServerPlaces places{sockets, known};
    zentrel::Deadlines soon;
    soon.connect = ZentrelCounters::kConnecting;
    soon.read = ZentrelCounters::kReading;
    return {std::make_shared<zentrel::ServerDirectory>(embedded, places, PaintWhileWaiting),
            std::make_shared<zentrel::ServerDirectory>(embedded, places, PaintWhileWaiting, soon)};
}

// The server that --demo makes, with its visitors, and the signals that end the program in good order.
class DemoServer {
public:
    Done Start()
    {
        std::cerr << "quillet: making a demonstration server from files of this machine...\n";
        auto made = Demo::Make([this] { return !m_signals.Raised(); });
        if (!made) return Fail(made.error());
        m_demo.emplace(std::move(*made));
        return {};
    }

    Transports Servers() const
    {
        return EveryServer(std::make_shared<zentrel::EmbeddedTransport>(m_demo->Service(), ComputerName()),
                           {});
    }

    std::unique_ptr<DemoTraffic> Visitors()
    {
        return std::make_unique<DemoTraffic>(m_demo->Service(), m_demo->Requests(), m_signals, [] {
            QMetaObject::invokeMethod(qApp, &QApplication::closeAllWindows, Qt::QueuedConnection);
        });
    }

private:
    zentrel::StopSignals m_signals;
    std::optional<Demo> m_demo;
};

// The connection that the command line asks for, if it does. A picture cannot wait for answers to a dialog.
std::optional<FirstConnection> FirstOf(const StartOptions& options, const zentrel::Transport& transport)
{
    if (!options.demo && !options.server && !options.choosesSites && !options.picture) return std::nullopt;
    FirstConnection first{options.server, options.sites};
    if (options.demo) first.server = transport.LocalName();
    return first;
}

// The user's settings, or some that last as long as the demonstration.
class SettingsFile {
public:
    explicit SettingsFile(const StartOptions& options) : m_file(options.settingsFile)
    {
        if (m_file.empty() && options.demo) {
            auto folder = TempFolder::Make("quillet-settings-");
            if (folder) m_folder.emplace(std::move(*folder));
        }
        if (m_folder) {
            m_file = m_folder->Path() / kHiveName;
        } else if (m_file.empty()) {
            const auto folder = DefaultConfigFolder();
            if (!folder.empty()) m_file = folder / kHiveName;
        }
    }

    std::unique_ptr<RegistryStore> Open() const
    {
        std::string trouble;
        auto registry = RegistryStore::Open(m_file, kMachineHive, trouble);
        if (!trouble.empty()) std::cerr << "quillet: " << trouble << '\n';
        return registry;
    }

private:
    std::optional<TempFolder> m_folder;
    std::filesystem::path m_file;
};

int WritePicture(frmMain& window, const std::filesystem::path& file)
{
    window.resize(kPictureSize);
    window.ExpandAll();
    QEventLoop settle;  // the status text follows at its own pace
    QTimer::singleShot(kSettling, &settle, &QEventLoop::quit);
    settle.exec();
    const auto name = QString::fromStdString(file.string());
    if (!window.grab().save(name, "PNG")) {
        std::cerr << "quillet: cannot write the picture to " << file.string() << '\n';
        return kFailed;
    }
    std::cout << QFileInfo(name).absoluteFilePath().toStdString() << std::endl;
    return 0;
}

int RunWindow(const StartOptions& options, const Transports& transports, DemoServer* demo)
{
    const SettingsFile settings(options);
    const auto registry = settings.Open();
    ProcessState state(transports.servers, transports.counters, *registry);
    state.first = FirstOf(options, *state.transport);
    QtMessagePump pump;
    QtScreenPointer pointer;
    QtMessageBoxes windows(pointer);
    ConsoleBoxes console(std::cerr);
    MessageBoxes& boxes = options.picture ? static_cast<MessageBoxes&>(console) : windows;
    QtWebOpener web;
    QtProgramStarter starter;
    frmMain window(state, {boxes, pump, pointer, web, starter});
    const auto visitors = demo == nullptr ? nullptr : demo->Visitors();
    window.Display();
    if (options.picture) {
        if (window.IsUnloaded()) return kFailed;
        const int written = WritePicture(window, *options.picture);
        return written == 0 && !window.IsConnected() ? kFailed : written;
    }
    return window.IsUnloaded() ? 0 : QApplication::exec();
}

}  // namespace

int RunProgram(StartOptions options, char* programName)
{
    if (!HasDisplay()) {
        std::cerr << "quillet: there is no display; the window is drawn offscreen\n";
        qputenv(kPlatformVariable, "offscreen");
        qputenv("QT_LOGGING_RULES", "default.warning=false");  // what the offscreen platform cannot do
        if (!options.picture) options.picture = kPictureName;
    }
    // The demonstration takes charge of signals before any thread starts.
    std::optional<DemoServer> demo;
    if (options.demo) {
        std::signal(SIGHUP, SIG_IGN);  // its folder must not stay behind when a terminal closes
        demo.emplace();
    }
    int argc = 1;
    char* argv[] = {programName, nullptr};
    const QApplication application(argc, argv);
    const Language language(QLocale().uiLanguages());
    QApplication::setDesktopFileName(QStringLiteral("quillet"));
    QApplication::setWindowIcon(Image(QStringLiteral("Quillet")));

    if (!demo) {
        const auto folder = options.dataFolder.empty() ? zentrel::DefaultDataFolder() : options.dataFolder;
        auto embedded = std::make_shared<zentrel::EmbeddedTransport>(folder, ComputerName());
        return RunWindow(options, EveryServer(std::move(embedded), zentrel::LocalSockets(folder)), nullptr);
    }
    if (auto started = demo->Start(); !started) {
        std::cerr << "quillet: " << started.error().description << '\n';
        return kFailed;
    }
    return RunWindow(options, demo->Servers(), &*demo);
}
