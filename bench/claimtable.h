#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

/// Prints, at the end of a run, the machine, each claim with what was measured, and how the time of growing work grows.
class claimtable : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    using figures = std::map<std::string, double>;

    void printClaims() const;
    void printGrowth() const;

    std::map<std::string, figures> measured; ///< by the row's name
};
