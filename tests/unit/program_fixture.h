// SPDX-License-Identifier: MIT
// The fixture of every test that needs the program: a fresh virtual desktop with its user, and a
// fresh program.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/program_reset.h"
#include "core/startup.h"
#include "maps/map_grid.h"
#include "platform/headless/desktop.h"
#include "platform/headless/user.h"
#include "platform/main_window.h"
#include "platform/text.h"
#include "settings/setting.h"
#include "state/program_state.h"

namespace taviro {

using platform::headless::CentreStick;
using platform::headless::Desktop;
using platform::headless::PressButton;
using platform::headless::ReleaseButtons;
using platform::headless::Ticks;
using platform::headless::TiltDown;
using platform::headless::TiltLeft;
using platform::headless::TiltRight;
using platform::headless::TiltStick;
using platform::headless::TiltUp;

using Effects = std::vector<std::string>;  ///< what the program did, in words

inline const std::wstring DATA_PATH =
    L"C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela\\v2.2\\taviro";

class ProgramTest : public ::testing::Test {
  protected:
    ProgramTest() {
        ResetProgram();  // what an earlier test left goes while its own desktop is still there
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

}  // namespace taviro
