// SPDX-License-Identifier: MIT
// The steps that set the scene: files, sounds, windows and what is plugged in or installed.
#pragma once

#include <cstdint>
#include <string>

#include "tools/simulator/sentence.h"

namespace taviro::simulator {

/// The system's number of the folder below which that of the user's data is.
inline constexpr int32_t ROAMING_DATA_FOLDER = 26;

/// Path of a file in the user's data folder of the virtual desktop.
std::wstring DataPath(const std::wstring& strFile);

void SeedFrom(ScenarioRun& Run, const Step& Given);
void PutProgramFile(ScenarioRun& Run, const Step& Given);
void CopyProgramFile(ScenarioRun& Run, const Step& Given);
void PutDataFile(ScenarioRun& Run, const Step& Given);
void CopyDataFile(ScenarioRun& Run, const Step& Given);
void PutSettings(ScenarioRun& Run, const Step& Given);
void PutCommonMap(ScenarioRun& Run, const Step& Given);
void PutAppMap(ScenarioRun& Run, const Step& Given);
void LockDataFile(ScenarioRun& Run, const Step& Given);
void PutSound(ScenarioRun& Run, const Step& Given);
void SetSoundLength(ScenarioRun& Run, const Step& Given);
void OpenWindow(ScenarioRun& Run, const Step& Given);
void PlugJoystick(ScenarioRun& Run, const Step& Given);
void UnplugJoystick(ScenarioRun& Run, const Step& Given);
void AddVoice(ScenarioRun& Run, const Step& Given);
void RemoveSpeech(ScenarioRun& Run, const Step& Given);
void AddReader(ScenarioRun& Run, const Step& Given);
void AddRelay(ScenarioRun& Run, const Step& Given);
void AddPrediction(ScenarioRun& Run, const Step& Given);
void RunOtherInstance(ScenarioRun& Run, const Step& Given);

}  // namespace taviro::simulator
