// SPDX-License-Identifier: MIT
// The engine's work on the headless desktop, at its largest: a full map, every effect recorded.
#include <benchmark/benchmark.h>

#include "bench/budget.h"
#include "bench/full_map.h"
#include "core/cursor_movement.h"
#include "core/poll_loop.h"
#include "maps/map_file.h"
#include "maps/map_window.h"
#include "maps/shown_map.h"
#include "settings/setting.h"
#include "state/cursor_state.h"
#include "vocabulary/key_code.h"

namespace taviro {
namespace {

void PollTick_StickAtRest(benchmark::State& State) {
    StartWithFullMap();
    for (auto _ : State)
        Timer1_Timer();
}
BENCHMARK(PollTick_StickAtRest);

// Round and round inside the map, so that no step runs off the full grid.
void MoveCursor_FullMap(benchmark::State& State) {
    StartWithFullMap();
    constexpr int32_t ROUND[] = {KeyCode::Right, KeyCode::Down, KeyCode::Left, KeyCode::Up};
    size_t n = 0;
    for (auto _ : State) {
        MoveCursor(ROUND[n++ % 4]);
        DropEffects();
    }
}
BENCHMARK(MoveCursor_FullMap);

void LoadMap_FullMap(benchmark::State& State) {
    StartWithFullMap();
    for (auto _ : State)
        benchmark::DoNotOptimize(LoadMap(L""));
    State.counters["bytes"] = static_cast<double>(FullMapText().size());
}
BENCHMARK(LoadMap_FullMap)->Unit(benchmark::kMicrosecond);

// 1,000 labels.
void Layout_FullMap(benchmark::State& State) {
    StartWithFullMap();
    for (auto _ : State) {
        ShowMap(true);
        DropEffects();
    }
}
BENCHMARK(Layout_FullMap)->Unit(benchmark::kMicrosecond);

// Both together, on a settings file of the usual size.
void Settings_InitAndSave(benchmark::State& State) {
    StartWithFullMap();
    objSetting.SaveSetting();
    for (auto _ : State) {
        objSetting = cSetting{};
        objSetting.Init(BENCH_DATA + L"\\setting.ini", L"");
        objSetting.SaveSetting();
        DropEffects();
    }
}
BENCHMARK(Settings_InitAndSave)->Unit(benchmark::kMicrosecond);

const bench::BudgetTable Promised{
    {.strCase = "PollTick_StickAtRest", .dYardsticks = 4.5},
    {.strCase = "MoveCursor_FullMap", .dYardsticks = 23},
    {.strCase = "LoadMap_FullMap", .dYardsticks = 2300},
    {.strCase = "Layout_FullMap", .dYardsticks = 700},
    {.strCase = "Settings_InitAndSave", .dYardsticks = 4600},
};

}  // namespace
}  // namespace taviro
