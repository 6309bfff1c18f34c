// SPDX-License-Identifier: MIT
#include "tools/simulator/user_acts.h"

#include <algorithm>

#include "core/program_reset.h"
#include "core/startup.h"
#include "forms/main_form.h"
#include "platform/headless/desktop.h"
#include "platform/headless/user.h"
#include "platform/main_window.h"
#include "platform/text.h"
#include "platform/unneeded.h"
#include "state/program_state.h"
#include "tools/simulator/gaps.h"
#include "tools/simulator/scenario_run.h"

namespace taviro::simulator {

namespace {

using forms::FrmMain;
using platform::headless::Desktop;

namespace headless = platform::headless;

/// -1, 0 or 1 for a push towards the low end of the axis, its middle or the high end.
int32_t Lean(int32_t nBits, int32_t nLow, int32_t nHigh) {
    if ((nBits & nHigh) != 0) return 1;
    return (nBits & nLow) != 0 ? -1 : 0;
}

void TiltTo(int32_t nBits) {
    headless::TiltStick(Lean(nBits, StickLeft, StickRight), Lean(nBits, StickUp, StickDown));
}

uint32_t Time(const Step& Given) {
    return static_cast<uint32_t>(Given.Numbers.back());
}

uint8_t Key(const Step& Given) {
    return static_cast<uint8_t>(Given.Numbers[0]);
}

// Whether the program runs; says so if it does not.
bool NeedProgram(ScenarioRun& Run, const Step& Given) {
    if (!Run.bProgramRuns) Run.Break(Given, "the program does not run: \"start\" comes first");
    return Run.bProgramRuns;
}

forms::MenuEntry* FindEntry(std::span<forms::MenuEntry* const> Entries,
                            const std::wstring& strCaption) {
    for (forms::MenuEntry* pEntry : Entries) {
        std::wstring strShown = pEntry->Caption.Get();
        std::erase(strShown, L'&');
        if (pEntry->Entries.empty() && strShown == strCaption) return pEntry;
        if (forms::MenuEntry* pInside = FindEntry(pEntry->Entries, strCaption)) return pInside;
    }
    return nullptr;
}

// After a step that may have ended the program.
void NoteEnd(ScenarioRun& Run) {
    if (FrmMain->IsLoaded()) return;
    platform::CloseMainWindow();
    Run.bProgramRuns = false;
}

}  // namespace

void StartProgram(ScenarioRun& Run, const Step& Given) {
    if (Run.bProgramRuns) {
        Run.Break(Given, "the program runs already");
        return;
    }
    if (Run.bStartedBefore) ResetProgram();
    Unneeded(platform::OpenMainWindow(*FrmMain));  // the virtual desktop never refuses
    BindMainForm();
    const uint32_t nBefore = Desktop.nNow;
    Main();
    Run.LeaveOut(Desktop.nNow - nBefore);
    Run.bProgramRuns = FrmMain->IsLoaded();  // not when another instance runs
    Run.bStartedBefore = true;
}

void ShutDown(ScenarioRun& Run, const Step& Given) {
    if (!NeedProgram(Run, Given)) return;
    FrmMain->Unload();
    NoteEnd(Run);
}

void Wait(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.RunFor(Time(Given));
}

void BringToFront(ScenarioRun& Run, const Step& Given) {
    for (const auto& Window : Desktop.Windows) {
        if (Window.strTitle != Given.Texts[0]) continue;
        Desktop.hForeground = Window.hWindow;
        return;
    }
    Run.Break(Given, "there is no window \"" + platform::ToUtf8(Given.Texts[0]) + "\"");
}

void BringNothingToFront(ScenarioRun& /*Run*/, const Step& /*Given*/) {
    Desktop.hForeground = 0;
}

void PushStick(ScenarioRun& /*Run*/, const Step& Given) {
    TiltTo(Given.Numbers[0]);
}

void HoldStick(ScenarioRun& /*Run*/, const Step& Given) {
    TiltTo(Given.Numbers[0]);
    Desktop.RunFor(Time(Given));
    headless::CentreStick();
}

void PlaceStick(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.Joystick.nX = static_cast<uint32_t>(Given.Numbers[0]);
    Desktop.Joystick.nY = static_cast<uint32_t>(Given.Numbers[1]);
}

void PressButton(ScenarioRun& /*Run*/, const Step& Given) {
    headless::PushButton(Given.Numbers[0]);
}

void PressButtonFor(ScenarioRun& /*Run*/, const Step& Given) {
    headless::PushButton(Given.Numbers[0], Time(Given));
}

void HoldButton(ScenarioRun& /*Run*/, const Step& Given) {
    headless::PressButton(Given.Numbers[0]);
}

void ReleaseButton(ScenarioRun& /*Run*/, const Step& Given) {
    headless::ReleaseButton(Given.Numbers[0]);
}

void PressKey(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.PhysicalKey(Key(Given), true);
    Desktop.PhysicalKey(Key(Given), false);
}

void KeyDown(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.PhysicalKey(Key(Given), true);
}

void KeyUp(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.PhysicalKey(Key(Given), false);
}

void PauseJoystick(ScenarioRun& /*Run*/, const Step& /*Given*/) {
    Program.bPauseJoystick = true;
}

void ResumeJoystick(ScenarioRun& /*Run*/, const Step& /*Given*/) {
    Program.bPauseJoystick = false;
}

void WriteCommand(ScenarioRun& Run, const Step& Given) {
    if (NeedProgram(Run, Given)) Desktop.WriteIntoBox(Given.Texts[0]);
}

void ChooseMenu(ScenarioRun& Run, const Step& Given) {
    if (!NeedProgram(Run, Given)) return;
    forms::MenuEntry* pEntry = FindEntry(FrmMain->MenuBar, Given.Texts[0]);
    if (pEntry == nullptr) {
        Run.Break(Given, "the menu has no entry \"" + platform::ToUtf8(Given.Texts[0]) + "\"");
    } else {
        pEntry->Click();
        NoteEnd(Run);
    }
}

void ShowMapNow(ScenarioRun& Run, const Step& Given) {
    if (NeedProgram(Run, Given)) Run.PrintMap();
}

void IgnoreEffects(ScenarioRun& Run, const Step& /*Given*/) {
    Run.Unchecked.clear();
}

}  // namespace taviro::simulator
