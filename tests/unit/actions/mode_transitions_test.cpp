// SPDX-License-Identifier: MIT
// Changes of the mode that are asked for where they do not belong. What each change does stands in
// tests/unit/core/mode_changes_test.cpp and mode_states_test.cpp.
#include "actions/mode_transitions.h"

#include "actions/choice_list.h"
#include "state/mode_state.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

class ModeTransitions : public ActionTest {
  protected:
    ModeTransitions() {
        forms::FrmMain->ScanTimer.Interval = 60000;
        forms::FrmMain->ScanTimer.Enabled = true;
        Desktop.TakeEffects();
    }
};

// A key may have changed the mode between the look at the map and what follows from it.
TEST_F(ModeTransitions, MapGone_ChangesNothing_OutsideApplicationMode) {
    const struct {
        const char* szName;
        Mode nMode;
        bool bList;
    } Rows[] = {
        {"selection", Mode::Select, false},
        {"arrows", Mode::Arrow, false},
        {"scanning", Mode::Scan, false},
        {"a list over application mode", Mode::Application, true},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Modes.Set(Row.nMode);
        if (Row.bList) ShowList(L"*;a");
        forms::FrmMain->ScanTimer.Enabled = true;
        Desktop.TakeEffects();
        const DrivenBy nBefore = WhatIsDriven();
        ChangeMode(ModeEvent::AppMapGone);
        EXPECT_EQ(WhatIsDriven(), nBefore);
        EXPECT_EQ(Desktop.TakeEffects(), Effects{});
        EXPECT_TRUE(forms::FrmMain->ScanTimer.Enabled);
    }
}

}  // namespace
}  // namespace taviro
