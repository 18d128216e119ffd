#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

class RemoteServer;

// Each file of benchmarks registers its own. scratch: a folder for their files, removed afterwards.
void RegisterScanBenches(const std::filesystem::path& scratch);
void RegisterViewBenches(const std::filesystem::path& scratch);
void RegisterFileTypesBenches(const std::filesystem::path& scratch);
void RegisterStartBenches();
void RegisterAnalysisBenches(const std::filesystem::path& scratch);
void RegisterWarmBenches(const std::filesystem::path& scratch);
void RegisterDeletionBenches(const std::filesystem::path& scratch);
void RegisterRemovalBenches(const std::filesystem::path& scratch);
void RegisterExportBenches(const std::filesystem::path& scratch);
// Needs the data folders of the scan's. The servers must outlive the run.
void RegisterRemoteBenches(const std::filesystem::path& scratch,
                           std::vector<std::unique_ptr<RemoteServer>>& servers);

// Measured by hand, once a repetition, five times; the median counts.
template <class Body>
void Register(const std::string& name, Body body)
{
    benchmark::RegisterBenchmark(name.c_str(), body)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(5)
        ->ReportAggregatesOnly(false)
        ->Unit(benchmark::kMillisecond);
}

inline double SecondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Memory of this process that belongs to it alone, in bytes.
double PrivateMemory();

// Runs this program again with one argument, --probe=NAME, and answers the number that it prints; below 0
// when it fails. What must be measured in a fresh process is measured so.
double RunProbe(const std::string& name, const std::filesystem::path& dataFolder);

// The other side: answers the exit code when `name` is a probe.
int ProbeScanMemory(const std::filesystem::path& dataFolder);
int ProbeExpandMemory(const std::filesystem::path& dataFolder, bool isBare);
int ProbeStart(bool isMinimal, int argc, char** argv);
int ProbeRemoteMemory(const std::filesystem::path& dataFolder);
int ProbeRemoteScan(const std::filesystem::path& dataFolder);
