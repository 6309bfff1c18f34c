// SPDX-License-Identifier: MIT
// What each tick looks for in the window in front.
#include <gtest/gtest.h>

#include "forms/main_form.h"
#include "platform/headless/user.h"
#include "settings/comfort.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

class FrontWindowTest : public ProgramTest {};

TEST_F(FrontWindowTest, WindowOfGreaterRights_IsShownInTheStatusLine_WhenItComesToTheFront) {
    Start();
    Comfort.bWindowRights = true;
    constexpr platform::WindowHandle SETUP_WINDOW = 21;
    Desktop.Windows = {{.hWindow = SETUP_WINDOW, .strTitle = L"Setup", .bGreaterRights = true}};
    Desktop.hForeground = SETUP_WINDOW;
    platform::headless::Ticks(2);
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"Toto okno nemohu ovládat");
}

}  // namespace
}  // namespace taviro
