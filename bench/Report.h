#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// Keeps the medians of everything that ran: real time in seconds under the benchmark's name, each counter
// under "name:counter".
class MedianReporter : public benchmark::ConsoleReporter {
public:
    MedianReporter() : ConsoleReporter(OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& runs) override;

    // 0 when it did not run.
    double operator[](const std::string& name) const;

private:
    std::map<std::string, std::vector<double>> m_values;
};

// Prints the targets as a table, one line for each figure that was measured. Answers how many were missed.
int PrintTable(const MedianReporter& medians);
