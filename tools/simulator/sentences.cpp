// SPDX-License-Identifier: MIT
#include "tools/simulator/sentences.h"

#include "tools/simulator/expectations.h"
#include "tools/simulator/scene.h"
#include "tools/simulator/user_acts.h"

namespace taviro::simulator {

namespace {

constexpr Sentence SENTENCES[] = {
    // The scene.
    {"seed from FOLDER", "copy a real folder's files into the program's data folder", SeedFrom},
    {"program file FILE BLOCK", "a file in the program folder (Windows-1250)", PutProgramFile},
    {"program file FILE from FILE", "the same, copied from a real file", CopyProgramFile},
    {"data file FILE BLOCK", "a file in the user's data folder (Windows-1250)", PutDataFile},
    {"data file FILE from FILE", "the same, copied from a real file", CopyDataFile},
    {"settings BLOCK", "the user's setting.ini", PutSettings},
    {"map BLOCK", "the user's common map, data.ini", PutCommonMap},
    {"map for NAME BLOCK", "the user's map for an application", PutAppMap},
    {"locked data file FILE", "another program holds this file", LockDataFile},
    {"sound NAME", "the program has a sound of this name", PutSound},
    {"sounds last TIME ms", "how long every sound plays (300 ms unless said)", SetSoundLength},
    {"window TEXT of NAME", "a window of a program: title, executable", OpenWindow},
    {"window TEXT of NAME class NAME", "the same with the window's class", OpenWindow},
    {"joystick", "a joystick is plugged in (so at the beginning)", PlugJoystick},
    {"no joystick", "the joystick is not plugged in", UnplugJoystick},
    {"voice TEXT", "the speech engine has a voice of this name", AddVoice},
    {"no speech", "there is no speech engine", RemoveSpeech},
    {"reader", "the external speech reader is installed", AddReader},
    {"relay", "a host program's speech relay is installed", AddRelay},
    {"prediction TEXT gives TEXT", "the word dictionary offers this list", AddPrediction},
    {"other instance", "Taviro runs already", RunOtherInstance},
    // What happens.
    {"start", "start the program; after \"shut down\", start it again", StartProgram},
    {"shut down", "end the program", ShutDown},
    {"wait TIME ms", "let time pass", Wait},
    {"front TEXT", "the window with this title comes to the front", BringToFront},
    {"front nothing", "no window is in front", BringNothingToFront},
    {"stick DIRECTION", "push the stick and leave it there", PushStick},
    {"stick DIRECTION for TIME ms", "push it, hold it, let it go to the centre", HoldStick},
    {"stick at POINT", "raw axis values: 0 to 65535, centre 32767", PlaceStick},
    {"press button BUTTON", "press for 100 ms, then wait 100 ms; buttons count from 0",
     PressButton},
    {"press button BUTTON for TIME ms", "the same, held this long", PressButtonFor},
    {"hold button BUTTON", "press it and keep it down", HoldButton},
    {"release button BUTTON", "let it go", ReleaseButton},
    {"press key KEY", "press and release a key of the keyboard", PressKey},
    {"key down KEY", "press it and keep it down", KeyDown},
    {"key up KEY", "let it go", KeyUp},
    {"pause joystick", "hold the input back, as the settings dialog does", PauseJoystick},
    {"resume joystick", "let it through again", ResumeJoystick},
    {"command TEXT", "another program writes this into the control box", WriteCommand},
    {"menu TEXT", "choose this entry of the menu", ChooseMenu},
    {"show map", "print the map", ShowMapNow},
    {"ignore effects", "leave the effects so far out of the next comparison", IgnoreEffects},
    // What is expected.
    {"expect BLOCK", "all effects since the last comparison, in order", ExpectEffects},
    {"expect times BLOCK", "the same with the time before each", ExpectTimedEffects},
    {"expect nothing", "no effect since the last comparison", ExpectNothing},
    {"expect cell CELL", "the cursor stands there", ExpectCell},
    {"expect cell CELL TEXT", "the same, and the cell has this text", ExpectCellText},
    {"expect mode MODE", "the operating mode", ExpectMode},
    {"expect typed TEXT", "all that was typed so far (⏎ for Enter)", ExpectTyped},
    {"expect caption TEXT", "the main window's caption", ExpectCaption},
    {"expect status TEXT", "the line below the map", ExpectStatus},
    {"expect map BLOCK", "the map as \"show map\" prints it", ExpectMap},
    {"expect keys up", "no key is left down", ExpectKeysUp},
    {"expect data file FILE BLOCK", "the file's whole text", ExpectDataFile},
    {"expect data file FILE has TEXT", "a line of the file", ExpectDataFileLine},
    {"expect no data file FILE", "there is no such file", ExpectNoDataFile},
};

}  // namespace

std::span<const Sentence> Language() {
    return SENTENCES;
}

}  // namespace taviro::simulator
