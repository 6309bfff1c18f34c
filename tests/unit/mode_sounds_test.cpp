// SPDX-License-Identifier: MIT
// What is heard on entering selection and application mode: the mode's sound to its end, then the
// cell.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/mode_switching.h"
#include "feedback/speech.h"
#include "state/cursor_state.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

using Effects = std::vector<std::string>;

const std::wstring SOUNDS = L"C:\\Program Files\\Taviro\\sound\\";

// The cursor stands on cell "A" of the common map, the status line reads "Stav".
class ModeSoundsTest : public ProgramTest {
  protected:
    ModeSoundsTest() {
        PrepareBare();
        InstallEngine();
        PrepareVoice();
        FillMap(CommonMap, {L"B C", L"D A"});
        FillMap(AppMap, {L"X Y", L"Z W"});
        Cursor.nColumn = 2;
        Cursor.nRow = 2;
        forms::FrmMain->Label1.Caption = L"Stav";
        Desktop.TakeEffects();
    }
    ~ModeSoundsTest() override { Speech = {}; }

    static void PutSound(const std::wstring& strName) {
        Desktop.Files.Put(SOUNDS + strName + L".wav", "RIFF");
    }
    static std::string Played(const std::string& strName) {
        return "sound " + platform::ToUtf8(SOUNDS) + strName + ".wav";
    }
    /// Time between the first and the second effect, ms.
    static uint32_t Between() {
        return Desktop.Transcript.at(1).nTime - Desktop.Transcript[0].nTime;
    }
};

TEST_F(ModeSoundsTest, EnterSelectMode_PlaysModeToItsEndThenCell_WhenBothSoundsExist) {
    PutSound(L"mode_select");
    PutSound(L"A");
    Desktop.nSoundLength = 640;
    EnterSelectMode();
    EXPECT_GE(Between(), 640U);
    EXPECT_LT(Between(), 700U);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_select"), Played("A")}));
}

TEST_F(ModeSoundsTest, EnterSelectMode_DoesNotWaitForCellsSound_WhenItPlays) {
    PutSound(L"mode_select");
    PutSound(L"A");
    EnterSelectMode();
    EXPECT_EQ(Desktop.nNow, Desktop.Transcript.at(1).nTime);
}

TEST_F(ModeSoundsTest, EnterSelectMode_SpeaksCell_WhenItHasNoSound) {
    PutSound(L"mode_select");
    EnterSelectMode();
    EXPECT_GE(Between(), 300U);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_select"), Said("A")}));
}

TEST_F(ModeSoundsTest, EnterSelectMode_SpeaksModeAndCell_WhenModeSoundIsMissing) {
    PutSound(L"A");
    EnterSelectMode();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("výběr A")});
}

TEST_F(ModeSoundsTest, EnterSelectMode_ReadsCommonMap_WhileApplicationMapIsShown) {
    Foreground.bAppMapShown = true;
    EnterSelectMode();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("výběr A")});
}

TEST_F(ModeSoundsTest, EnterSelectMode_SpeaksModeAlone_WhenCursorIsOutsideTheGrid) {
    Cursor.nColumn = 41;
    EnterSelectMode();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("výběr ")});
}

TEST_F(ModeSoundsTest, EnterSelectMode_LetsMessagesRun_WhileSoundPlays) {
    PutSound(L"mode_select");
    Desktop.At(Desktop.nNow + 150, [] { Desktop.Record("message"); });
    EnterSelectMode();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_select"), "message", Said("A")}));
}

TEST_F(ModeSoundsTest, EnterSelectMode_LetsMessagesRunOnce_WhenSoundIsOverAtOnce) {
    PutSound(L"mode_select");
    Desktop.nSoundLength = 0;
    Desktop.At(Desktop.nNow, [] { Desktop.Record("message"); });
    EnterSelectMode();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_select"), "message", Said("A")}));
}

TEST_F(ModeSoundsTest, EnterAppMode_PlaysSoundOfStatusLine_WhenItExists) {
    PutSound(L"mode_app");
    PutSound(L"Stav");
    PutSound(L"A");
    Desktop.nSoundLength = 640;
    EnterAppMode();
    EXPECT_GE(Between(), 640U);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_app"), Played("Stav")}));
}

TEST_F(ModeSoundsTest, EnterAppMode_SpeaksCommonMapsCell_WhenStatusLineHasNoSound) {
    PutSound(L"mode_app");
    PutSound(L"A");
    Foreground.bAppMapShown = true;
    EnterAppMode();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_app"), Said("A")}));
}

TEST_F(ModeSoundsTest, EnterAppMode_SpeaksStatusLine_WhenModeSoundIsMissing) {
    PutSound(L"Stav");
    EnterAppMode();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("aplikace Stav")});
}

TEST_F(ModeSoundsTest, EnterAppMode_LetsMessagesRun_WhileSoundPlays) {
    PutSound(L"mode_app");
    Desktop.At(Desktop.nNow + 150, [] { Desktop.Record("message"); });
    EnterAppMode();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_app"), "message", Said("A")}));
}

}  // namespace
}  // namespace taviro
