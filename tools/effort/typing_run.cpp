// SPDX-License-Identifier: MIT
#include "tools/effort/typing_run.h"

#include "platform/headless/desktop.h"
#include "platform/headless/user.h"
#include "state/cursor_state.h"
#include "tools/effort/measured_run.h"
#include "tools/effort/typing_cells.h"

namespace taviro::effort {

namespace {

using platform::headless::Desktop;
using platform::headless::PushButton;

constexpr int LONGEST_SCAN_LOOKS = 8000;  // looks: a scan that takes longer goes astray

std::string SettingsFor(const TypingWay& Way) {
    const auto Line = [](const char* szName, bool bOn) {
        return std::string(szName) + (bOn ? "=1\r\n" : "=0\r\n");
    };
    return "[Info]\r\n" + Line("RowWrap", Way.Edges.bRow) + Line("ColumnWrap", Way.Edges.bColumn) +
           Line("TriggerColumnReset", Way.bResets) + Line("TriggerRowReset", Way.bResets) +
           Line("ScanMode", Way.bScans);
}

CellPlace Highlighted() {
    return {Cursor.nColumn, Cursor.nRow};
}

class User {
  public:
    User(const MapGrid& Grid, const TypingWay& Way) : m_Way(Way), m_Routes(Grid, Way.Edges) {}

    void Choose(CellPlace Wanted);
    TypingCost Spent;

  private:
    void Tilt(Step Next);
    void WaitForScan(CellPlace Wanted);

    const TypingWay& m_Way;
    Routes m_Routes;
};

void User::Tilt(Step Next) {
    platform::headless::NudgeStick(Next.nRight, Next.nDown);
    ++Spent.nMoves;
}

void User::WaitForScan(CellPlace Wanted) {
    PushButton(ACTION_BUTTON);
    ++Spent.nPresses;
    CellPlace Seen = Highlighted();
    for (int n = 0; n < LONGEST_SCAN_LOOKS && !(Highlighted() == Wanted); ++n) {
        platform::headless::Ticks();
        if (!(Highlighted() == Seen)) ++Spent.nMoves;
        Seen = Highlighted();
    }
}

void User::Choose(CellPlace Wanted) {
    if (m_Way.bScans) {
        WaitForScan(Wanted);
    } else {
        for (const Step Next : m_Routes.Way(Highlighted(), Wanted))
            Tilt(Next);
    }
    if (!(Highlighted() == Wanted)) Spent.strError = "the highlight does not reach a cell";
    PushButton(ACTION_BUTTON);
    ++Spent.nPresses;
}

}  // namespace

TypingCost TypeText(std::string_view strMapFile, const std::wstring& strText,
                    const TypingWay& Way) {
    PrepareDesktop(strMapFile, SettingsFor(Way));
    OpenProgram();
    // Pressing all keys to find the cells must not disturb the program's own keyboard hook.
    const auto pHook = Desktop.Keyboard.pHook;
    const auto hHook = Desktop.Keyboard.hHook;
    const TypingCells Cells(CommonMap);
    Desktop.Keyboard.pHook = pHook;
    Desktop.Keyboard.hHook = hHook;

    User Typist(CommonMap, Way);
    const uint32_t nStart = Desktop.nNow;
    for (int n = 0; Way.bScans && n < 2; ++n)
        PushButton(MODE_BUTTON);  // past the arrow mode to the scan mode
    const std::wstring strWanted = Cells.Typeable(strText);
    for (const wchar_t nCharacter : strWanted) {
        for (const CellPlace Place : Cells.For(nCharacter))
            Typist.Choose(Place);
        if (!Typist.Spent.strError.empty()) break;
    }
    Typist.Spent.nMilliseconds = Desktop.nNow - nStart;
    Typist.Spent.nCharacters = strWanted.size();
    if (Typist.Spent.strError.empty()) Typist.Spent.strError = ArrivalError(strWanted);
    CloseProgram();
    return Typist.Spent;
}

}  // namespace taviro::effort
