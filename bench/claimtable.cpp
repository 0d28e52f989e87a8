#include "claimtable.h"

#include "machine.h"
#include "row.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

std::string text(const char* format, double number)
{
    char line[64];
    std::snprintf(line, sizeof line, format, number);
    return line;
}

std::string amountText(const claim& told, double value)
{
    if (!told.reference.empty())
        return text(value < 0.1 ? "%.4f times" : value < 20 ? "%.2f times" : "%.0f times", value);
    switch (told.of) {
    case quantity::instructions:
        return text("%.0f instructions", value);
    case quantity::heap:
        return text("%.0f KiB", value / 1024);
    case quantity::files:
        return text("%.0f", value);
    case quantity::seconds:
    case quantity::firstSeconds:
        break;
    }
    return text("%.3g ms", value * 1e3);
}

const char* verdict(const claim& told, double value)
{
    if (std::isnan(value))
        return "not measured: valgrind is missing";
    const bool holds = told.direction == claim::side::atMost ? value <= told.bound : value >= told.bound;
    return holds ? "pass" : "short";
}

} // namespace

bool claimtable::ReportContext(const Context&)
{
    std::printf("%s\n\n", machine::description().c_str());
    std::fflush(stdout);
    return true;
}

void claimtable::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        const std::string& name = run.run_name.function_name;
        std::fprintf(stderr, "%s\n", name.c_str());
        for (const auto& [counter, value] : run.counters)
            measured[name][counter] = value.value;
    }
}

void claimtable::Finalize()
{
    printClaims();
    printGrowth();
}

void claimtable::printClaims() const
{
    std::puts("| Work: compared with | Measured | Target | |\n|---|---|---|---|");
    for (const row& each : allRows()) {
        const auto found = measured.find(each.name);
        if (found == measured.end())
            continue;
        for (const claim& told : each.claims) {
            double value = found->second.at(figureName(told.figure, told.of));
            if (!told.reference.empty())
                value /= found->second.at(figureName(told.reference, told.of));
            const char* direction = told.direction == claim::side::atMost ? "at most " : "at least ";
            std::printf("| %s | %s | %s%s%s | %s |\n", told.work.c_str(), amountText(told, value).c_str(),
                        told.stretch ? "to be wished: " : "", direction, amountText(told, told.bound).c_str(),
                        verdict(told, value));
        }
    }
}

void claimtable::printGrowth() const
{
    std::puts("\n| Growing work | Time | Most growth of the time per unit from step to step | |\n|---|---|---|---|");
    for (const row& each : allRows()) {
        const auto found = measured.find(each.name);
        if (found == measured.end() || each.growsBy.empty())
            continue;
        std::string times;
        double growth = 0;
        double before = 0;
        bool first = true;
        bool holds = true;
        for (const contender& step : each.make()) {
            const double seconds = found->second.at(step.name);
            times += (times.empty() ? "" : ", ") + step.name + ": " + text("%.3g ms", seconds * 1e3);
            if (before > 0) {
                const double grown = seconds / step.amount / before;
                holds = holds && grown <= (first ? each.mostFirstGrowth : each.mostGrowth);
                growth = std::max(growth, grown);
                first = false;
            }
            before = seconds / step.amount;
            holds = holds && (each.longestStep <= 0 || seconds <= each.longestStep);
        }
        std::printf("| %s, by %s | %s | %s | %s |\n", each.name.c_str(), each.growsBy.c_str(), times.c_str(),
                    text("%.2f times", growth).c_str(), holds ? "pass" : "short");
    }
}
