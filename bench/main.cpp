#include "Benches.h"
#include "RemoteServer.h"
#include "Report.h"

#include "platform/TempFolder.h"

#include <QApplication>

#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

double PrivateMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("RssAnon:")) return std::stod(line.substr(8)) * 1024;
    return 0;
}

double RunProbe(const std::string& name, const std::filesystem::path& dataFolder)
{
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    const auto command = "'" + self.string() + "' --probe=" + name + " '" + dataFolder.string() + "'";
    FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return -1;
    double value = -1;
    const int read = std::fscanf(pipe, "%lf", &value);
    return pclose(pipe) == 0 && read == 1 ? value : -1;
}

namespace {

int RunAsProbe(std::string_view name, int argc, char** argv)
{
    if (name == "start-quillet" || name == "start-minimal")
        return ProbeStart(name == "start-minimal", argc, argv);
    const std::filesystem::path data = argc > 2 ? argv[2] : "";
    if (name == "serve") return ProbeServe(data);
    const QApplication application(argc, argv);
    if (name == "scan-memory") return ProbeScanMemory(data);
    if (name == "remote-memory") return ProbeRemoteMemory(data);
    if (name == "remote-scan") return ProbeRemoteScan(data);
    if (name == "expand-memory-quillet") return ProbeExpandMemory(data, false);
    if (name == "expand-memory-bare") return ProbeExpandMemory(data, true);
    return 1;
}

}  // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    constexpr std::string_view kProbe = "--probe=";
    if (argc > 1 && std::string_view(argv[1]).starts_with(kProbe))
        return RunAsProbe(std::string_view(argv[1]).substr(kProbe.size()), argc, argv);

    // Interleaved, so that a figure and its floor meet the same machine.
    std::vector<char*> arguments(argv, argv + argc);
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, interleave.data());
    auto count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());

    const QApplication application(argc, argv);
    const auto scratch = TempFolder::Make("quillet-bench");
    if (!scratch) return 1;
    RegisterScanBenches(scratch->Path());
    RegisterViewBenches(scratch->Path());
    RegisterFileTypesBenches(scratch->Path());
    RegisterStartBenches();
    RegisterAnalysisBenches(scratch->Path());
    RegisterWarmBenches(scratch->Path());
    RegisterDeletionBenches(scratch->Path());
    RegisterRemovalBenches(scratch->Path());
    RegisterExportBenches(scratch->Path());
    std::vector<std::unique_ptr<RemoteServer>> servers;
    RegisterRemoteBenches(scratch->Path(), servers);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return PrintTable(reporter) == 0 ? 0 : 1;
}
