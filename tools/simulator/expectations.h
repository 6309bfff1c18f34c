// SPDX-License-Identifier: MIT
// The steps that compare what happened with what was expected.
#pragma once

#include "tools/simulator/sentence.h"

namespace taviro::simulator {

void ExpectEffects(ScenarioRun& Run, const Step& Given);
void ExpectTimedEffects(ScenarioRun& Run, const Step& Given);
void ExpectNothing(ScenarioRun& Run, const Step& Given);
void ExpectCell(ScenarioRun& Run, const Step& Given);
void ExpectCellText(ScenarioRun& Run, const Step& Given);
void ExpectMode(ScenarioRun& Run, const Step& Given);
void ExpectTyped(ScenarioRun& Run, const Step& Given);
void ExpectCaption(ScenarioRun& Run, const Step& Given);
void ExpectStatus(ScenarioRun& Run, const Step& Given);
void ExpectMap(ScenarioRun& Run, const Step& Given);
void ExpectKeysUp(ScenarioRun& Run, const Step& Given);
void ExpectDataFile(ScenarioRun& Run, const Step& Given);
void ExpectDataFileLine(ScenarioRun& Run, const Step& Given);
void ExpectNoDataFile(ScenarioRun& Run, const Step& Given);

}  // namespace taviro::simulator
