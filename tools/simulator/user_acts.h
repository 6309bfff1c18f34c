// SPDX-License-Identifier: MIT
// The steps in which something happens: the user's hand on stick, buttons and keys, the program's
// start and end, time, and the windows of other programs.
#pragma once

#include "tools/simulator/sentence.h"

namespace taviro::simulator {

void StartProgram(ScenarioRun& Run, const Step& Given);
void ShutDown(ScenarioRun& Run, const Step& Given);
void Wait(ScenarioRun& Run, const Step& Given);
void BringToFront(ScenarioRun& Run, const Step& Given);
void BringNothingToFront(ScenarioRun& Run, const Step& Given);
void PushStick(ScenarioRun& Run, const Step& Given);
void HoldStick(ScenarioRun& Run, const Step& Given);
void PlaceStick(ScenarioRun& Run, const Step& Given);
void PressButton(ScenarioRun& Run, const Step& Given);
void PressButtonFor(ScenarioRun& Run, const Step& Given);
void HoldButton(ScenarioRun& Run, const Step& Given);
void ReleaseButton(ScenarioRun& Run, const Step& Given);
void PressKey(ScenarioRun& Run, const Step& Given);
void KeyDown(ScenarioRun& Run, const Step& Given);
void KeyUp(ScenarioRun& Run, const Step& Given);
void PauseJoystick(ScenarioRun& Run, const Step& Given);
void ResumeJoystick(ScenarioRun& Run, const Step& Given);
void WriteCommand(ScenarioRun& Run, const Step& Given);
void ChooseMenu(ScenarioRun& Run, const Step& Given);
void ShowMapNow(ScenarioRun& Run, const Step& Given);
void IgnoreEffects(ScenarioRun& Run, const Step& Given);

}  // namespace taviro::simulator
