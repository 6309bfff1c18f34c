// SPDX-License-Identifier: MIT
#include "actions/choice_list.h"

#include <algorithm>

#include "actions/prediction.h"
#include "state/mode_state.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;

constexpr int32_t LEFT = 37, UP = 38, RIGHT = 39, DOWN = 40;

class ChoiceListBox : public ActionTest {
  protected:
    static void Open(const std::wstring& strText) {
        ShowList(strText);
        Desktop.TakeEffects();
    }
    static void Select(int32_t nRow) {
        FrmMain->List1.ListIndex = nRow;
        Desktop.TakeEffects();
    }
    static Effects Accept() {
        ListAccept();
        return Desktop.TakeEffects();
    }
};

TEST_F(ChoiceListBox, Show_ListsTheLabels_AnnouncesTheFirst) {
    ShowList(L"*Programs;Notepad,notepad;Calculator,calc;Help,\\help.exe");
    EXPECT_TRUE(Modes.bListMode);
    EXPECT_TRUE(FrmMain->List1.Visible);
    EXPECT_EQ(FrmMain->List1.Items.Get(),
              (std::vector<std::wstring>{L"Notepad", L"Calculator", L"Help"}));
    EXPECT_EQ(FrmMain->List1.ListIndex.Get(), 0);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"say Notepad"});
    ASSERT_EQ(ChoiceList.Entries.size(), 4U);
    EXPECT_EQ(ChoiceList.Entries[0].strLabel, L"");
    EXPECT_EQ(ChoiceList.Entries[3].strCommand, L"\\help.exe");
}

TEST_F(ChoiceListBox, Segments_SplitAtTheFirstComma_EmptyOnesAreNotShown) {
    const struct {
        const char* szName;
        std::wstring strText;
        std::vector<std::wstring> Labels;
        std::vector<std::wstring> Commands;  // of all rows after the first
    } Rows[] = {
        {"no segment", L"*Title", {}, {}},
        {"empty text", L"", {}, {}},
        {"only a separator", L"*;", {}, {L""}},
        {"label alone", L"*;a", {L"a"}, {L""}},
        {"label and command", L"*;a,b", {L"a"}, {L"b"}},
        {"commas in the command", L"*;a,b,c", {L"a"}, {L"b,c"}},
        {"empty label", L"*;,b", {L""}, {L"b"}},
        {"empty command", L"*;a,", {L"a"}, {L""}},
        {"blanks are kept in the list", L"*; a , b ", {L" a "}, {L" b "}},
        {"empty segments", L"*;;a,b;;", {L"a"}, {L"", L"b", L"", L""}},
        {"title with a comma", L"*x,y;a", {L"a"}, {L""}},
        {"no star", L"x;a", {L"a"}, {L""}},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        ShowList(Row.strText);
        std::vector<std::wstring> Commands;
        for (size_t n = 1; n < ChoiceList.Entries.size(); ++n)
            Commands.push_back(ChoiceList.Entries[n].strCommand);
        EXPECT_EQ(FrmMain->List1.Items.Get(), Row.Labels);
        EXPECT_EQ(Commands, Row.Commands);
        EXPECT_EQ(FrmMain->List1.ListIndex.Get(), Row.Labels.empty() ? -1 : 0);
        HideList();
    }
}

TEST_F(ChoiceListBox, Show_DoesNothing_WhenItIsOpen) {
    Open(L"*;a;b");
    ListMove(DOWN);
    Desktop.TakeEffects();
    ShowList(L"*;c");
    EXPECT_EQ(FrmMain->List1.ItemText(1), L"b");
    EXPECT_EQ(FrmMain->List1.ListIndex.Get(), 1);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(ChoiceListBox, Show_CoversTheUpperHalf_StatusLineMeetsIt) {
    auto& Status = FrmMain->Label1;
    Status.Top = 300;
    Status.Height = 20;
    Status.Width = 250;
    Open(L"*;a");
    EXPECT_EQ(FrmMain->List1.Left.Get(), 0);
    EXPECT_EQ(FrmMain->List1.Top.Get(), 0);
    EXPECT_EQ(FrmMain->List1.Width.Get(), 250);
    EXPECT_EQ(FrmMain->List1.Height.Get(), 150);
    EXPECT_EQ(ChoiceList.nOffset, 150);
    EXPECT_EQ(Status.Top.Get(), 150);
    EXPECT_EQ(Status.Height.Get(), 170);
    HideList();
    EXPECT_EQ(Status.Top.Get(), 300);
    EXPECT_EQ(Status.Height.Get(), 20);
}

TEST_F(ChoiceListBox, Height_IsSixLinesAtLeast_NeverMoreThanTheMap) {
    const struct {
        int32_t nMapHeight, nListHeight;
    } Rows[] = {{193, 96}, {192, 96}, {120, 96}, {97, 96}, {96, 96}, {40, 40}, {0, 0}, {-5, 0}};
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.nMapHeight);
        FrmMain->Label1.Top = Row.nMapHeight;
        FrmMain->Label1.Height = 20;
        Open(L"*;a");
        EXPECT_EQ(FrmMain->List1.Height.Get(), Row.nListHeight);
        HideList();
        EXPECT_EQ(FrmMain->Label1.Top.Get(), std::max(Row.nMapHeight, 0));
    }
}

TEST_F(ChoiceListBox, Hide_LeavesTheStatusLineWhereANewLayoutPutIt) {
    FrmMain->Label1.Top = 300;
    FrmMain->Label1.Height = 20;
    Open(L"*;a");
    FrmMain->Label1.Top = 500;
    HideList();
    EXPECT_EQ(FrmMain->Label1.Top.Get(), 500);
    EXPECT_EQ(FrmMain->Label1.Height.Get(), 20);
}

TEST_F(ChoiceListBox, Hide_DoesNothing_WhenNoListIsShown) {
    FrmMain->Label1.Top = 300;
    Open(L"*;a");
    HideList();
    const int32_t nTop = FrmMain->Label1.Top;
    const int32_t nHeight = FrmMain->Label1.Height;
    HideList();
    EXPECT_EQ(FrmMain->Label1.Top.Get(), nTop);
    EXPECT_EQ(FrmMain->Label1.Height.Get(), nHeight);
    EXPECT_FALSE(Modes.bListMode);
    EXPECT_FALSE(FrmMain->List1.Visible);
}

TEST_F(ChoiceListBox, Move_StepsAndAnnounces_StaysAndBeepsAtTheEnds) {
    Open(L"*;a;b;c");
    const struct {
        int32_t nVk, nRow;
        Effects Heard;
    } Steps[] = {
        {DOWN, 1, {"say b"}},       {RIGHT, 2, {"say c"}}, {DOWN, 2, {"beep", "say c"}},
        {UP, 1, {"say b"}},         {LEFT, 0, {"say a"}},  {LEFT, 0, {"beep", "say a"}},
        {13, 0, {"beep", "say a"}},
    };
    for (const auto& Step : Steps) {
        ListMove(Step.nVk);
        EXPECT_EQ(FrmMain->List1.ListIndex.Get(), Step.nRow);
        EXPECT_EQ(Desktop.TakeEffects(), Step.Heard);
    }
}

TEST_F(ChoiceListBox, EmptyList_BeepsOnMoves_ClosesOnConfirming) {
    ShowList(L"*Title");
    EXPECT_TRUE(Modes.bListMode);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"silence"});
    ListMove(DOWN);
    ListMove(UP);
    EXPECT_EQ(FrmMain->List1.ListIndex.Get(), -1);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"beep", "silence", "beep", "silence"}));
    EXPECT_EQ(Accept(), Effects{"silence"});
    EXPECT_FALSE(Modes.bListMode);
}

TEST_F(ChoiceListBox, EmptyList_SelectsNothing_AfterAListWhoseLastEntryWasTaken) {
    Open(L"*;a;b");
    Select(1);
    Accept();
    Open(L"*Title");
    EXPECT_EQ(FrmMain->List1.ListIndex.Get(), -1);
}

TEST_F(ChoiceListBox, Accept_LaunchesTheCommand) {
    const struct {
        const char* szName;
        std::wstring strCommand;
        std::string strLaunched;
    } Rows[] = {
        {"program", L"calc", "launch \"calc\""},
        {"blanks around", L"  calc ", "launch \"calc\""},
        {"arguments", L"notepad(c.txt)", "launch \"notepad\" with \"c.txt\""},
        {"empty arguments", L"notepad()", "launch \"notepad\""},
        {"first closing parenthesis", L"p(a)b)", "launch \"p\" with \"a\""},
        {"nested parentheses", L"p(a(b)c)", "launch \"p\" with \"a(b\""},
        {"not closed", L"p(a", "launch \"p\""},
        {"closed before it opens", L"p)q(a", "launch \"p)q\""},
        {"only closed", L"p)", "launch \"p)\""},
        {"program folder", L"\\help.exe", "launch \"C:\\Program Files\\Taviro\\help.exe\""},
        {"program folder and arguments", L"\\g.exe(1)",
         "launch \"C:\\Program Files\\Taviro\\g.exe\" with \"1\""},
        {"a colon does not split", L"C:\\x.exe", "launch \"C:\\x.exe\""},
        {"nothing before the parenthesis", L"(a)", "launch \"\" with \"a\""},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Open(L"*;first;label," + Row.strCommand);
        Select(1);
        EXPECT_EQ(Accept(), (Effects{"say label", Row.strLaunched}));
        EXPECT_FALSE(Modes.bListMode);
        EXPECT_EQ(Typed(), L"");
    }
}

TEST_F(ChoiceListBox, Accept_TypesTheLabel_WhenThereIsNoCommand) {
    const struct {
        const char* szName;
        std::wstring strSegment, strTyped, strPrefix;
    } Rows[] = {
        {"word", L"ahoj", L"ahoj", L"ahoj"},
        {"blanks in front", L"  ahoj", L"ahoj", L"ahoj"},
        {"blank at the end", L"ahoj ", L"ahoj ", L""},
        {"more blanks at the end", L"ahoj   ", L"ahoj ", L""},
        {"several words", L"good day", L"good day", L"good day"},
        {"keys", L"a{TAB}b~", L"a\tb\n", L"a{TAB}b~"},
        {"marked", L"ahoj*", L"ahoj", L"ahoj"},
        {"marked, then a blank", L"ahoj* ", L"ahoj ", L""},
        {"mark alone", L"*", L"", L"x"},
        {"blanks alone", L"   ", L"", L"x"},
        {"command of blanks", L"ahoj,  ", L"ahoj", L"ahoj"},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Prediction = {};
        Prediction.strPrefix = L"x";
        Prediction.nTypedCount = 3;
        Desktop.Keyboard.strTyped.clear();
        Open(L"*;" + Row.strSegment);
        Accept();
        EXPECT_EQ(Typed(), Row.strTyped);
        EXPECT_EQ(Prediction.strPrefix, Row.strPrefix);
        EXPECT_FALSE(Modes.bListMode);
    }
}

TEST_F(ChoiceListBox, Accept_DoesNothing_WhenNoListIsOpen) {
    Open(L"*;a,calc");
    HideList();
    EXPECT_EQ(Accept(), Effects{});
}

TEST_F(ChoiceListBox, EntryRow_FollowsTheSelection_NotTheEmptySegments) {
    Open(L"*;;a,calc;b,mail");
    EXPECT_EQ(Accept(), Effects{"say a"});
    Open(L"*;;a,calc;b,mail");
    Select(1);
    EXPECT_EQ(Accept(), (Effects{"say b", "launch \"calc\""}));
}

TEST_F(ChoiceListBox, TenThousandEntries_AreListedOnce) {
    std::wstring strText = L"*";
    for (int n = 0; n < 10000; ++n)
        strText += L";entry " + std::to_wstring(n) + L",program" + std::to_wstring(n);
    int nReports = 0;
    FrmMain->OnShowChange = [&](forms::Control& Changed, forms::Aspect nAspect) {
        if (&Changed == &FrmMain->List1 && nAspect == forms::Aspect::Items) ++nReports;
    };
    Open(strText);
    EXPECT_EQ(FrmMain->List1.ListCount(), 10000);
    EXPECT_EQ(nReports, 1);
    Select(9999);
    EXPECT_EQ(Accept(), (Effects{"say entry 9999", "launch \"program9999\""}));
}

TEST_F(ChoiceListBox, OneMegabyteOfSeparators_GivesAnEmptyList) {
    Open(std::wstring(1 << 20, L';'));
    EXPECT_EQ(FrmMain->List1.ListCount(), 0);
    EXPECT_EQ(Accept(), Effects{"silence"});
}

}  // namespace
}  // namespace taviro
