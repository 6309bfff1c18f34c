// SPDX-License-Identifier: MIT
// The fixture of start-up and shutdown: what each step does stands in the transcript.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "actions/prediction.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/program_fixture.h"

namespace taviro {

inline const std::wstring SEEDS = L"C:\\Program Files\\Taviro\\data\\";
inline const std::string SETTING_INI = platform::ToUtf8(DATA_PATH) + "\\setting.ini";

// The program's folder holds a map and settings; all late-bound classes are registered. Changes of
// the controls that start-up and shutdown touch stand in the transcript beside the desktop's own
// effects, with what was already there at that moment.
class StartupTest : public ProgramTest {
  protected:
    StartupTest() {
        Desktop.Files.Put(SEEDS + L"data.ini", "[1,1]A,65\r\n[2,1]B,66\r\n[1,2]C,67\r\n");
        Desktop.Files.Put(SEEDS + L"setting.ini",
                          "[Info]\r\nLog=1\r\nCellTextSize=9\r\nCellWidth=61\r\nCellHeight=17\r\n"
                          "[Voice]\r\nName=Zuzana\r\n");
        pEngine = InstallEngine();
        InstallRecorder(L"Parlex.app", "reader");
        NoteControls();
    }
    ~StartupTest() override {
        Prediction.objDictionary.reset();
        Speech = {};
    }

    static void NoteControls() {
        auto View = forms::FrmMain->OnShowChange;
        forms::FrmMain->OnShowChange = [View](forms::Control& Changed, forms::Aspect nAspect) {
            View(Changed, nAspect);
            Note(Changed, nAspect);
        };
    }
    static void Note(const forms::Control& Changed, forms::Aspect nAspect) {
        const std::string strName = platform::ToUtf8(Changed.strName);
        const bool bTimer =
            &Changed == &forms::FrmMain->Timer1 || &Changed == &forms::FrmMain->ScanTimer;
        if (bTimer && nAspect == forms::Aspect::Enabled) {
            Desktop.Record(strName + (Changed.Enabled ? " on" : " off"));
        }
        if (&Changed == &forms::FrmMain->List1 && nAspect == forms::Aspect::Visibility) {
            Desktop.Record(Changed.Visible ? "list shown" : "list hidden");
        }
        if (&Changed == &forms::FrmMain->Label1 && nAspect == forms::Aspect::Text) {
            Desktop.Record("status " + platform::ToUtf8(forms::FrmMain->Label1.Caption.Get()));
        }
        if (&Changed == &forms::FrmMain->mnuLog && nAspect == forms::Aspect::Checked) {
            Desktop.Record("mnuLog ticked");
        }
    }
    /// Effects without those of the voice form's own controls.
    static Effects TakeOutline() {
        Effects All = Desktop.TakeEffects();
        std::erase_if(All, [](const std::string& str) {
            return str.starts_with("Speak") || str.starts_with("Rate") ||
                   str.starts_with("Volume") || str.starts_with("Voice") ||
                   str.starts_with("reader.");
        });
        return All;
    }
    std::shared_ptr<EngineState> pEngine;
};

}  // namespace taviro
