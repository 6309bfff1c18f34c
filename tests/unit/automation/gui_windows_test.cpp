// SPDX-License-Identifier: MIT
// What scripts do to windows of other programs.
#include <gtest/gtest.h>

#include "forms/main_form.h"
#include "tests/unit/automation/gui_fixture.h"

namespace taviro {
namespace {

class GuiWindows : public GuiTest {};

TEST_F(GuiWindows, ClickOnWindow_ClicksOnTheFirstChildOfTheClass) {
    Desktop.MouseAcceleration = {0, 0, 0};
    EXPECT_EQ(Click(L"Otázka", L"button"), 1);
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"pointer (100, 200)", "pointer (120, 220)",
                       "SendInput: mouse (2, 2) flags 1, mouse (0, 0) flags 2, "
                       "mouse (0, 0) flags 4"}));
}

TEST_F(GuiWindows, ClickOnWindow_RestoresTheMouseAcceleration) {
    EXPECT_EQ(Click(L"Otázka", L"Button"), 1);
    const Effects Done = Desktop.TakeEffects();
    ASSERT_EQ(Done.size(), 5U);
    EXPECT_EQ(Done[2], "mouse acceleration 0 0 0");
    EXPECT_EQ(Done[4], "mouse acceleration 6 10 1");
}

TEST_F(GuiWindows, ClickOnWindow_DoesNothing_WhenNoWindowHasTheTitle) {
    EXPECT_EQ(Click(L"Odpověď", L"Button"), 0);
    EXPECT_EQ(Click(L"", L"Button"), 0) << "every window has a title, so none has an empty one";
    EXPECT_EQ(Click(L"Ano", L"Button"), 0) << "only top-level windows count";
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(GuiWindows, ClickOnWindow_OnlyMovesThePointer_WhenNoChildIsOfTheClass) {
    for (const wchar_t* szName : {L"Edit", L"Butto", L"Ano", L""}) {
        EXPECT_EQ(Click(L"Otázka", szName), 0);
        EXPECT_EQ(Desktop.TakeEffects(), Effects{"pointer (100, 200)"});
    }
}

TEST_F(GuiWindows, ClickOnWindow_PassesOverChildrenThatHaveGone) {
    Window(62).bGone = true;
    EXPECT_EQ(Click(L"Otázka", L"Button"), 1);
    EXPECT_EQ(Desktop.TakeEffects()[1], "pointer (190, 220)");
    Window(63).bGone = true;
    EXPECT_EQ(Click(L"Otázka", L"Button"), 0);
    EXPECT_EQ(Click(L"Otázka", L""), 0);
}

TEST_F(GuiWindows, ClickOnWindow_PassesOverChildrenThatCannotBeSeen) {
    Window(62).bHidden = true;
    EXPECT_EQ(Click(L"Otázka", L"Button"), 1);
    EXPECT_EQ(Desktop.TakeEffects()[1], "pointer (190, 220)");
    Window(63).bCovered = true;
    EXPECT_EQ(Click(L"Otázka", L"Button"), 0);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"pointer (100, 200)"});
    Window(63).bCovered = false;
    Window(DIALOG).bHidden = true;  // what lies in it is still marked as shown
    EXPECT_EQ(Click(L"Otázka", L"Button"), 0);
    Window(DIALOG).bHidden = false;
    Window(63).Rect = {600, 220, 660, 240};  // scrolled out of the dialog
    EXPECT_EQ(Click(L"Otázka", L"Button"), 0);
}

TEST_F(GuiWindows, ClickOnWindow_ClicksNowhere_WhenTheChildGoesBeforeItsPlaceIsKnown) {
    // The first is the window's own; the others are of its two children.
    Desktop.Failures.Add({.strCall = "WindowRect", .nFrom = 2, .nCount = 2});
    EXPECT_EQ(Click(L"Otázka", L"Button"), 0);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"pointer (100, 200)"});
}

TEST_F(GuiWindows, ClickOnWindow_LeavesThePointer_WhenTheWindowGoesBeforeItsPlaceIsKnown) {
    Desktop.MouseAcceleration = {0, 0, 0};
    Desktop.Failures.Next("WindowRect");
    EXPECT_EQ(Click(L"Otázka", L"Button"), 1) << "the child is still there";
    EXPECT_EQ(Desktop.TakeEffects().front(), "pointer (120, 220)");
}

TEST_F(GuiWindows, ClickOnWindow_FindsAWindowWithoutATitle_WhenTheTitleIsEmpty) {
    Window(DIALOG).strTitle.clear();
    EXPECT_EQ(Click(L"", L"Button"), 1);
}

TEST_F(GuiWindows, KeyPress_LeavesNoKeyDown_WhenAReleaseIsRefused) {
    Desktop.Failures.Add({.strCall = "SendInputRecords", .nFrom = 3});
    EXPECT_EQ(Gui.KeyPress(45, 17), CallOutcome::Done);
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
}

TEST_F(GuiWindows, FindWindow_TakesTheTitleThenTheClass) {
    EXPECT_EQ(Find(L"Otázka", L""), DIALOG);
    EXPECT_EQ(Find(L"", L"Panel"), DIALOG);
    EXPECT_EQ(Find(L"Text.txt", L"Panel"), DIALOG) << "the class replaces the title";
    EXPECT_EQ(Find(L"Text.txt", L"Nic"), 0) << "even when it finds nothing";
    EXPECT_EQ(Find(L"Nic", L"Editor"), EDITOR);
    EXPECT_EQ(Find(L"Nic", L""), 0);
    EXPECT_EQ(Find(L"", L""), 0);
    EXPECT_EQ(Find(L"Ano", L""), 0) << "a child is no top-level window";
}

TEST_F(GuiWindows, GetTitle_GivesWhatFitsTheBuffer) {
    EXPECT_EQ(Title(EDITOR), L"Text.txt");
    EXPECT_EQ(Title(62), L"Ano");
    EXPECT_EQ(Title(61), L"");
    for (const auto& [nLength, nGiven] :
         {std::pair{248U, 248U}, {249U, 249U}, {250U, 249U}, {300U, 249U}}) {
        Window(EDITOR).strTitle = std::wstring(nLength, L'ž');
        EXPECT_EQ(Title(EDITOR), std::wstring(nGiven, L'ž')) << nLength;
    }
    Window(EDITOR).strTitle = std::wstring(L"před\0po", 7);
    EXPECT_EQ(Title(EDITOR), L"před");
}

TEST_F(GuiWindows, GetTitle_IsEmpty_WhenTheWindowHasGone) {
    Window(EDITOR).bGone = true;
    EXPECT_EQ(Title(EDITOR), L"");
    EXPECT_EQ(Title(0), L"");
    EXPECT_EQ(Title(-1), L"");
}

TEST_F(GuiWindows, UpdateWindow_RepaintsTheWholeWindowInItsOwnCoordinates) {
    EXPECT_EQ(Gui.VBS_UpdateWindow(EDITOR), CallOutcome::Done);
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"RedrawWindow window 50 (0, 0, 200, 100) region (0, 0, 200, 100) flags 1411",
                       "region (0, 0, 200, 100) deleted"}));
}

TEST_F(GuiWindows, UpdateWindow_DoesNothing_WhenTheWindowHasGone) {
    Window(EDITOR).bGone = true;
    for (const int32_t hWindow : {EDITOR, 0, -1})
        EXPECT_EQ(Gui.VBS_UpdateWindow(hWindow), CallOutcome::Done);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(GuiWindows, UpdateFrame_RepaintsAPartOfTheDesktop) {
    EXPECT_EQ(Gui.VBS_UpdateFrame(-5, 10, 300, 40), CallOutcome::Done);
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"RedrawWindow the desktop (-5, 10, 300, 40) region (-5, 10, 300, 40) "
                       "flags 1411",
                       "region (-5, 10, 300, 40) deleted"}));
}

TEST_F(GuiWindows, Updates_PaintNothing_WhenNoRegionCanBeMade) {
    Desktop.Failures.Always("CreateRectRegion");
    EXPECT_EQ(Gui.VBS_UpdateFrame(1, 2, 3, 4), CallOutcome::Done);
    EXPECT_EQ(Gui.VBS_UpdateWindow(EDITOR), CallOutcome::Done);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(GuiWindows, GetChildNum_CountsAccessibleChildren) {
    Window(EDITOR).nAccessibleChildren = 7;
    EXPECT_EQ(ChildNum(EDITOR), 7);
    EXPECT_EQ(ChildNum(DIALOG), 0) << "its accessible object cannot be had";
    Window(EDITOR).bGone = true;
    EXPECT_EQ(ChildNum(EDITOR), 0);
    EXPECT_EQ(ChildNum(0), 0);
}

TEST_F(GuiWindows, GetChild_ComparesUpperCasedClasses) {
    EXPECT_EQ(Child(DIALOG, L"Button"), 62);
    EXPECT_EQ(Child(DIALOG, L"bUTTON"), 62);
    EXPECT_EQ(Child(DIALOG, L"žluťoučký"), 64);
    EXPECT_EQ(Child(61, L"Button"), 62);
    EXPECT_EQ(Child(EDITOR, L"Button"), 0);
    EXPECT_EQ(Child(DIALOG, L"Butto"), 0);
    EXPECT_EQ(Child(DIALOG, L"Button2"), 0);
    EXPECT_EQ(Child(DIALOG, L""), 0);
    EXPECT_EQ(Child(DIALOG, L"Panel"), 0) << "the window is not its own child";
    EXPECT_EQ(Child(0, L"Editor"), 0) << "0 is no window, not the desktop";
}

TEST_F(GuiWindows, GetChild_FindsTheSameChildAsTheClick) {
    for (const wchar_t* szName : {L"BUTTON", L"rám", L"ŽLUŤOUČKÝ", L"Edit", L""}) {
        const int32_t hChild = Child(DIALOG, szName);
        Desktop.TakeEffects();
        EXPECT_EQ(Click(L"Otázka", szName), hChild == 0 ? 0 : 1);
        if (hChild == 0) continue;
        const auto& Rect = Window(static_cast<platform::WindowHandle>(hChild)).Rect;
        EXPECT_EQ(Desktop.Pointer,
                  (platform::ScreenPoint{.nX = Rect.nLeft + 2, .nY = Rect.nTop + 2}));
    }
}

TEST_F(GuiWindows, GetChild_LooksThroughThousandsOfChildren) {
    for (platform::WindowHandle n = 0; n < 5000; ++n)
        Desktop.Windows.push_back({1000 + n, L"", L"Item", 600, 601, {}, DIALOG});
    Desktop.Windows.push_back({9000, L"", L"Last", 600, 601, {}, DIALOG});
    EXPECT_EQ(Child(DIALOG, L"LAST"), 9000);
    EXPECT_EQ(Child(DIALOG, L"Item"), 1000);
    Window(DIALOG).bGone = true;
    EXPECT_EQ(Child(DIALOG, L"Last"), 0);
}

TEST_F(GuiWindows, KeyPress_TapsTheScanCode) {
    EXPECT_EQ(Gui.KeyPress(30, 0), CallOutcome::Done);
    EXPECT_EQ(Gui.KeyPress(30, -16), CallOutcome::Done);
    const std::string strTap = "SendInput: scan 30 down, scan 30 up";
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{strTap, strTap}));
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"aa");
}

TEST_F(GuiWindows, KeyPress_HoldsTheModifier) {
    EXPECT_EQ(Gui.KeyPress(30, 16), CallOutcome::Done);
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"SendInput: vk 16 down", "SendInput: scan 30 down, scan 30 up",
                       "SendInput: vk 16 up"}));
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"A");
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
}

}  // namespace
}  // namespace taviro
