// SPDX-License-Identifier: MIT
// Announcing: the sound file of that name, else speech.
#include "feedback/announce.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

const std::wstring SOUNDS = L"C:\\Program Files\\Taviro\\sound\\";
const std::string SOUNDS_UTF8 = "C:\\Program Files\\Taviro\\sound\\";

class AnnounceTest : public ProgramTest {
  protected:
    AnnounceTest() {
        PrepareBare();
        InstallEngine();
        CreateVoice();
        Desktop.TakeEffects();
    }
    static void PutSound(const std::wstring& strName) {
        Desktop.Files.Put(SOUNDS + strName + L".wav", "RIFF");
    }
};

TEST_F(AnnounceTest, SoundPath_StandsInProgramFolder_WhenNameIsGiven) {
    EXPECT_EQ(SoundPath(L"mode_app"), SOUNDS + L"mode_app.wav");
}

TEST_F(AnnounceTest, Announce_PlaysInBackgroundWithoutSpeech_WhenSoundFileExists) {
    PutSound(L"mode_arrow");
    const uint32_t nBefore = Desktop.nNow;
    Announce(L"mode_arrow");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"sound " + SOUNDS_UTF8 + "mode_arrow.wav"});
    EXPECT_EQ(Desktop.nNow, nBefore) << "it does not wait for the sound";
}

TEST_F(AnnounceTest, Announce_Speaks_WhenTheNameIsAPatternForFiles) {
    for (const wchar_t* szText : {L"?", L"*", L"<", L">", L"\""}) {
        PutSound(szText);  // as a search would answer when there is any sound of one character
        EXPECT_FALSE(HasSound(szText));
        Announce(szText);
        for (const std::string& strEffect : Desktop.TakeEffects())
            EXPECT_EQ(strEffect.find("sound "), std::string::npos) << strEffect;
    }
}

TEST_F(AnnounceTest, Announce_InterruptsSound_WhenAnotherStillPlays) {
    PutSound(L"A");
    PutSound(L"B");
    Announce(L"A");
    Announce(L"B");
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"sound " + SOUNDS_UTF8 + "A.wav", "sound " + SOUNDS_UTF8 + "B.wav"}));
}

struct WordCase {
    const char* szName;
    const wchar_t* szText;
    const char* szSpoken;
};

TEST_F(AnnounceTest, Announce_SpeaksText_WhenSoundFileIsMissing) {
    constexpr WordCase CASES[] = {
        {"selection", L"mode_select", "Výběr"},
        {"scanning", L"mode_scan", "Sken"},
        {"arrows", L"mode_arrow", "Šipky"},
        {"application", L"mode_app", "Aplikace"},
        // Any other text is spoken as it is.
        {"a cell", L"ž", "ž"},
        {"auto-repeat", L"autorepeat", "autorepeat"},
        {"other case is no mode", L"Mode_select", "Mode_select"},
        {"blank behind is no mode", L"mode_app ", "mode_app "},
        {"part of a name is no mode", L"mode", "mode"},
        {"no text", L"", ""},
    };
    for (const WordCase& Case : CASES) {
        Announce(Case.szText);
        EXPECT_EQ(Desktop.TakeEffects(), Effects{Said(Case.szSpoken)}) << Case.szName;
    }
}

TEST_F(AnnounceTest, Announce_PlaysCellsOwnSound_WhenThereIsOne) {
    PutSound(L"Konec");
    Announce(L"Konec");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"sound " + SOUNDS_UTF8 + "Konec.wav"});
}

TEST_F(AnnounceTest, Announce_PlaysTheSameFile_WhenCellIsCalledLikeAutoRepeat) {
    PutSound(L"autorepeat");
    MapGrid Grid;
    Grid.Cell(1, 1)->Caption = L"autorepeat";
    Announce(Grid.Cell(1, 1)->Caption);
    Announce(L"autorepeat");
    const std::string strPlayed = "sound " + SOUNDS_UTF8 + "autorepeat.wav";
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{strPlayed, strPlayed}));
}

TEST_F(AnnounceTest, Announce_LogsSpeechOnly_WhenLoggingIsOn) {
    PutSound(L"A");
    EventLog.bLog = true;
    Announce(L"A");
    Announce(L"mode_scan");
    EXPECT_EQ(EventLog.strLog, L"\r\n01:59:52 Say: Sken");
}

}  // namespace
}  // namespace taviro
