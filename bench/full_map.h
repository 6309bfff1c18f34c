// SPDX-License-Identifier: MIT
// The largest map that fits: 40 columns of 20 rows, about 40 KB as a file, and a program on a fresh
// virtual desktop to use it in.
#pragma once

#include <string>

#include "core/program_reset.h"
#include "core/startup.h"
#include "forms/main_form.h"
#include "maps/map_grid.h"
#include "platform/headless/desktop.h"
#include "platform/main_window.h"
#include "platform/unneeded.h"

namespace taviro {

inline const std::wstring BENCH_DATA =
    L"C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela\\v2.2\\taviro";

inline std::string FullMapText() {
    std::string strText;
    for (int nRow = 1; nRow <= MAP_ROWS; ++nRow) {
        for (int nColumn = 1; nColumn <= MAP_COLUMNS; ++nColumn) {
            strText += "[" + std::to_string(nColumn) + "," + std::to_string(nRow) +
                       "]p\xF8\xEDkaz " + std::to_string(nRow * 100 + nColumn) + ",0,*x;" +
                       std::string(26, 'a') + "\r\n";
        }
    }
    return strText;
}

/// Starts the program with the full map; nothing is recorded, as a run of hours would be.
inline void StartWithFullMap() {
    using platform::headless::Desktop;
    Desktop = platform::headless::DesktopState{};
    ResetProgram();
    Unneeded(platform::OpenMainWindow(*forms::FrmMain));  // the virtual desktop never refuses
    Desktop.Files.Put(BENCH_DATA + L"\\data.ini", FullMapText());
    Main();
}

/// Effects are recorded while measured; this drops them now and then so that memory stays bounded.
inline void DropEffects() {
    auto& Transcript = platform::headless::Desktop.Transcript;
    if (Transcript.size() > 100000) Transcript.clear();
}

}  // namespace taviro
