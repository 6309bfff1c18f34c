// SPDX-License-Identifier: MIT
// What is said and shown of windows that the system does not let us drive.
#include "actions/window_rights.h"

#include "actions/key_synthesis.h"
#include "settings/comfort.h"
#include "state/cursor_state.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {

namespace {

constexpr platform::WindowHandle OPEN_LETTER = 11, SETUP_WINDOW = 21, REGISTRY_WINDOW = 31;
const std::wstring MAY_NOT_BE_DRIVEN = L"Toto okno nemohu ovládat";

class WindowRightsTest : public ActionTest {
  protected:
    WindowRightsTest() {
        Desktop.Windows = {
            {.hWindow = OPEN_LETTER, .strTitle = L"a.txt"},
            {.hWindow = SETUP_WINDOW, .strTitle = L"Setup", .bGreaterRights = true},
            {.hWindow = REGISTRY_WINDOW, .strTitle = L"Registry", .bGreaterRights = true}};
        Comfort.bWindowRights = true;
        Bring(OPEN_LETTER);
        Desktop.TakeEffects();
    }

    static void Bring(platform::WindowHandle hWindow) {
        Desktop.hForeground = hWindow;
        CheckWindowRights();
        CheckWindowRights();  // of the next tick
    }
    static void MoveTo(int32_t nColumn, int32_t nRow) {
        Cursor.nColumn = nColumn;
        Cursor.nRow = nRow;
        SetHi(nColumn, nRow);
    }
    static std::wstring Status() { return forms::FrmMain->Label1.Caption; }
    static size_t TimesSaid() {
        const auto Done = Desktop.TakeEffects();
        return static_cast<size_t>(std::ranges::count_if(Done, [](const std::string& strEffect) {
            return strEffect.find("say") == 0 &&
                   strEffect.find(platform::ToUtf8(MAY_NOT_BE_DRIVEN)) != std::string::npos;
        }));
    }
};

TEST_F(WindowRightsTest, Window_IsNamedOnce_EachTimeItComesToTheFront) {
    Bring(SETUP_WINDOW);
    EXPECT_EQ(TimesSaid(), 1U);
    EXPECT_EQ(Status(), MAY_NOT_BE_DRIVEN);
    Bring(REGISTRY_WINDOW);
    EXPECT_EQ(TimesSaid(), 1U);
    Bring(OPEN_LETTER);
    EXPECT_EQ(TimesSaid(), 0U);
    Bring(SETUP_WINDOW);
    EXPECT_EQ(TimesSaid(), 1U);
}

TEST_F(WindowRightsTest, StatusLine_GoesBackToTheCell_WhenAnotherWindowComes) {
    MoveTo(2, 2);
    const std::wstring strCell = Status();
    Bring(SETUP_WINDOW);
    Bring(OPEN_LETTER);
    EXPECT_EQ(Status(), strCell);
    Bring(SETUP_WINDOW);
    MoveTo(3, 2);
    const std::wstring strMovedTo = Status();
    Bring(0);
    EXPECT_EQ(Status(), strMovedTo) << "a move has taken the line";
    EXPECT_NE(strMovedTo, MAY_NOT_BE_DRIVEN);
}

TEST_F(WindowRightsTest, NothingIsAskedOrSaid_ByTheRulesAlone) {
    Comfort.bWindowRights = false;
    Bring(SETUP_WINDOW);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    EXPECT_NE(Status(), MAY_NOT_BE_DRIVEN);
}

TEST_F(WindowRightsTest, SentKeys_AreSwallowedWithoutAnError_WhileSuchAWindowIsInFront) {
    Bring(SETUP_WINDOW);
    EXPECT_EQ(SendVirtualKey(65), 2U);
    EXPECT_EQ(Typed(), L"");
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
    Bring(OPEN_LETTER);
    EXPECT_EQ(SendVirtualKey(65), 2U);
    EXPECT_EQ(Typed(), L"a");
}

}  // namespace

}  // namespace taviro
