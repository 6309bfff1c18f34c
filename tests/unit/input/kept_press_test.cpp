// SPDX-License-Identifier: MIT
// Presses that begin and end while the program waits, with Watch=1 and without.
#include "input/kept_press.h"

#include <gtest/gtest.h>
#include <vector>

#include "core/cursor_movement.h"
#include "core/poll_loop.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

struct PressCase {
    const char* szName;
    bool bWatch;
    bool bHeldBefore;
    std::vector<uint32_t>
        Presses;  ///< when they begin, ms after the wait's begin; each lasts 130 ms
    const wchar_t* szTyped;
};

constexpr uint32_t PRESS_MS = 130;
constexpr uint32_t DELAY_MS = 1000;

class KeptPressTest : public ProgramTest, public ::testing::WithParamInterface<PressCase> {
  protected:
    static void At(uint32_t nTime, uint32_t nButtons) {
        Desktop.Meanwhile(nTime, [nButtons] { Desktop.Joystick.nButtons = nButtons; });
    }
};

TEST_P(KeptPressTest, Press_ActsAfterTheScanDelay) {
    const PressCase& Case = GetParam();
    PutData(L"data.ini", L"[1,1]A,65\r\n[2,1]B,66\r\n");
    PutData(L"setting.ini", L"[Info]\r\nScanDelay=1000\r\n");
    PutData(L"comfort.ini", Case.bWatch ? L"[Stick]\r\nWatch=1\r\n" : L"");
    Start();
    if (Case.bHeldBefore) PressButton(0);
    Ticks(2);
    Desktop.Keyboard.strTyped.clear();  // what the held button did when it was pressed
    const uint32_t nStart = Desktop.nNow;
    if (Case.bHeldBefore && !Case.Presses.empty()) At(nStart + 50, 0);
    for (const uint32_t nPress : Case.Presses) {
        At(nStart + nPress, 1);
        At(nStart + nPress + PRESS_MS, 0);
    }
    ScanTimer_Timer();
    EXPECT_EQ(Desktop.nNow, nStart + DELAY_MS);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"") << "not during the wait";
    Ticks(4);
    EXPECT_EQ(Desktop.Keyboard.strTyped, Case.szTyped);
}

INSTANTIATE_TEST_SUITE_P(
    All, KeptPressTest,
    ::testing::Values(PressCase{"ShortPress", true, false, {220}, L"a"},
                      PressCase{"TwoPresses_ActOnce", true, false, {220, 620}, L"a"},
                      PressCase{"ReleasedAndPressedAgain", true, true, {320}, L"a"},
                      PressCase{"HeldThroughout_DoesNothing", true, true, {}, L""},
                      PressCase{"NoPress", true, false, {}, L""},
                      PressCase{"PressThatLastsOn_ActsOnce", true, false, {950}, L"a"},
                      PressCase{"WithoutWatch_TheLetter", false, false, {220}, L""}),
    [](const auto& Info) { return std::string(Info.param.szName); });

}  // namespace
}  // namespace taviro
