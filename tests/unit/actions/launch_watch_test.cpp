// SPDX-License-Identifier: MIT
// Which window is in front after a launch.
#include "actions/launch_watch.h"

#include <functional>

#include "actions/command_action.h"
#include "actions/launching.h"
#include "platform/windows_and_processes.h"
#include "settings/comfort.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

constexpr platform::WindowHandle LETTER = 10;
constexpr platform::WindowHandle MAIL = 11;
constexpr platform::WindowHandle PAINTING = 12;
constexpr uint32_t A_SECOND = 1000;

class LaunchWatchTest : public ActionTest {
  protected:
    LaunchWatchTest() {
        Comfort.bLaunchedInFront = true;
        Desktop.Windows = {{.hWindow = MAIL, .strTitle = L"Mail", .nThread = 1},
                           {.hWindow = LETTER, .strTitle = L"Letter", .nThread = 2}};
        Desktop.hForeground = LETTER;
        Desktop.Programs[L"paint"] = {
            .Window = {.hWindow = PAINTING, .strTitle = L"Painting", .nThread = 3},
            .nOpensAfterMs = A_SECOND};
    }
    ~LaunchWatchTest() override { Comfort = {}; }

    static void OpensBehind() { Desktop.Programs[L"paint"].bStaysBehind = true; }

    /// Ticks of the poll loop for so long.
    static void TickFor(uint32_t nMilliseconds) {
        for (uint32_t n = 0; n < nMilliseconds; n += 100) {
            Desktop.RunFor(100);
            CheckLaunch();
        }
    }
    static Effects ForegroundEffects() {
        Effects Found;
        for (const std::string& strText : Desktop.TakeEffects()) {
            if (strText.starts_with("foreground")) Found.push_back(strText);
        }
        return Found;
    }
};

// The system lets only those come to the front whom somebody in front has let.
TEST_F(LaunchWatchTest, StartedProgram_ComesToTheFrontByItself_WhateverComfortSays) {
    for (const bool bComfort : {false, true}) {
        Comfort.bLaunchedInFront = bComfort;
        Desktop.hForeground = LETTER;
        Launch(L"paint", L"");
        TickFor(3 * A_SECOND);
        EXPECT_EQ(Desktop.hForeground, PAINTING);
        EXPECT_EQ(ForegroundEffects(), Effects{});
        Desktop.Windows.pop_back();
    }
}

TEST_F(LaunchWatchTest, Window_IsBroughtToTheFront_WhenItOpensBehind) {
    OpensBehind();
    Launch(L"paint", L"");
    TickFor(3 * A_SECOND);
    EXPECT_EQ(Desktop.hForeground, PAINTING);
    EXPECT_EQ(ForegroundEffects(), Effects{"foreground \"Painting\""});
    Desktop.hForeground = MAIL;
    TickFor(20 * A_SECOND);
    EXPECT_EQ(Desktop.hForeground, MAIL) << "once, and never again";
}

TEST_F(LaunchWatchTest, Window_StaysBehind_ByTheRulesAlone) {
    Comfort.bLaunchedInFront = false;
    OpensBehind();
    Launch(L"paint", L"");
    TickFor(20 * A_SECOND);
    EXPECT_EQ(Desktop.hForeground, LETTER);
}

TEST_F(LaunchWatchTest, Window_StaysBehind_WhenTheUserHasGoneOn) {
    const std::pair<const char*, std::function<void()>> ACTS[] = {
        {"a key of the keyboard", [] { Desktop.PhysicalKey('A', true); }},
        {"another action", [] { CommandAction(CELL_UNDER_CURSOR); }},
        {"another window, and back",
         [] {
             Desktop.hForeground = MAIL;
             TickFor(100);
             Desktop.hForeground = LETTER;
         }},
        {"ten seconds of waiting", [] { TickFor(11 * A_SECOND); }},
    };
    CommonMap.Cell(1, 1)->Code = 65;
    const auto Late = Desktop.Programs.extract(L"paint").mapped().Window;
    for (const auto& [szName, Act] : ACTS) {
        SCOPED_TRACE(szName);
        Desktop.hForeground = LETTER;
        Launch(L"paint", L"");
        TickFor(500);
        Act();
        Desktop.Windows.push_back(Late);
        TickFor(2 * A_SECOND);
        EXPECT_EQ(Desktop.hForeground, LETTER);
        Desktop.Windows.pop_back();
    }
}

// Who drives the map with the keyboard lets the key go that launched the program.
TEST_F(LaunchWatchTest, Window_IsBroughtToTheFront_ThoughTheKeyThatLaunchedItIsLetGo) {
    OpensBehind();
    Launch(L"paint", L"");
    TickFor(200);
    Desktop.PhysicalKey(13, false);
    TickFor(3 * A_SECOND);
    EXPECT_EQ(Desktop.hForeground, PAINTING);
}

TEST_F(LaunchWatchTest, NoWindow_IsTaken_ThatWasThereBefore) {
    Launch(L"no window", L"");
    TickFor(20 * A_SECOND);
    EXPECT_EQ(Desktop.hForeground, LETTER);
    EXPECT_EQ(ForegroundEffects(), Effects{});
}

TEST_F(LaunchWatchTest, NothingIsWaitedFor_WhenTheLaunchFails) {
    Desktop.nShellResult = 2;
    Launch(L"paint", L"");
    EXPECT_FALSE(LaunchWatch.bWaits);
}

class LaunchInTheProgram : public ProgramTest {};

TEST_F(LaunchInTheProgram, Window_IsBroughtToTheFront_WhileTheStickRests) {
    PutData(L"data.ini", L"[1,1]a,0,paint\r\n");
    Start();
    Comfort.bLaunchedInFront = true;
    Desktop.Windows = {{.hWindow = LETTER, .strTitle = L"Letter", .nThread = 2}};
    Desktop.hForeground = LETTER;
    Desktop.Programs[L"paint"] = {
        .Window = {.hWindow = PAINTING, .strTitle = L"Painting", .nThread = 3},
        .bStaysBehind = true};
    PressButton(0);
    Ticks(1);
    ReleaseButtons();
    Ticks(20);
    EXPECT_EQ(Desktop.hForeground, PAINTING);
}

// The time that a program may need to come to the front by itself.
TEST_F(LaunchWatchTest, Window_IsGivenAMoment_BeforeItIsBroughtForward) {
    OpensBehind();
    Desktop.Programs[L"paint"].nOpensAfterMs = 0;
    Launch(L"paint", L"");
    TickFor(300);
    EXPECT_EQ(Desktop.hForeground, LETTER);
    TickFor(200);
    EXPECT_EQ(Desktop.hForeground, PAINTING);
}

}  // namespace
}  // namespace taviro
