#include "stats/InitPerfCounters.h"

#include "base/Translate.h"

#include <optional>

namespace {

struct Failure {
    PdhStatus status;
    std::string text;
};

// Counters of this machine are known by their bare path, or else by the machine's name.
bool AddRow(modPerfCntr& counters, const CounterRow& row, const CounterServer& server)
{
    const auto fullPath = "\\\\" + server.name + row.path;
    if (!server.isLocal) return counters.AddCounter(fullPath, row.label);
    if (counters.AddCounter(row.path, row.label)) return true;
    return counters.LastStatus() == Pdh::NoObject && counters.AddCounter(fullPath, row.label);
}

}  // namespace

void InitPerfCounters(modPerfCntr& counters, const CounterList& list, const CounterServer& server,
                      const std::string& caption, InitPerfHost host)
{
    CWaitCursor cursor(host.pointer);
    cursor.ShowCursor(ScreenPointer::Hourglass);
    const auto query = counters.Query();
    std::optional<Failure> failure;
    for (const auto& row : list) {
        const bool isAdded = AddRow(counters, row, server);
        if (!isAdded) failure = {counters.LastStatus(), counters.LastText()};
        host.pump.Run();
        if (counters.Query() != query) return;
    }
    if (!failure) return;
    host.boxes.Show(WithPdhError(Translate("InitPerfCounters",
                                           "At least one of the performance counters is unavailable."),
                                 failure->status, failure->text),
                    BoxStyle::Exclamation, caption);
}
