// SPDX-License-Identifier: MIT
// The controls that only dialogs have, modal showing, and dialogs on the virtual desktop.
#include "forms/dialog_controls.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "forms/form.h"
#include "platform/dialogs.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"

namespace taviro::forms {
namespace {

using platform::headless::Desktop;
using Effects = std::vector<std::string>;

constexpr int32_t GROUP_ID = 20;

class Dialog : public Form {
  public:
    Dialog() : Form(L"frmTest") {}
    CheckBox chkBox{*this, L"chkBox", 1};
    OptionGroup optKind{*this, L"optKind", GROUP_ID, 3};
    ComboBox cmbSize{*this, L"cmbSize", 2};
    ScrollBar barRate{*this, L"barRate", 3, 0, 100};
    Button cmdOK{*this, L"cmdOK", 4};
    TextBox txtName{*this, L"txtName", 5};
    Timer tmrTick{*this, L"tmrTick", 50};
};

class DialogControlsTest : public ::testing::Test {
  protected:
    DialogControlsTest() { Desktop = platform::headless::DesktopState{}; }
    ~DialogControlsTest() override { platform::DetachDialogs(); }
    Dialog Form;
    int nRuns = 0;
};

TEST_F(DialogControlsTest, CheckBox_TurnsAndRunsClick_WhenClicked) {
    Form.chkBox.OnClick = [this] { ++nRuns; };
    Form.chkBox.Click();
    EXPECT_TRUE(Form.chkBox.Value);
    Form.chkBox.Click();
    EXPECT_FALSE(Form.chkBox.Value);
    EXPECT_EQ(nRuns, 2);
}

TEST_F(DialogControlsTest, CheckBox_StaysAsItIs_WhenDisabled) {
    Form.chkBox.Enabled = false;
    Form.chkBox.Click();
    EXPECT_FALSE(Form.chkBox.Value);
}

TEST_F(DialogControlsTest, OptionGroup_RunsClickWithItsItem_WhenAnotherIsChosen) {
    std::vector<int32_t> Chosen;
    Form.optKind.OnClick = [&](int32_t nItem) { Chosen.push_back(nItem); };
    Form.optKind.Choose(2);
    Form.optKind.Choose(2);
    Form.optKind.Choose(3);
    Form.optKind.Choose(-1);
    Form.optKind.Choose(0);
    EXPECT_EQ(Chosen, (std::vector<int32_t>{2, 0}));
    EXPECT_EQ(Form.optKind.Selected, 0);
}

TEST_F(DialogControlsTest, OptionGroup_RunsNothing_WhenChoiceIsTakenAway) {
    Form.optKind.Choose(1);
    Form.optKind.OnClick = [this](int32_t) { ++nRuns; };
    Form.optKind.Selected = -1;
    EXPECT_EQ(nRuns, 0);
}

TEST_F(DialogControlsTest, Select_LeavesNothingSelected_WhenPositionIsOutside) {
    Form.cmbSize.Items = std::vector<std::wstring>{L"5", L"6"};
    EXPECT_TRUE(Form.cmbSize.Select(1));
    EXPECT_EQ(Form.cmbSize.SelectedText(), L"6");
    EXPECT_FALSE(Form.cmbSize.Select(2));
    EXPECT_EQ(Form.cmbSize.ListIndex, -1);
    EXPECT_EQ(Form.cmbSize.SelectedText(), L"");
}

TEST_F(DialogControlsTest, SelectText_TakesTheLastMatch_WhenTextsRepeat) {
    Form.cmbSize.Items = std::vector<std::wstring>{L"a", L"b", L"a", L"A"};
    EXPECT_TRUE(Form.cmbSize.SelectText(L"a"));
    EXPECT_EQ(Form.cmbSize.ListIndex, 2);
    EXPECT_FALSE(Form.cmbSize.SelectText(L"c"));
    EXPECT_EQ(Form.cmbSize.ListIndex, -1);
}

TEST_F(DialogControlsTest, ScrollBar_RunsChange_WhenItReallyMoves) {
    Form.barRate.OnChange = [this] { ++nRuns; };
    EXPECT_TRUE(Form.barRate.MoveTo(50));
    EXPECT_TRUE(Form.barRate.MoveTo(50));
    EXPECT_EQ(nRuns, 1);
    EXPECT_FALSE(Form.barRate.MoveTo(101));
    EXPECT_FALSE(Form.barRate.MoveTo(-1));
    EXPECT_EQ(Form.barRate.Value, 50);
    EXPECT_EQ(nRuns, 1);
}

TEST_F(DialogControlsTest, Button_RunsClick_WhenEnabledAndSeen) {
    Form.cmdOK.OnClick = [this] { ++nRuns; };
    Form.cmdOK.Click();
    Form.cmdOK.Visible = false;
    Form.cmdOK.Click();
    Form.cmdOK.Visible = true;
    Form.cmdOK.Enabled = false;
    Form.cmdOK.Click();
    EXPECT_EQ(nRuns, 1);
}

TEST_F(DialogControlsTest, TextBox_TakesWhatIsAdmitted_WhenUserTypes) {
    Form.txtName.Type(L"a,b");
    EXPECT_EQ(Form.txtName.Text.Get(), L"a,b");
    Form.txtName.Admit = [](const std::wstring& strText) {
        return strText.substr(0, strText.find(L','));
    };
    Form.txtName.Type(L"cd,e");
    EXPECT_EQ(Form.txtName.Text.Get(), L"cd");
}

TEST_F(DialogControlsTest, Controls_StandInTheOrderOfTheirMaking) {
    std::vector<std::wstring> Names;
    for (const Control* pControl : Form.Controls())
        Names.push_back(pControl->strName);
    EXPECT_EQ(Names, (std::vector<std::wstring>{L"frmTest", L"chkBox", L"optKind", L"cmbSize",
                                                L"barRate", L"cmdOK", L"txtName", L"tmrTick"}));
    EXPECT_TRUE(Form.IsFrame(*Form.Controls().front()));
}

// Views cast by it.
TEST_F(DialogControlsTest, Kind_IsThatOfTheClass) {
    Label lblName(Form, L"lblName");
    GroupFrame fraGroup(Form, L"fraGroup");
    ListBox lstWords(Form, L"lstWords");
    MenuEntry mnuEnd(Form, L"mnuEnd", L"Konec");
    const std::vector<std::pair<const Control*, ControlKind>> Kinds{
        {Form.Controls().front(), ControlKind::Form}, {&lblName, ControlKind::Label},
        {&Form.txtName, ControlKind::TextBox},        {&lstWords, ControlKind::ListBox},
        {&Form.tmrTick, ControlKind::Timer},          {&mnuEnd, ControlKind::MenuEntry},
        {&Form.chkBox, ControlKind::CheckBox},        {&Form.optKind, ControlKind::OptionGroup},
        {&Form.cmbSize, ControlKind::ComboBox},       {&Form.barRate, ControlKind::ScrollBar},
        {&Form.cmdOK, ControlKind::Button},           {&fraGroup, ControlKind::GroupFrame},
    };
    for (const auto& [pControl, nKind] : Kinds)
        EXPECT_EQ(pControl->Kind(), nKind) << platform::ToUtf8(pControl->strName);
}

TEST_F(DialogControlsTest, Dialog_TellsLayoutAndActivation_WhenShown) {
    Form.OnLaidOut = [] { Desktop.Record("laid out"); };
    Form.OnActivate = [] { Desktop.Record("active"); };
    platform::AttachDialog(Form);
    Form.Load();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    Form.Show();
    Form.Unload();
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"frmTest shown", "laid out", "active", "frmTest hidden"}));
}

TEST_F(DialogControlsTest, Dialog_IsTheUsersAlone_WhileModal) {
    platform::AttachDialog(Form);
    Desktop.WhileModal = [this](forms::Form& Shown) {
        EXPECT_EQ(&Shown, &Form);
        EXPECT_TRUE(Form.IsModal());
        Form.ShowModal();  // already shown so: nothing
        ++nRuns;
        Form.Unload();
    };
    Form.ShowModal();
    EXPECT_EQ(nRuns, 1);
    EXPECT_FALSE(Form.IsModal());
    EXPECT_FALSE(Form.IsLoaded());
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"frmTest shown, modal", "frmTest hidden"}));
}

TEST_F(DialogControlsTest, Dialog_DoesNotWait_WhenItsLoadUnloadsIt) {
    platform::AttachDialog(Form);
    Form.OnLoad = [this] { Form.Unload(); };
    Desktop.WhileModal = [this](forms::Form&) { ++nRuns; };
    Form.ShowModal();
    EXPECT_EQ(nRuns, 0);
    EXPECT_FALSE(Form.IsModal());
}

TEST_F(DialogControlsTest, Dialog_ComesToTheFront_WhenShownAgain) {
    platform::AttachDialog(Form);
    Form.Show();
    Form.Show();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"frmTest shown", "frmTest shown"}));
}

TEST_F(DialogControlsTest, DialogsTimer_Ticks_WhileEnabled) {
    platform::AttachDialog(Form);
    Form.tmrTick.OnTimer = [this] { ++nRuns; };
    Form.tmrTick.Enabled = true;
    Desktop.RunFor(120);
    EXPECT_EQ(nRuns, 2);
    Form.tmrTick.Enabled = false;
    Desktop.RunFor(120);
    EXPECT_EQ(nRuns, 2);
}

TEST_F(DialogControlsTest, Information_StandsInTheTranscript_WhenShown) {
    platform::ShowInformation(L"Přesuňte se", L"Taviro");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"information \"Přesuňte se\" titled \"Taviro\""});
}

}  // namespace
}  // namespace taviro::forms
