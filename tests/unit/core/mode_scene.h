// SPDX-License-Identifier: MIT
// A desktop with two programs, of which the editor may have a map of its own, and the program in
// one of its modes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "actions/foreground_watch.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "maps/map_window.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/core/two_programs.h"
#include "tests/unit/program_fixture.h"

namespace taviro {

using Lines = std::vector<std::wstring>;

//   common map  A B C    the editor's  X Y
//               D E F                  Z W
//               G H I                  U V
class ModeScene : public ProgramTest {
  protected:
    ModeScene() {
        pEngine = InstallEngine();
        PutData(L"data.ini",
                L"[1,1]A,65\r\n[2,1]B,66\r\n[3,1]C,67\r\n[1,2]D,68\r\n[2,2]E,69\r\n[3,2]F,70\r\n"
                L"[1,3]G,71\r\n[2,3]H,72\r\n[3,3]I,73\r\n");
        OpenTwoPrograms(EDITOR_WINDOW);
    }
    ~ModeScene() override { Speech = {}; }

    static void GiveEditorAMap() {
        PutData(L"data_EDITOR.EXE.ini",
                L"[1,1]X,88\r\n[2,1]Y,89\r\n[1,2]Z,90\r\n[2,2]W,87\r\n"
                L"[1,3]U,85\r\n[2,3]V,86\r\n");
    }
    static void StandOn(int32_t nColumn, int32_t nRow) {
        Cursor.nColumn = nColumn;
        Cursor.nRow = nRow;
    }
    /// Brings the program into a mode, in the editor's map for the application mode. The cursor
    /// stands on H (there on W), C is remembered.
    static void BeIn(Mode nMode) {
        Modes.Set(nMode);
        if (nMode == Mode::Application) CheckForegroundApp(true);
        Cursor.nLastColumn = 3;
        Cursor.nLastRow = 1;
        StandOn(2, nMode == Mode::Application ? 2 : 3);
        SetHi(Cursor.nColumn, Cursor.nRow);
    }
    static void RunScan() {
        forms::FrmMain->ScanTimer.Interval = 60000;
        forms::FrmMain->ScanTimer.Enabled = true;
    }
    /// The log's lines since it was begun, without their times.
    static Lines LoggedLines() {
        Lines All;
        std::wstring strRest = EventLog.strLog;
        constexpr size_t TIME = 9;  // "01:59:52 "
        for (auto n = strRest.find(L"\r\n"); n != std::wstring::npos; n = strRest.find(L"\r\n")) {
            strRest.erase(0, n + 2);
            All.push_back(strRest.substr(0, strRest.find(L"\r\n")).substr(TIME));
        }
        return All;
    }
    static int ModeFlags() {
        return Modes.bSelectMode * 1 + Modes.bScanMode * 2 + Modes.bArrowMode * 4 +
               Modes.bAppMode * 8;
    }
    std::shared_ptr<EngineState> pEngine;
};

}  // namespace taviro
