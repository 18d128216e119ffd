#include "Benches.h"

#include "help/QtOutside.h"
#include "shell/ProcessState.h"
#include "shell/QtMessageBoxes.h"
#include "shell/QtMessagePump.h"
#include "shell/QtScreenPointer.h"
#include "shell/frmMain.h"
#include "zentrel/EmbeddedTransport.h"

#include <QApplication>
#include <QLabel>

#include <cstdio>

namespace {

// From the birth of a process to its first painted window.
void Start(benchmark::State& state, const std::string& probe)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const auto painted = RunProbe(probe, "-");
        if (painted < 0) return state.SkipWithError("the probe failed");
        state.SetIterationTime(painted - std::chrono::duration<double>(start.time_since_epoch()).count());
    }
}

// The steady clock is the same in all processes of a machine.
int TellPainted(QWidget& window)
{
    window.show();
    QCoreApplication::processEvents();
    window.repaint();
    std::printf("%.6f\n",
                std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count());
    return 0;
}

}  // namespace

int ProbeStart(bool isMinimal, int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (isMinimal) {
        QLabel window(QStringLiteral("Hello"));
        window.resize(1000, 700);
        return TellPainted(window);
    }
    QtScreenPointer pointer;
    QtMessageBoxes boxes(pointer);
    QtMessagePump pump;
    std::string trouble;
    const auto registry = RegistryStore::Open({}, {}, trouble);
    const auto servers = std::make_shared<zentrel::EmbeddedTransport>("/nonexistent", "bench");
    ProcessState state(servers, servers, *registry);
    QtWebOpener web;
    QtProgramStarter starter;
    frmMain window(state, {boxes, pump, pointer, web, starter});
    return TellPainted(window);
}

void RegisterStartBenches()
{
    Register("start/minimal", [](benchmark::State& state) { Start(state, "start-minimal"); });
    Register("start/quillet", [](benchmark::State& state) { Start(state, "start-quillet"); });
}
