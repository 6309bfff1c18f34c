// SPDX-License-Identifier: MIT
// Speech: what reaches the engine or the reader, which of them speaks, and what happens without
// them.
#include "feedback/speech.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "feedback/event_log.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

constexpr platform::WindowHandle HOST_WINDOW = 77;

void OpenHostWindow(const std::wstring& strTitle, const std::wstring& strClass) {
    Desktop.Windows = {{HOST_WINDOW, strTitle, strClass, 1, 1}};
    InstallRecorder(L"Relayer.Voice", "relay");
}

const Effects RELAY_QUIETED{"relay created", "relay.Voice(null, int16 0, int16 4)",
                            "relay released"};

class SpeechTest : public ProgramTest {
  protected:
    SpeechTest() {
        PrepareBare();
        pEngine = InstallEngine();
        CreateVoice();
        Desktop.TakeEffects();
    }
    ~SpeechTest() override { Speech = {}; }

    static void UseReader() {
        InstallRecorder(L"Parlex.app", "reader");
        CreateSpeechReader();
        objSetting.VoiceName(L"Kestrel");
        CheckSAPI();
        Desktop.TakeEffects();
    }
    std::shared_ptr<EngineState> pEngine;
};

TEST_F(SpeechTest, SpeakIt_SpeaksMarkupInBackgroundPurging_WhenItNeedNotWait) {
    objSetting.Pitch(3);
    SpeakIt(L"čaj");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"Speak \"<pitch absmiddle=\"3\">čaj\" flags 11"});
    EXPECT_EQ(Speech.nPrefixLength, 21);
}

TEST_F(SpeechTest, SpeakIt_SpeaksToTheEndWithoutPurging_WhenItWaits) {
    OpenHostWindow(L"HOSTWATCH", L"ThunderRT6Main");
    SpeakIt(L"čaj", true);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"Speak \"<pitch absmiddle=\"0\">čaj\" flags 8"})
        << "and the host's relay is not silenced";
}

TEST_F(SpeechTest, SpeakIt_KeepsSign_WhenPitchIsNegative) {
    objSetting.Pitch(-10);
    SpeakIt(L"a");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"Speak \"<pitch absmiddle=\"-10\">a\" flags 11"});
    EXPECT_EQ(Speech.nPrefixLength, 23);
}

TEST_F(SpeechTest, SpeakIt_SpeaksBareMarkup_WhenTextIsEmpty) {
    SpeakIt(L"");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("")});
}

TEST_F(SpeechTest, SpeakIt_AddsXmlToItsFlags_WhenTheyDiffer) {
    EXPECT_EQ(Speech.nSpeakFlags, 3);
    Speech.nSpeakFlags = 1;
    SpeakIt(L"a");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"Speak \"<pitch absmiddle=\"0\">a\" flags 9"});
}

TEST_F(SpeechTest, SpeakIt_KeepsFirst70000Characters_WhenEngineSpeaks) {
    const std::wstring strLongest = std::wstring(69999, L'a') + L'z';
    SpeakIt(strLongest);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said(platform::ToUtf8(strLongest))});
    SpeakIt(strLongest + L"lost");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said(platform::ToUtf8(strLongest))});
}

TEST_F(SpeechTest, SpeakIt_SilencesHostFirst_WhenItsRelayRuns) {
    OpenHostWindow(L"HOSTWATCH", L"ThunderRT6Main");
    SpeakIt(L"a");
    Effects Expected = RELAY_QUIETED;
    Expected.push_back(Said("a"));
    EXPECT_EQ(Desktop.TakeEffects(), Expected);
}

TEST_F(SpeechTest, SpeakIt_LogsText_WhateverSpeaks) {
    EventLog.bLog = true;
    SpeakIt(L"a");
    SpeakIt(L"", true);
    UseReader();
    SpeakIt(L"b");
    Speech.objSpeechReader.reset();
    SpeakIt(L"c");
    EXPECT_EQ(EventLog.strLog,
              L"\r\n01:59:52 Say: a\r\n01:59:52 Say: \r\n01:59:52 Say: b\r\n01:59:52 Say: c");
}

TEST_F(SpeechTest, SpeakIt_GivesReaderTheBareText_WhenReaderIsChosen) {
    UseReader();
    OpenHostWindow(L"HOSTWATCH", L"ThunderRT6Main");
    SpeakIt(L"čaj");
    SpeakIt(L"", true);
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"reader.Sayit(\"čaj\"&)", "reader.WaitAndSayIt(\"\"&)"}));
}

TEST_F(SpeechTest, SpeakIt_GivesReaderTheWholeText_WhenItIsLong) {
    UseReader();
    const std::string strLong(70001, 'a');
    SpeakIt(platform::FromUtf8(strLong));
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"reader.Sayit(\"" + strLong + "\"&)"});
}

TEST_F(SpeechTest, SpeakIt_IsSilent_WhenThereIsNoEngineAndNoReader) {
    Speech.objVoice.reset();
    Desktop.TakeEffects();
    SpeakIt(L"a");
    objSetting.VoiceName(L"Kestrel");
    CheckSAPI();
    SpeakIt(L"a", true);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(SpeechTest, CreateSpeechReader_LeavesItEmpty_WhenItsProgramIsNotInstalled) {
    CreateSpeechReader();
    EXPECT_EQ(Speech.objSpeechReader, nullptr);
    InstallRecorder(L"Parlex.app", "reader");
    CreateSpeechReader();
    EXPECT_NE(Speech.objSpeechReader, nullptr);
}

// Which voice a name chooses.
struct VoiceCase {
    const char* szName;
    const wchar_t* szVoiceName;
    bool bUsesReader;
    const char* szPut;  // what the engine is told, nullptr: nothing
};

TEST_F(SpeechTest, CheckSAPI_ChoosesEngineOrReader_ByVoiceName) {
    pEngine->Voices = {L"Jana", L"Zuzana", L"Iveta", L"Zuzana"};
    constexpr VoiceCase CASES[] = {
        {"the reader", L"Kestrel", true, nullptr},
        {"first voice", L"Jana", false, "Voice = \"Jana\""},
        {"last voice", L"Iveta", false, "Voice = \"Iveta\""},
        {"the default name is no voice", L"Male", false, nullptr},
        {"other case is not the reader", L"kestrel", false, nullptr},
        {"longer is not the reader", L"Kestrel 2", false, nullptr},
        {"other case is no voice", L"jana", false, nullptr},
        {"part of a name is no voice", L"Jan", false, nullptr},
    };
    for (const VoiceCase& Case : CASES) {
        Speech.bUseReader = !Case.bUsesReader;
        objSetting.VoiceName(Case.szVoiceName);
        CheckSAPI();
        EXPECT_EQ(Speech.bUseReader, Case.bUsesReader) << Case.szName;
        EXPECT_EQ(Desktop.TakeEffects(), Case.szPut == nullptr ? Effects{} : Effects{Case.szPut})
            << Case.szName;
    }
}

TEST_F(SpeechTest, CheckSAPI_AsksForAFreshList_WhenItFoundTheVoice) {
    pEngine->nVoiceLists = 0;
    objSetting.VoiceName(L"Male");
    CheckSAPI();
    EXPECT_EQ(pEngine->nVoiceLists, 1);
    objSetting.VoiceName(L"Zuzana");
    CheckSAPI();
    EXPECT_EQ(pEngine->nVoiceLists, 3);
    objSetting.VoiceName(L"Kestrel");
    CheckSAPI();
    EXPECT_EQ(pEngine->nVoiceLists, 3) << "the reader needs no voice";
}

TEST_F(SpeechTest, CheckSAPI_KeepsVoiceAndUsesEngine_WhenEngineListsNone) {
    Speech.bUseReader = true;
    objSetting.VoiceName(L"Jana");
    pEngine->bListFails = true;
    CheckSAPI();
    EXPECT_FALSE(Speech.bUseReader);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    EXPECT_TRUE(VoiceDescriptions().empty());
}

TEST_F(SpeechTest, VoiceDescriptions_KeepEnginesOrder_WhenListed) {
    EXPECT_EQ(VoiceDescriptions(), (std::vector<std::wstring>{L"Jana", L"Zuzana", L"Iveta"}));
    Speech.objVoice.reset();
    EXPECT_TRUE(VoiceDescriptions().empty());
}

// When the host's relay is asked to be quiet.
struct HostCase {
    const char* szName;
    const wchar_t* szTitle;
    const wchar_t* szClass;
    bool bQuieted;
};

TEST_F(SpeechTest, QuietHostVoice_CallsRelay_WhenHostRuns) {
    constexpr HostCase CASES[] = {
        {"the host", L"HOSTWATCH", L"ThunderRT6Main", true},
        {"class contains the name", L"HOSTWATCH", L"xThunderRT6MainForm", true},
        {"another class", L"HOSTWATCH", L"Notepad", false},
        {"class in other case", L"HOSTWATCH", L"thunderrt6main", false},
        {"another title", L"HOSTWATCH 2", L"ThunderRT6Main", false},
    };
    for (const HostCase& Case : CASES) {
        OpenHostWindow(Case.szTitle, Case.szClass);
        QuietHostVoice();
        EXPECT_EQ(Desktop.TakeEffects(), Case.bQuieted ? RELAY_QUIETED : Effects{}) << Case.szName;
    }
}

TEST_F(SpeechTest, QuietHostVoice_AsksNothingOfAWindow_WhenNoHostRuns) {
    QuietHostVoice();
    EXPECT_TRUE(Desktop.DebuggerLines.empty()) << "no failure is told with every word";
}

TEST_F(SpeechTest, QuietHostVoice_DoesNothing_WhenRelayIsNotRegistered) {
    OpenHostWindow(L"HOSTWATCH", L"ThunderRT6Main");
    Desktop.Classes.erase(L"Relayer.Voice");
    QuietHostVoice();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(SpeechTest, QuietHostVoice_MakesAFreshRelay_WhenCalledAgain) {
    OpenHostWindow(L"HOSTWATCH", L"ThunderRT6Main");
    QuietHostVoice();
    QuietHostVoice();
    Effects Twice = RELAY_QUIETED;
    Twice.insert(Twice.end(), RELAY_QUIETED.begin(), RELAY_QUIETED.end());
    EXPECT_EQ(Desktop.TakeEffects(), Twice);
}

}  // namespace
}  // namespace taviro
