// SPDX-License-Identifier: MIT
// The fixture of the actions' tests: the program without its start-up, a map, and a voice that
// writes what it says into the transcript.
#pragma once

#include "feedback/speech.h"
#include "maps/map_window.h"
#include "maps/shown_map.h"
#include "platform/headless/voice.h"
#include "tests/unit/program_fixture.h"

namespace taviro {

class ActionTest : public ProgramTest {
  protected:
    ActionTest() {
        PrepareBare();
        Speech.objVoice = platform::headless::MakePlainVoice();
        forms::FrmMain->List1.Visible = false;
        FillMap(CommonMap, {L"a b c d", L"e f g h", L"i j k l", L"m n o p"});
        ShowMap(true);
        Desktop.TakeEffects();
    }

    /// Text that the program in front received.
    static std::wstring Typed() { return Desktop.Keyboard.strTyped; }
};

}  // namespace taviro
