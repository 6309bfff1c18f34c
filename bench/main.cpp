// SPDX-License-Identifier: MIT
// Runs the cases, and compares each with what was promised of it.
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "bench/budget.h"
#include "bench/yardstick.h"

namespace {

using taviro::bench::Budget;
using taviro::bench::Budgets;

/// What a run cost in microseconds; nothing when it failed or has no such counter.
std::optional<double> Cost(const benchmark::BenchmarkReporter::Run& Run, const Budget& Promised) {
    if (Run.error_occurred) return std::nullopt;
    if (Promised.strCounter.empty()) {
        return Run.cpu_accumulated_time / static_cast<double>(Run.iterations) * 1e6;
    }
    const auto it = Run.counters.find(Promised.strCounter);
    if (it == Run.counters.end()) return std::nullopt;
    return it->second.value;
}

class BudgetReporter : public benchmark::ConsoleReporter {
  public:
    explicit BudgetReporter(double dYardstick) : m_dYardstick(dYardstick) {}

    void ReportRuns(const std::vector<Run>& Runs) override {
        ConsoleReporter::ReportRuns(Runs);
        for (const Run& One : Runs) {
            if (One.error_occurred) m_bMissed = true;
            for (const Budget& Promised : Budgets) {
                if (Promised.strCase == One.run_name.function_name) Compare(One, Promised);
            }
        }
    }

    /// Whether every budget was compared and kept.
    bool AllKept() const { return !m_bMissed && m_nCompared == Budgets.size(); }

  private:
    void Compare(const Run& One, const Budget& Promised) {
        const std::optional<double> Spent = Cost(One, Promised);
        if (!Spent) return;
        ++m_nCompared;
        const double dRatio = *Spent / m_dYardstick;
        const bool bKept = dRatio <= Promised.dYardsticks;
        if (!bKept) m_bMissed = true;
        std::printf("  %s%s%s: %.3f us, %.2f yardsticks, budget %g: %s\n", Promised.strCase.c_str(),
                    Promised.strCounter.empty() ? "" : " ", Promised.strCounter.c_str(), *Spent,
                    dRatio, Promised.dYardsticks, bKept ? "kept" : "EXCEEDED");
    }

    double m_dYardstick;  // microseconds
    bool m_bMissed = false;
    size_t m_nCompared = 0;
};

}  // namespace

int main(int nArguments, char** pArguments) {
    benchmark::Initialize(&nArguments, pArguments);
    if (benchmark::ReportUnrecognizedArguments(nArguments, pArguments)) return EXIT_FAILURE;
    const double dYardstick = taviro::bench::Yardstick();
    std::printf("yardstick: %.3f us\n", dYardstick);
    BudgetReporter Reporter(dYardstick);
    benchmark::RunSpecifiedBenchmarks(&Reporter);
    return Reporter.AllKept() ? EXIT_SUCCESS : EXIT_FAILURE;
}
