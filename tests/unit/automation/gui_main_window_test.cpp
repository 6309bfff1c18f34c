// SPDX-License-Identifier: MIT
// What scripts do to Taviro's own window, and what they may not do.
#include <gtest/gtest.h>

#include "dialogs/about_form.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "tests/unit/automation/gui_fixture.h"

namespace taviro {
namespace {

using forms::FormState;
using forms::FrmMain;

class GuiMainWindow : public GuiTest {
  protected:
    static std::string Placing() {
        return "SetWindowPos the main window topmost at (0, 0) " +
               std::to_string(FrmMain->nScaleWidth + 5) + " x " +
               std::to_string(FrmMain->nScaleHeight + 25) + " flags 16";
    }
    static Effects GivingTheFocusBack() {
        return {"attach thread 501 to 501", "foreground \"Text.txt\"",
                "detach thread 501 from 501"};
    }
};

TEST_F(GuiMainWindow, ShowDebugWin_PlacesShowsAndGivesTheFocusBack) {
    FrmMain->Visible = false;
    Desktop.TakeEffects();
    ASSERT_GT(FrmMain->nScaleWidth, 0);
    EXPECT_EQ(Gui.ShowDebugWin(), CallOutcome::Done);
    Effects Expected{Placing(), "main window shown"};
    for (const std::string& strEffect : GivingTheFocusBack())
        Expected.push_back(strEffect);
    EXPECT_EQ(Desktop.TakeEffects(), Expected);
}

TEST_F(GuiMainWindow, ShowDebugWin_RestoresBeforePlacing_WhenMinimised) {
    EXPECT_EQ(Gui.MinDebugWin(), CallOutcome::Done);
    Desktop.TakeEffects();
    EXPECT_EQ(Gui.ShowDebugWin(), CallOutcome::Done);
    Effects Expected{"main window restored", Placing()};
    for (const std::string& strEffect : GivingTheFocusBack())
        Expected.push_back(strEffect);
    EXPECT_EQ(Desktop.TakeEffects(), Expected);
    EXPECT_EQ(FrmMain->WindowState.Get(), FormState::Normal);
}

TEST_F(GuiMainWindow, ShowDebugWin_LeavesTheFocus_WhenNoWindowIsActiveOrItCannotBeHadBack) {
    Desktop.hForeground = 0;
    Desktop.Failures.Always("AttachInput");
    EXPECT_EQ(Gui.ShowDebugWin(), CallOutcome::Done);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Placing()});
}

TEST_F(GuiMainWindow, MinDebugWin_MinimisesOnce) {
    EXPECT_EQ(Gui.MinDebugWin(), CallOutcome::Done);
    EXPECT_EQ(Gui.MinDebugWin(), CallOutcome::Done);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"main window minimised"});
    EXPECT_EQ(FrmMain->WindowState.Get(), FormState::Minimised);
}

TEST_F(GuiMainWindow, HideDebugWin_HidesAndTheProgramGoesOn) {
    EXPECT_EQ(Gui.HideDebugWin(), CallOutcome::Done);
    EXPECT_EQ(Gui.HideDebugWin(), CallOutcome::Done);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"main window hidden"});
    EXPECT_TRUE(FrmMain->IsLoaded());
    EXPECT_TRUE(FrmMain->Timer1.Enabled);
}

TEST_F(GuiMainWindow, SetCaption_Captions) {
    EXPECT_EQ(Gui.SetCaption(L"Žluťoučký kůň"), CallOutcome::Done);
    EXPECT_EQ(Gui.SetCaption(L""), CallOutcome::Done);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"caption Žluťoučký kůň", "caption "}));
}

TEST_F(GuiMainWindow, LogDebugWin_LetsMessagesRunAndLogsNothing) {
    bool bRan = false;
    Desktop.At(Desktop.nNow, [&] { bRan = true; });
    EXPECT_EQ(Gui.LogDebugWin(L"text"), CallOutcome::Done);
    EXPECT_TRUE(bRan);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(GuiMainWindow, LogDebugWin_LeavesMessagesToTheWait_WhenOneRuns) {
    bool bRanInside = false;
    const auto nOutcome = WhileWaiting([&] {
        Desktop.At(Desktop.nNow, [&] { bRanInside = true; });
        const CallOutcome nMade = Gui.LogDebugWin(L"text");
        EXPECT_FALSE(bRanInside);
        return nMade;
    });
    EXPECT_EQ(nOutcome, CallOutcome::Done);
    EXPECT_TRUE(bRanInside);
}

TEST_F(GuiMainWindow, Quit_ShutsDownAndSaves) {
    objSetting.Volume(77);
    EXPECT_EQ(Gui.Quit(), CallOutcome::Done);
    EXPECT_FALSE(FrmMain->IsLoaded());
    EXPECT_FALSE(FrmMain->Timer1.Enabled);
    EXPECT_EQ(Desktop.TakeEffects().back(), "main window hidden");
    EXPECT_EQ(Desktop.Keyboard.pHook, nullptr);
    EXPECT_NE(DataText(L"setting.ini").find(L"Volume=77"), std::wstring::npos);
}

TEST_F(GuiMainWindow, Quit_TellsTheView_WhenTheWindowIsHidden) {
    EXPECT_EQ(Gui.HideDebugWin(), CallOutcome::Done);
    std::vector<forms::Aspect> Told;
    FrmMain->OnShowChange = [&](forms::Control& Changed, forms::Aspect nAspect) {
        if (FrmMain->IsFrame(Changed) && !FrmMain->IsLoaded()) Told.push_back(nAspect);
    };
    EXPECT_EQ(Gui.Quit(), CallOutcome::Done);
    EXPECT_EQ(Told, std::vector<forms::Aspect>{forms::Aspect::Unloaded})
        << "or the window would stay, and the program with it";
}

/// A call with arguments that would have an effect, by its name.
struct Call {
    const char* szName;
    CallOutcome (*pMake)(const GUI& Gui);
    bool bDisturbs;  ///< refused while the program is in the middle of something
};
int32_t nIgnored = 0;
const std::vector<Call> ALL_CALLS = {
    {"ShowDebugWin", [](const GUI& Gui) { return Gui.ShowDebugWin(); }, false},
    {"MinDebugWin", [](const GUI& Gui) { return Gui.MinDebugWin(); }, true},
    {"HideDebugWin", [](const GUI& Gui) { return Gui.HideDebugWin(); }, false},
    {"SetCaption", [](const GUI& Gui) { return Gui.SetCaption(L"x"); }, false},
    {"LogDebugWin", [](const GUI& Gui) { return Gui.LogDebugWin(L"x"); }, false},
    {"ClickOnWindow",
     [](const GUI& Gui) { return Gui.ClickOnWindow(L"Otázka", L"Button", nIgnored); }, true},
    {"VBS_FindWindow", [](const GUI& Gui) { return Gui.VBS_FindWindow(L"Otázka", L"", nIgnored); },
     false},
    {"VBS_GetTitle",
     [](const GUI& Gui) {
         std::wstring strTitle;
         return Gui.VBS_GetTitle(EDITOR, strTitle);
     },
     false},
    {"VBS_UpdateWindow", [](const GUI& Gui) { return Gui.VBS_UpdateWindow(EDITOR); }, false},
    {"VBS_UpdateFrame", [](const GUI& Gui) { return Gui.VBS_UpdateFrame(1, 2, 3, 4); }, false},
    {"VBS_GetChildNum", [](const GUI& Gui) { return Gui.VBS_GetChildNum(EDITOR, nIgnored); },
     false},
    {"VBS_GetChild", [](const GUI& Gui) { return Gui.VBS_GetChild(DIALOG, L"Button", nIgnored); },
     false},
    {"KeyPress", [](const GUI& Gui) { return Gui.KeyPress(30, 16); }, true},
    {"Quit", [](const GUI& Gui) { return Gui.Quit(); }, true},
};

TEST_F(GuiMainWindow, DisturbingCalls_AreRefusedWithoutEffect_WhenTheProgramWaits) {
    for (const Call& Tried : ALL_CALLS) {
        SCOPED_TRACE(Tried.szName);
        Desktop.TakeEffects();
        const CallOutcome nOutcome = WhileWaiting([&] { return Tried.pMake(Gui); });
        EXPECT_EQ(nOutcome, Tried.bDisturbs ? CallOutcome::Busy : CallOutcome::Done);
        if (!Tried.bDisturbs) continue;
        EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    }
    EXPECT_TRUE(FrmMain->IsLoaded());
}

TEST_F(GuiMainWindow, DisturbingCalls_AreRefused_WhenADialogIsModal) {
    std::vector<std::string> Refused;
    Desktop.WhileModal = [&](forms::Form& Shown) {
        for (const Call& Tried : ALL_CALLS) {
            if (Tried.pMake(Gui) == CallOutcome::Busy) Refused.emplace_back(Tried.szName);
        }
        Shown.Unload();
    };
    FrmMain->mnuAbout.Click();
    EXPECT_EQ(Refused,
              (std::vector<std::string>{"MinDebugWin", "ClickOnWindow", "KeyPress", "Quit"}));
    EXPECT_EQ(Gui.Quit(), CallOutcome::Done) << "the dialog is closed";
}

TEST_F(GuiMainWindow, EveryCall_IsRefusedWithoutEffect_WhenTheMainWindowIsGone) {
    EXPECT_EQ(Gui.Quit(), CallOutcome::Done);
    Desktop.TakeEffects();
    for (const Call& Tried : ALL_CALLS) {
        SCOPED_TRACE(Tried.szName);
        EXPECT_EQ(Tried.pMake(Gui), CallOutcome::Ended);
    }
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    EXPECT_FALSE(FrmMain->IsLoaded());
}

TEST_F(GuiMainWindow, Results_AreNoneAtAll_WhenTheMainWindowIsGone) {
    Window(EDITOR).nAccessibleChildren = 7;
    EXPECT_EQ(Gui.Quit(), CallOutcome::Done);
    int32_t nClicked = 9, hFound = 9, nChildren = 9, hChild = 9;
    std::wstring strTitle = L"kept";
    EXPECT_EQ(Gui.ClickOnWindow(L"Otázka", L"Button", nClicked), CallOutcome::Ended);
    EXPECT_EQ(Gui.VBS_FindWindow(L"Otázka", L"", hFound), CallOutcome::Ended);
    EXPECT_EQ(Gui.VBS_GetTitle(EDITOR, strTitle), CallOutcome::Ended);
    EXPECT_EQ(Gui.VBS_GetChildNum(EDITOR, nChildren), CallOutcome::Ended);
    EXPECT_EQ(Gui.VBS_GetChild(DIALOG, L"Button", hChild), CallOutcome::Ended);
    EXPECT_EQ(nClicked, 0);
    EXPECT_EQ(hFound, 0);
    EXPECT_EQ(strTitle, L"");
    EXPECT_EQ(nChildren, 0);
    EXPECT_EQ(hChild, 0);
}

TEST_F(GuiMainWindow, EveryCall_IsRefused_WhenTheMainWindowIsUnloading) {
    // The shutdown lets messages run so that the reader's program can finish.
    Speech.objSpeechReader = platform::headless::MakeObject([](auto...) { return true; });
    std::vector<CallOutcome> Outcomes;
    Desktop.At(Desktop.nNow, [&] {
        for (const Call& Tried : ALL_CALLS)
            Outcomes.push_back(Tried.pMake(Gui));
    });
    EXPECT_EQ(Gui.Quit(), CallOutcome::Done);
    EXPECT_EQ(Outcomes, std::vector<CallOutcome>(ALL_CALLS.size(), CallOutcome::Ended));
}

TEST_F(GuiMainWindow, EveryCall_IsRefusedAndNothingIsLoaded_BeforeTheStart) {
    StartAnew();
    for (const Call& Tried : ALL_CALLS) {
        SCOPED_TRACE(Tried.szName);
        EXPECT_EQ(Tried.pMake(Gui), CallOutcome::Ended);
    }
    EXPECT_FALSE(FrmMain->IsLoaded());
}

}  // namespace
}  // namespace taviro
