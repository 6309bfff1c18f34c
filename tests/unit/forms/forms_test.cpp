// SPDX-License-Identifier: MIT
// The control model: properties report real changes only, handlers run for code and user alike,
// forms load once and unload once; and the main window's controls as they are at the start.
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/main_form.h"
#include "platform/text.h"

namespace taviro::forms {
namespace {

// A form that notes what its view is told and which handlers run, in order.
class TestForm : public Form {
  public:
    TestForm() : Form(L"frmTest") {
        OnShowChange = [this](Control& Changed, Aspect nAspect) {
            Notes.push_back(platform::ToUtf8(Changed.strName) + " " + Name(nAspect));
        };
    }
    Label lblText{*this, L"lblText"};
    TextBox txtBox{*this, L"txtBox"};
    ListBox lstItems{*this, L"lstItems"};
    Timer tmrTick{*this, L"tmrTick", 50};
    MenuEntry mnuEntry{*this, L"mnuEntry", L"&Soubor"};
    std::vector<std::string> Notes;

    std::vector<std::string> TakeNotes() { return std::exchange(Notes, {}); }

  private:
    static const char* Name(Aspect nAspect) {
        constexpr const char* NAMES[] = {"text",    "geometry", "look",      "visibility",
                                         "enabled", "items",    "selection", "timing",
                                         "checked", "state",    "unloaded"};
        return NAMES[static_cast<size_t>(nAspect)];
    }
};

using Notes = std::vector<std::string>;

class FormsTest : public ::testing::Test {
  protected:
    TestForm Form;
};

TEST_F(FormsTest, Property_TellsViewOnce_WhenValueReallyChanges) {
    Form.lblText.Caption = L"A";
    Form.lblText.Caption = L"A";
    EXPECT_EQ(Form.TakeNotes(), Notes{"lblText text"});
    Form.lblText.Left = 5;
    Form.lblText.Visible = false;
    Form.lblText.Enabled = false;
    Form.lblText.BackColour = COLOUR_BLACK;
    EXPECT_EQ(Form.TakeNotes(),
              (Notes{"lblText geometry", "lblText visibility", "lblText enabled", "lblText look"}));
    EXPECT_EQ(Form.lblText.Left, 5);
}

TEST_F(FormsTest, FormsOwnProperties_ComeFromTheFrame_WhenChanged) {
    bool bFrame = false;
    Form.OnShowChange = [&](Control& Changed, Aspect) { bFrame = Form.IsFrame(Changed); };
    Form.Caption = L"Okno";
    EXPECT_TRUE(bFrame);
    Form.lblText.Caption = L"A";
    EXPECT_FALSE(bFrame);
}

TEST_F(FormsTest, TextBox_TellsViewThenRunsChange_WhenTextChanges) {
    Form.txtBox.OnChange = [this] { Form.Notes.emplace_back("OnChange"); };
    Form.txtBox.Text = L"up";
    Form.txtBox.Text = L"up";
    EXPECT_EQ(Form.TakeNotes(), (Notes{"txtBox text", "OnChange"}));
    Form.txtBox.Left = 3;
    EXPECT_EQ(Form.TakeNotes(), Notes{"txtBox geometry"}) << "moving is no change of text";
}

TEST_F(FormsTest, TextBox_RunsChangeAgain_WhenHandlerSetsText) {
    int nRuns = 0;
    Form.txtBox.OnChange = [&] {
        ++nRuns;
        Form.txtBox.Text = L"";
    };
    Form.txtBox.Text = L"up";
    EXPECT_EQ(nRuns, 2);
    EXPECT_EQ(Form.txtBox.Text.Get(), L"");
}

TEST_F(FormsTest, ListBox_RunsClick_WhenAnotherEntryIsSelected) {
    int nClicks = 0;
    Form.lstItems.OnClick = [&] { ++nClicks; };
    Form.lstItems.AddItem(L"a");
    Form.lstItems.AddItem(L"b");
    EXPECT_EQ(nClicks, 0);
    Form.lstItems.ListIndex = 1;
    Form.lstItems.ListIndex = 1;
    EXPECT_EQ(nClicks, 1);
    Form.lstItems.Clear();
    EXPECT_EQ(nClicks, 1) << "no selection is no click";
    EXPECT_EQ(Form.lstItems.ListIndex, -1);
    EXPECT_EQ(Form.lstItems.ListCount(), 0);
}

TEST_F(FormsTest, ListBox_GivesText_WhenPositionIsInside) {
    Form.lstItems.AddItem(L"a");
    Form.lstItems.AddItem(L"b");
    EXPECT_EQ(Form.lstItems.ListCount(), 2);
    EXPECT_EQ(Form.lstItems.ItemText(1), L"b");
    EXPECT_EQ(Form.lstItems.ItemText(-1), L"");
    EXPECT_EQ(Form.lstItems.ItemText(2), L"");
}

TEST_F(FormsTest, Timer_IsOffAtFirst_AndTicksOnlyWhileEnabledWithAnInterval) {
    int nTicks = 0;
    Form.tmrTick.OnTimer = [&] { ++nTicks; };
    EXPECT_EQ(Form.tmrTick.Interval, 50);
    Form.tmrTick.Tick();
    EXPECT_EQ(nTicks, 0);
    Form.tmrTick.Enabled = true;
    EXPECT_TRUE(Form.tmrTick.IsTicking());
    Form.tmrTick.Tick();
    EXPECT_EQ(nTicks, 1);
    Form.tmrTick.Interval = 0;
    EXPECT_FALSE(Form.tmrTick.IsTicking());
    Form.tmrTick.Tick();
    EXPECT_EQ(nTicks, 1);
    EXPECT_EQ(Form.TakeNotes(), (Notes{"tmrTick enabled", "tmrTick timing"}));
}

TEST_F(FormsTest, Timer_IsNotReentered_WhenItsHandlerLetsItTick) {
    int nDepth = 0, nDeepest = 0;
    Form.tmrTick.Enabled = true;
    Form.tmrTick.OnTimer = [&] {
        nDeepest = std::max(nDeepest, ++nDepth);
        EXPECT_TRUE(Form.tmrTick.IsRunning());
        Form.tmrTick.Tick();
        --nDepth;
    };
    Form.tmrTick.Tick();
    EXPECT_EQ(nDeepest, 1);
    EXPECT_FALSE(Form.tmrTick.IsRunning());
    Form.tmrTick.Tick();
    EXPECT_EQ(nDeepest, 1);
}

TEST_F(FormsTest, MenuEntry_RunsClick_WhenEnabled) {
    int nClicks = 0;
    Form.mnuEntry.Click();
    Form.mnuEntry.OnClick = [&] { ++nClicks; };
    Form.mnuEntry.Click();
    Form.mnuEntry.Enabled = false;
    Form.mnuEntry.Click();
    EXPECT_EQ(nClicks, 1);
    Form.mnuEntry.Checked = true;
    EXPECT_EQ(Form.TakeNotes(), (Notes{"mnuEntry enabled", "mnuEntry checked"}));
}

TEST_F(FormsTest, Form_RunsLoadOnce_WhenLoadedAndShown) {
    Form.OnLoad = [this] { Form.Notes.emplace_back("OnLoad"); };
    EXPECT_FALSE(Form.IsLoaded());
    Form.Load();
    EXPECT_TRUE(Form.IsLoaded());
    EXPECT_FALSE(Form.Visible) << "loading does not show";
    Form.Load();
    Form.Show();
    EXPECT_EQ(Form.TakeNotes(), (Notes{"OnLoad", "frmTest visibility"}));
    EXPECT_TRUE(Form.Visible);
}

TEST_F(FormsTest, Form_LoadsFirst_WhenShownUnloaded) {
    Form.OnLoad = [this] { Form.Notes.emplace_back("OnLoad"); };
    Form.Show();
    EXPECT_EQ(Form.TakeNotes(), (Notes{"OnLoad", "frmTest visibility"}));
}

TEST_F(FormsTest, Form_StaysHidden_WhenItsLoadUnloadsIt) {
    Form.OnLoad = [this] { Form.Unload(); };
    Form.Show();
    EXPECT_FALSE(Form.IsLoaded());
    EXPECT_FALSE(Form.Visible);
}

TEST_F(FormsTest, Form_TellsItsView_WhenUnloadedHidden) {
    Form.Show();
    Form.Visible = false;
    Form.TakeNotes();
    Form.Unload();
    EXPECT_EQ(Form.TakeNotes(), Notes{"frmTest unloaded"}) << "its window is still there";
    Form.Unload();
    EXPECT_EQ(Form.TakeNotes(), Notes{});
}

TEST_F(FormsTest, Form_TellsItsView_WhenMinimisedOrRestored) {
    for (const FormState nState : {FormState::Minimised, FormState::Minimised, FormState::Normal})
        Form.WindowState = nState;
    EXPECT_EQ(Form.TakeNotes(), (Notes{"frmTest state", "frmTest state"}));
}

TEST_F(FormsTest, Form_RunsUnloadHandlersOnceThenHides_WhenUnloaded) {
    Form.OnQueryUnload = [this] { Form.Notes.emplace_back("OnQueryUnload"); };
    Form.OnUnload = [this] {
        Form.Notes.emplace_back("OnUnload");
        Form.Unload();  // a handler that asks again changes nothing
        EXPECT_TRUE(Form.Visible);
    };
    Form.Unload();
    EXPECT_EQ(Form.TakeNotes(), Notes{}) << "not loaded";
    Form.Show();
    Form.TakeNotes();
    Form.Unload();
    EXPECT_EQ(Form.TakeNotes(), (Notes{"OnQueryUnload", "OnUnload", "frmTest visibility"}));
    EXPECT_FALSE(Form.IsLoaded());
    EXPECT_FALSE(Form.Visible);
    Form.Unload();
    EXPECT_EQ(Form.TakeNotes(), Notes{});
}

TEST_F(FormsTest, Form_LoadsAgain_WhenShownAfterUnload) {
    int nLoads = 0;
    Form.OnLoad = [&] { ++nLoads; };
    Form.Show();
    Form.Unload();
    Form.Show();
    EXPECT_EQ(nLoads, 2);
}

TEST_F(FormsTest, SetScale_RunsResize_WhenInnerSizeChanges) {
    int nResizes = 0;
    Form.OnResize = [&] { ++nResizes; };
    Form.SetScale(100, 50);
    Form.SetScale(100, 50);
    EXPECT_EQ(nResizes, 1);
    Form.SetScale(100, 51);
    Form.SetScale(101, 51);
    EXPECT_EQ(nResizes, 3);
    EXPECT_EQ(Form.nScaleWidth, 101);
    EXPECT_EQ(Form.nScaleHeight, 51);
}

TEST(MainForm, Timers_HaveTheirIntervalsAndAreOff_WhenMade) {
    const MainForm Form;
    EXPECT_EQ(Form.Timer1.Interval, 100);
    EXPECT_FALSE(Form.Timer1.Enabled);
    EXPECT_EQ(Form.ScanTimer.Interval, 50);
    EXPECT_FALSE(Form.ScanTimer.Enabled);
}

TEST(MainForm, CellLabels_AreCreatedOnUse_WhenIndexIsInside) {
    MainForm Form;
    EXPECT_EQ(Form.CellLabel(1), nullptr);
    Label* pLabel = Form.CreateCellLabel(1);
    ASSERT_NE(pLabel, nullptr);
    EXPECT_EQ(pLabel->strName, L"lblControl1");
    EXPECT_EQ(Form.CellLabel(1), pLabel);
    EXPECT_EQ(Form.CreateCellLabel(1), pLabel);
    EXPECT_NE(Form.CreateCellLabel(1000), nullptr);
    for (const int32_t nOutside : {-1, 0, 1001}) {
        EXPECT_EQ(Form.CreateCellLabel(nOutside), nullptr) << nOutside;
        EXPECT_EQ(Form.CellLabel(nOutside), nullptr) << nOutside;
    }
}

struct MenuCase {
    const MenuEntry& Entry;
    const wchar_t* szName;
    const wchar_t* szCaption;
};

TEST(MainForm, Menu_HasItsEntriesAndCaptions_WhenMade) {
    const MainForm Form;
    const MenuCase CASES[] = {
        {Form.mnuApplication, L"mnuApplication", L"Aplikace"},
        {Form.mnuOpenMap, L"mnuOpenMap", L"Aplikační nabídky"},
        {Form.mnuExit, L"mnuExit", L"Ukončit"},
        {Form.mnuSettingGroup, L"mnuSettingGroup", L"Nastavení"},
        {Form.mnuSettings, L"mnuSettings", L"Nastavení položky"},
        {Form.mnuSettingApp, L"mnuSettingApp", L"Nastavení programu"},
        {Form.mnuVoice, L"mnuVoice", L"Hlas"},
        {Form.mnuLog, L"mnuLog", L"Protokol"},
        {Form.mnuHelp, L"mnuHelp", L"Nápověda"},
        {Form.mnuAbout, L"mnuAbout", L"O programu..."},
        {Form.mnuHelpOpen, L"mnuHelpOpen", L"Otevřít"},
    };
    for (const MenuCase& Case : CASES) {
        std::wstring strShown = Case.Entry.Caption.Get();
        std::erase(strShown, L'&');
        EXPECT_EQ(Case.Entry.strName, Case.szName);
        EXPECT_EQ(strShown, Case.szCaption);
    }
}

TEST(MainForm, MenuBar_ShowsGroupsWithTheirEntriesInOrder_WhenMade) {
    const MainForm Form;
    std::vector<std::wstring> Shown;
    for (const MenuEntry* pGroup : Form.MenuBar) {
        Shown.push_back(pGroup->strName + L":");
        for (const MenuEntry* pEntry : pGroup->Entries)
            Shown.push_back(pEntry->strName);
    }
    const std::vector<std::wstring> EXPECTED{L"mnuApplication:",  L"mnuOpenMap",  L"mnuExit",
                                             L"mnuSettingGroup:", L"mnuSettings", L"mnuSettingApp",
                                             L"mnuVoice",         L"mnuLog",      L"mnuHelp:",
                                             L"mnuAbout",         L"mnuHelpOpen"};
    EXPECT_EQ(Shown, EXPECTED);
}

TEST(Labels, Release_IsAClick_OnlyAfterAPressOfTheSameButtonThere) {
    MainForm Shown;
    std::vector<MouseButton> Clicks;
    Shown.Label2.OnMouseUp = [&](MouseButton nButton) { Clicks.push_back(nButton); };
    Shown.Label2.Release(MouseButton::Left);
    EXPECT_TRUE(Clicks.empty()) << "pressed elsewhere, on a menu";
    Shown.Label2.Press(MouseButton::Right);
    Shown.Label2.Release(MouseButton::Left);
    EXPECT_TRUE(Clicks.empty()) << "another button";
    Shown.Label2.Release(MouseButton::Right);
    EXPECT_EQ(Clicks, std::vector{MouseButton::Right});
    Shown.Label2.Release(MouseButton::Right);
    EXPECT_EQ(Clicks.size(), 1U) << "one press is one click";
    Shown.Label2.Press(MouseButton::Left);
    Shown.Label2.ForgetPress();
    Shown.Label2.Release(MouseButton::Left);
    EXPECT_EQ(Clicks.size(), 1U) << "released elsewhere meanwhile";
    Shown.Label2.Press(MouseButton::Left);
    Shown.Label2.Enabled = false;
    Shown.Label2.Release(MouseButton::Left);
    EXPECT_EQ(Clicks.size(), 1U);
}

// The box admits no comma, no blank at its beginning, "!" for a "?", and five characters.
TEST(TextBoxes, Insertion_IsWhatIsAdmittedOfIt_AtItsPlace) {
    const struct {
        const char* szName;
        std::wstring strText;
        size_t nFrom, nTo;
        std::wstring strInserted;
        std::optional<std::wstring> Result;
    } ROWS[] = {
        {"admitted", L"ab", 1, 1, L"x", L"x"},
        {"refused", L"ab", 1, 1, L",", L""},
        {"over marked text", L"abc", 0, 2, L"x", L"x"},
        {"refused over marked text", L"abc", 0, 2, L",", L""},
        {"changed", L"ab", 2, 2, L"?", L"!"},
        {"a part of it", L"ab", 1, 1, L"x,y", L"xy"},
        {"refused at the beginning", L"ab", 0, 0, L" ", L""},
        {"admitted elsewhere", L"ab", 1, 1, L" ", L" "},
        {"what there is room for, at the end", L"abcd", 4, 4, L"xyz", L"x"},
        {"no room in the middle", L"abcde", 2, 2, L"c", L""},
        {"of a text that was there already", L" ab", 3, 3, L"x", std::nullopt},
        {"behind the text", L"ab", 7, 9, L"x", L"x"},
    };
    for (const auto& Row : ROWS) {
        TestForm Form;
        Form.txtBox.Text = Row.strText;
        Form.txtBox.Admit = [](const std::wstring& strEntered) {
            std::wstring strHeld = strEntered;
            std::erase(strHeld, L',');
            std::replace(strHeld.begin(), strHeld.end(), L'?', L'!');
            if (strHeld.starts_with(L' ')) strHeld.erase(0, 1);
            return strHeld.substr(0, 5);
        };
        EXPECT_EQ(Form.txtBox.Insertion(Row.nFrom, Row.nTo, Row.strInserted), Row.Result)
            << Row.szName;
        Form.txtBox.Admit = nullptr;
        EXPECT_EQ(Form.txtBox.Insertion(Row.nFrom, Row.nTo, Row.strInserted), Row.strInserted);
    }
}

}  // namespace
}  // namespace taviro::forms
