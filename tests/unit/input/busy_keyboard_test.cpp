// SPDX-License-Identifier: MIT
// The keyboard and the external-control box while the program is busy: no key waits for it, and
// what drives the map acts afterwards.
#include <gtest/gtest.h>
#include <memory>

#include "core/cursor_movement.h"
#include "feedback/speech.h"
#include "platform/automation.h"
#include "platform/messages.h"
#include "state/cursor_state.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

constexpr uint8_t CHOOSES = 13;
constexpr uint8_t STEPS = 39;
constexpr uint8_t TYPES = 'M';
constexpr uint32_t BUSY_MS = 2000;

void TapKey(uint8_t nVk) {
    Desktop.PhysicalKey(nVk, true);
    Desktop.PhysicalKey(nVk, false);
}

class BusyKeyboardTest : public ProgramTest {
  public:
    BusyKeyboardTest() {
        PutData(L"data.ini", L"[1,1]A,65\r\n[2,1]B,66\r\n[3,1]C,67\r\n[4,1]D,68\r\n");
        pEngine = InstallEngine();
        Desktop.Joystick.bPresent = false;
        Start();
    }
    ~BusyKeyboardTest() override { Speech = {}; }

    /// What the program says next keeps it busy.
    void SpeakSlowly() const {
        pEngine->OnSpeak = [bFirst = true](const AutomationArgument&,
                                           const AutomationArgument&) mutable {
            if (std::exchange(bFirst, false)) Desktop.Pass(BUSY_MS);
        };
    }
    void SayAWord() const {
        SpeakSlowly();
        SpeakIt(L"slovo");
    }
    void WaitInAScanStep() const {
        objSetting.ScanDelay(static_cast<int32_t>(BUSY_MS));
        ScanTimer_Timer();
    }

    std::shared_ptr<EngineState> pEngine;
};

struct BusyCase {
    const char* szName;
    void (BusyKeyboardTest::*Run)() const;
};

class BusyKeyboardCase : public BusyKeyboardTest, public ::testing::WithParamInterface<BusyCase> {};

TEST_P(BusyKeyboardCase, OtherKeys_PassAtOnce_AndArrowsActAfterwards) {
    const uint32_t nStart = Desktop.nNow;
    std::wstring strExpected;
    for (const uint32_t nAfter : {1U, 300U, BUSY_MS - 1}) {
        Desktop.Meanwhile(nStart + nAfter, [&, nAfter] {
            TapKey(TYPES);
            TapKey(STEPS);
            EXPECT_EQ(Desktop.Keyboard.strTyped, strExpected += L'm');
            EXPECT_EQ(Desktop.nNow, nStart + nAfter);
            EXPECT_EQ(Cursor.nColumn, 1) << "the program is busy";
        });
    }
    (this->*GetParam().Run)();
    EXPECT_GE(Desktop.nNow, nStart + BUSY_MS);
    EXPECT_EQ(strExpected, L"mmm");
    EXPECT_EQ(Desktop.Keyboard.Received.size(), 3U) << "no arrow reached the program in front";
    EXPECT_EQ(Cursor.nColumn, 1);
    Desktop.RunDue();
    EXPECT_EQ(Cursor.nColumn, 4) << "every arrow acts afterwards";
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
}

INSTANTIATE_TEST_SUITE_P(All, BusyKeyboardCase,
                         ::testing::Values(BusyCase{"ScanDelay",
                                                    &BusyKeyboardTest::WaitInAScanStep},
                                           BusyCase{"SlowEngine", &BusyKeyboardTest::SayAWord}),
                         [](const auto& Info) { return std::string(Info.param.szName); });

TEST_F(BusyKeyboardTest, Enter_RunsItsCellAfterwards_WithEverythingThatTheCellCalls) {
    SpeakSlowly();
    std::vector<std::string> Said;
    Desktop.Meanwhile(Desktop.nNow + 500, [] { TapKey(CHOOSES); });
    SpeakIt(L"slovo");
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"");
    pEngine->OnSpeak = [&](const AutomationArgument& Text, const AutomationArgument&) {
        Said.push_back(ArgumentText(Text));
    };
    Desktop.RunDue();
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"a");
    EXPECT_EQ(Said.size(), 1U) << "the engine can be called: the key's own message is long over";
}

// Another program's message is still under way when its text arrives.
TEST_F(BusyKeyboardTest, ControlBox_CanSpeakAndRunCells_ThoughItsTextsCameByMessage) {
    int nSpoken = 0;
    pEngine->OnSpeak = [&](const AutomationArgument&, const AutomationArgument&) { ++nSpoken; };
    Desktop.WriteIntoBox(L"right");
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(nSpoken, 1);
    Desktop.WriteIntoBox(L"enter");
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"b");
    EXPECT_EQ(nSpoken, 2);
    EXPECT_EQ(forms::FrmMain->txtCmd.Text.Get(), L"");
}

TEST_F(BusyKeyboardTest, ControlBox_CarriesOutEachTextOnceInOrder_WhenTheProgramWasBusy) {
    SpeakSlowly();
    Desktop.Meanwhile(Desktop.nNow + 100, [] {
        for (const wchar_t* szText : {L"right", L"right", L"enter", L"left", L"enter"})
            Desktop.WriteIntoBox(szText);
        EXPECT_EQ(Cursor.nColumn, 1);
    });
    SpeakIt(L"slovo");
    EXPECT_EQ(Cursor.nColumn, 1);
    Desktop.RunDue();
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"cb");
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(forms::FrmMain->txtCmd.Text.Get(), L"");
}

}  // namespace
}  // namespace taviro
