// SPDX-License-Identifier: MIT
// Saving a cell of a full map, with the same bytes replaced on a real disk: temporary file, flush,
// rename. What the disk costs is the machine's; both parts are shown.
#include <benchmark/benchmark.h>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <unistd.h>

#include "bench/budget.h"
#include "bench/full_map.h"
#include "maps/map_file.h"
#include "state/cursor_state.h"

namespace taviro {
namespace {

bool ReplaceOnDisk(const std::string& strPath, const std::string& strBytes) {
    const std::string strTemporary = strPath + ".tmp";
    const int nFile = open(strTemporary.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0600);
    if (nFile < 0) return false;
    const bool bWritten =
        write(nFile, strBytes.data(), strBytes.size()) == static_cast<ssize_t>(strBytes.size());
    const bool bFlushed = fsync(nFile) == 0;
    const bool bClosed = close(nFile) == 0;
    return bWritten && bFlushed && bClosed && rename(strTemporary.c_str(), strPath.c_str()) == 0;
}

void SaveCell_FullMap(benchmark::State& State) {
    StartWithFullMap();
    for (auto _ : State) {
        SaveCell(5, 5, {L"nový", 65, L""});
        DropEffects();
    }
}
BENCHMARK(SaveCell_FullMap)->Unit(benchmark::kMicrosecond);

void SaveCell_FullMap_AndReplaceOnDisk(benchmark::State& State) {
    StartWithFullMap();
    const std::string strPath = "taviro_bench_map.ini";
    bool bDone = true;
    for (auto _ : State) {
        SaveCell(5, 5, {L"nový", 65, L""});
        bDone = ReplaceOnDisk(strPath, WriteMapText(CommonMap)) && bDone;
        DropEffects();
    }
    if (!bDone) State.SkipWithError("the file could not be replaced");
    (void)std::remove(strPath.c_str());
}
BENCHMARK(SaveCell_FullMap_AndReplaceOnDisk)->Unit(benchmark::kMicrosecond);

const bench::BudgetTable Promised{
    {.strCase = "SaveCell_FullMap_AndReplaceOnDisk", .dYardsticks = 7000},
};

}  // namespace
}  // namespace taviro
