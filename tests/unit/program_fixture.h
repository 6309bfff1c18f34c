// SPDX-License-Identifier: MIT
// The fixture of every test that needs the program: a fresh virtual desktop, a fresh program, and
// verbs for what a user does.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/program_reset.h"
#include "core/startup.h"
#include "maps/map_grid.h"
#include "platform/headless/desktop.h"
#include "platform/main_window.h"
#include "platform/text.h"
#include "settings/setting.h"
#include "state/program_state.h"

namespace taviro {

using platform::headless::Desktop;

inline const std::wstring DATA_PATH =
    L"C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela\\v2.2\\taviro";

class ProgramTest : public ::testing::Test {
  protected:
    ProgramTest() {
        Desktop = platform::headless::DesktopState{};
        ResetProgram();
        EXPECT_TRUE(platform::OpenMainWindow(*forms::FrmMain));
    }
    ~ProgramTest() override { platform::CloseMainWindow(); }

    /// Puts a file into the data folder, with its text as Windows-1250.
    static void PutData(const std::wstring& strName, const std::wstring& strText) {
        Desktop.Files.Put(DATA_PATH + L"\\" + strName, platform::ToAnsi(strText));
    }
    static std::wstring DataText(const std::wstring& strName) {
        std::string strBytes;
        Desktop.Files.Read(DATA_PATH + L"\\" + strName, strBytes);
        return platform::FromAnsi(strBytes);
    }

    /// Runs the start-up with what was put into the data folder.
    static void Start() {
        Main();
        Desktop.TakeEffects();
    }

    /// A fresh program on the same desktop, as after the end of a run.
    static void StartAnew() {
        platform::CloseMainWindow();
        ResetProgram();
        EXPECT_TRUE(platform::OpenMainWindow(*forms::FrmMain));
    }

    /// Settings and data folder without the rest of the start-up.
    static void PrepareBare() {
        Program.strDataPath = DATA_PATH;
        Desktop.Files.CreateFolders(DATA_PATH);
        objSetting.Init(DATA_PATH + L"\\setting.ini", L"");
        Program.nCellTextSize = objSetting.CellTextSize();
        Program.nCellWidth = objSetting.CellWidth();
        Program.nCellHeight = objSetting.CellHeight();
    }

    /// Fills a grid from rows of captions separated by blanks.
    static void FillMap(MapGrid& Grid, const std::vector<std::wstring>& Rows) {
        Grid.Clear();
        for (size_t nRow = 0; nRow < Rows.size(); ++nRow) {
            std::wstring strRest = Rows[nRow];
            for (int32_t nColumn = 1; !strRest.empty(); ++nColumn) {
                const auto nBlank = strRest.find(L' ');
                Grid.Cell(nColumn, static_cast<int32_t>(nRow) + 1)->Caption =
                    strRest.substr(0, nBlank);
                strRest = nBlank == std::wstring::npos ? L"" : strRest.substr(nBlank + 1);
            }
        }
    }
};

/// The joystick in the user's hand. Short of the very corner: a device that reports both axes at 0
/// counts as absent.
inline constexpr int32_t TILT = 30000;
inline void TiltStick(int32_t nRight, int32_t nDown) {
    Desktop.Joystick.nX = static_cast<uint32_t>(32767 + nRight * TILT);
    Desktop.Joystick.nY = static_cast<uint32_t>(32767 + nDown * TILT);
}
inline void TiltRight() {
    TiltStick(1, 0);
}
inline void TiltLeft() {
    TiltStick(-1, 0);
}
inline void TiltDown() {
    TiltStick(0, 1);
}
inline void TiltUp() {
    TiltStick(0, -1);
}
inline void CentreStick() {
    TiltStick(0, 0);
}
inline void PressButton(int nButton) {
    Desktop.Joystick.nButtons |= 1U << nButton;
}
inline void ReleaseButtons() {
    Desktop.Joystick.nButtons = 0;
}

/// Lets that many ticks of the poll loop run, each at its time. A scan step that is due meanwhile
/// runs as well.
inline void Ticks(int nCount = 1) {
    for (int n = 0; n < nCount; ++n)
        Desktop.RunFor(forms::POLL_INTERVAL_MS);
}

}  // namespace taviro
