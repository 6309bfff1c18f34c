// SPDX-License-Identifier: MIT
// The voice form: how it comes up, what each control applies and speaks, and what it leaves behind.
#include "dialogs/voice_form.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/main_menu.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "platform/metrics.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

class VoiceFormTest : public ProgramTest {
  protected:
    VoiceFormTest() {
        PutData(L"setting.ini", L"[Voice]\r\nName=Zuzana\r\nRate=4\r\nVolume=70\r\nPitch=-3\r\n");
        PrepareBare();
        pEngine = InstallEngine();
        InstallRecorder(L"Parlex.app", "reader");
        CreateSpeechReader();
        Speech.LoadVoiceForm = [] { FrmVoice->Load(); };
        Desktop.TakeEffects();
    }
    ~VoiceFormTest() override { Speech = {}; }

    static void LoadForm() {
        FrmVoice->Load();
        Desktop.TakeEffects();
    }
    static void ShowForm() {
        FrmVoice->Show();
        Desktop.TakeEffects();
    }
    /// An utterance at a pitch.
    static std::string Uttered(const std::string& strText, int32_t nPitch) {
        return "Speak \"<pitch absmiddle=\"" + std::to_string(nPitch) + "\">" + strText +
               "\" flags 11";
    }
    std::shared_ptr<EngineState> pEngine;
};

TEST_F(VoiceFormTest, Load_TakesEveryStepInOrder_WhenAllIsThere) {
    FrmVoice->Load();
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"engine created", "Voice = \"Zuzana\"",  // CheckSAPI
                       "Voice = \"Zuzana\"",                    // the entry is selected
                       "Rate = 4", "Rate = 4", Uttered("70", -3), "Volume = 70", "Volume = 70",
                       Uttered("70", -3), Uttered("35", -3)}));
    EXPECT_EQ(Speech.nSpeakFlags, 3);
    EXPECT_EQ(FrmVoice->VoiceList.Items.Get(),
              (std::vector<std::wstring>{L"Jana", L"Zuzana", L"Iveta", L"Kestrel"}));
    EXPECT_EQ(FrmVoice->VoiceList.ListIndex, 1);
    EXPECT_EQ(FrmVoice->HScroll_Rate.Value, 70);
    EXPECT_EQ(FrmVoice->HScroll_Volume.Value, 70);
    EXPECT_EQ(FrmVoice->HScroll_Pitch.Value, 35);
    EXPECT_FALSE(FrmVoice->Visible);
    EXPECT_FALSE(Program.bDialogActive);
}

TEST_F(VoiceFormTest, Load_SendsValuesToReader_WhenReaderIsChosen) {
    objSetting.VoiceName(L"Kestrel");
    FrmVoice->Load();
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"engine created", "Rate = 4", "Rate = 4", "reader.SetTempo(4&)",
                       "reader.Sayit(\"70\"&)", "Volume = 70", "Volume = 70",
                       "reader.SetVolume(int16 14)", "reader.Sayit(\"70\"&)",
                       "reader.SetPitch(-3&)", "reader.Sayit(\"35\"&)"}));
    EXPECT_EQ(FrmVoice->VoiceList.SelectedText(), L"Kestrel");
    EXPECT_TRUE(Speech.bUseReader);
}

TEST_F(VoiceFormTest, Load_LogsThePositions_WhenLogIsOn) {
    EventLog.bLog = true;
    FrmVoice->Load();
    EXPECT_EQ(EventLog.strLog, L"\r\n01:59:52 Say: 70\r\n01:59:52 Say: 70\r\n01:59:52 Say: 35");
}

TEST_F(VoiceFormTest, Load_SpeaksNothing_WhenNoBarMoves) {
    objSetting.Rate(-10);
    objSetting.Volume(0);
    objSetting.Pitch(-10);
    FrmVoice->Load();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"engine created", "Voice = \"Zuzana\"",
                                              "Voice = \"Zuzana\"", "Rate = -10", "Volume = 0"}));
    EXPECT_EQ(FrmVoice->HScroll_Rate.Value, 0);
    EXPECT_EQ(FrmVoice->HScroll_Volume.Value, 0);
    EXPECT_EQ(FrmVoice->HScroll_Pitch.Value, 0);
}

TEST_F(VoiceFormTest, Bars_AreAtTheirEnds_WhenValuesAreLargest) {
    objSetting.Rate(10);
    objSetting.Volume(100);
    objSetting.Pitch(10);
    LoadForm();
    EXPECT_EQ(FrmVoice->HScroll_Rate.Value, 100);
    EXPECT_EQ(FrmVoice->HScroll_Volume.Value, 100);
    EXPECT_EQ(FrmVoice->HScroll_Pitch.Value, 100);
}

TEST_F(VoiceFormTest, Bars_StayAtTheirStart_WhenSettingsAreOutOfRange) {
    for (const int32_t nBad : {INT32_MIN, -11, 101, INT32_MAX}) {
        objSetting.Rate(nBad);
        objSetting.Volume(nBad);
        objSetting.Pitch(nBad);
        LoadForm();
        EXPECT_EQ(FrmVoice->HScroll_Rate.Value, 0) << nBad;
        EXPECT_EQ(FrmVoice->HScroll_Volume.Value, 0) << nBad;
        EXPECT_EQ(FrmVoice->HScroll_Pitch.Value, 0) << nBad;
        EXPECT_EQ(objSetting.Pitch(), nBad) << "the user's values are not touched";
        FrmVoice->cmdOK.Click();
        EXPECT_EQ(objSetting.Rate(), nBad);
        EXPECT_EQ(objSetting.Volume(), nBad);
    }
}

TEST_F(VoiceFormTest, Frames_ShowTheLabelsTexts_WhenLoaded) {
    LoadForm();
    EXPECT_EQ(FrmVoice->Frame_List.Caption.Get(), L"&Hlasy:");
    EXPECT_EQ(FrmVoice->Frame_Rate.Caption.Get(), L"&Rychlost:");
    EXPECT_EQ(FrmVoice->Frame_Vol.Caption.Get(), L"H&lasitost:");
    EXPECT_EQ(FrmVoice->Frame_Pitch.Caption.Get(), L"&Výška:");
    EXPECT_EQ(FrmVoice->lblList.Caption.Get(), L"&Hlasy:") << "and the labels keep theirs";
}

TEST_F(VoiceFormTest, TestControls_AreHiddenAndDoNothing_WhenLoaded) {
    ShowForm();
    EXPECT_FALSE(FrmVoice->Text1.Visible);
    for (forms::Button* pButton : {&FrmVoice->Command1, &FrmVoice->Command2, &FrmVoice->Command3}) {
        EXPECT_FALSE(pButton->Visible);
        pButton->Click();
    }
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(VoiceFormTest, Height_EndsTwiceTheButtonBelowItsTop_WhenControlsAreLaidOut) {
    LoadForm();
    EXPECT_EQ(FrmVoice->Height, 0) << "nothing is laid out yet";
    FrmVoice->cmdOK.Top = 313;
    FrmVoice->cmdOK.Height = 49;
    FrmVoice->Show();
    EXPECT_EQ(FrmVoice->Height, (313 + 2 * 49) * 15);
    FrmVoice->Unload();
    Desktop.nDpi = 192;
    FrmVoice->Load();
    EXPECT_EQ(FrmVoice->Height, (313 + 2 * 49) * 7);
}

// Which entry a name selects, in a list with two voices of one name.
TEST_F(VoiceFormTest, List_SelectsLastOfThem_WhenSeveralVoicesHaveTheName) {
    pEngine->Voices = {L"Zuzana", L"Jana", L"Zuzana", L"zuzana"};
    FrmVoice->Load();
    EXPECT_EQ(FrmVoice->VoiceList.ListIndex, 2);
    const Effects Done = Desktop.TakeEffects();
    EXPECT_EQ(std::count(Done.begin(), Done.end(), "Voice = \"Zuzana\""), 3)
        << "each selection runs the list's handler";
}

TEST_F(VoiceFormTest, List_SelectsNothing_WhenVoiceIsNotInstalled) {
    objSetting.VoiceName(L"Male");
    LoadForm();
    EXPECT_EQ(FrmVoice->VoiceList.ListIndex, -1);
    EXPECT_EQ(objSetting.VoiceName(), L"Male");
    EXPECT_FALSE(Speech.bUseReader);
}

TEST_F(VoiceFormTest, List_LeavesOutAVoice_WhenItDoesNotTellItsName) {
    pEngine->nBrokenToken = 0;
    LoadForm();
    EXPECT_EQ(FrmVoice->VoiceList.Items.Get(),
              (std::vector<std::wstring>{L"Zuzana", L"Iveta", L"Kestrel"}));
}

TEST_F(VoiceFormTest, Choice_SwitchesBetweenReaderAndEngine_WhenUserClicksTheList) {
    ShowForm();
    FrmVoice->VoiceList.Select(3);
    EXPECT_EQ(objSetting.VoiceName(), L"Kestrel");
    EXPECT_TRUE(Speech.bUseReader);
    SpeakIt(L"a");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"reader.Sayit(\"a\"&)"});
    FrmVoice->VoiceList.Select(2);
    EXPECT_EQ(objSetting.VoiceName(), L"Iveta");
    EXPECT_FALSE(Speech.bUseReader);
    SpeakIt(L"a");
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"Voice = \"Iveta\"", Uttered("a", -3)}));
}

TEST_F(VoiceFormTest, Choice_KeepsTheSpeakingVoice_WhenTheChosenOneWasRemovedMeanwhile) {
    ShowForm();
    pEngine->Voices = {L"Zuzana"};
    FrmVoice->VoiceList.Select(2);
    EXPECT_EQ(objSetting.VoiceName(), L"Iveta");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    FrmVoice->HScroll_Pitch.MoveTo(50);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("50")});
}

// What the positions of the rate and pitch bars mean; the volume bar's, to the reader.
struct PositionCase {
    int32_t nPosition;
    int32_t nLevel;
    int32_t nReaderVolume;
};
constexpr PositionCase POSITIONS[] = {
    {0, -10, 0}, {2, -10, 0}, {3, -9, 1},  {49, 0, 10}, {50, 0, 10},  {52, 0, 10},
    {53, 1, 11}, {57, 1, 11}, {58, 2, 12}, {97, 9, 19}, {98, 10, 20}, {100, 10, 20},
};

TEST_F(VoiceFormTest, Rate_IsPositionByFiveLessTenRounded_WhenBarMoves) {
    ShowForm();
    for (const PositionCase& Case : POSITIONS) {
        FrmVoice->HScroll_Rate.MoveTo(Case.nPosition);
        EXPECT_EQ(objSetting.Rate(), Case.nLevel) << Case.nPosition;
        EXPECT_EQ(Desktop.TakeEffects(), (Effects{"Rate = " + std::to_string(Case.nLevel),
                                                  Uttered(std::to_string(Case.nPosition), -3)}));
    }
}

TEST_F(VoiceFormTest, Volume_IsPosition_WhenBarMoves) {
    ShowForm();
    for (const PositionCase& Case : POSITIONS) {
        const std::string strPosition = std::to_string(Case.nPosition);
        FrmVoice->HScroll_Volume.MoveTo(Case.nPosition);
        EXPECT_EQ(objSetting.Volume(), Case.nPosition);
        EXPECT_EQ(Desktop.TakeEffects(),
                  (Effects{"Volume = " + strPosition, Uttered(strPosition, -3)}));
    }
}

TEST_F(VoiceFormTest, Pitch_IsHeardAtOnceThroughTheMarkup_WhenBarMoves) {
    ShowForm();
    for (const PositionCase& Case : POSITIONS) {
        FrmVoice->HScroll_Pitch.MoveTo(Case.nPosition);
        EXPECT_EQ(objSetting.Pitch(), Case.nLevel) << Case.nPosition;
        EXPECT_EQ(Desktop.TakeEffects(),
                  Effects{Uttered(std::to_string(Case.nPosition), Case.nLevel)});
    }
}

TEST_F(VoiceFormTest, Bars_TellTheReader_WhenItIsChosen) {
    objSetting.VoiceName(L"Kestrel");
    ShowForm();
    for (const PositionCase& Case : POSITIONS) {
        const std::string strLevel = std::to_string(Case.nLevel);
        const std::string strSaid = "reader.Sayit(\"" + std::to_string(Case.nPosition) + "\"&)";
        FrmVoice->HScroll_Rate.MoveTo(Case.nPosition);
        EXPECT_EQ(Desktop.TakeEffects(),
                  (Effects{"Rate = " + strLevel, "reader.SetTempo(" + strLevel + "&)", strSaid}));
        FrmVoice->HScroll_Volume.MoveTo(Case.nPosition);
        EXPECT_EQ(Desktop.TakeEffects(),
                  (Effects{"Volume = " + std::to_string(Case.nPosition),
                           "reader.SetVolume(int16 " + std::to_string(Case.nReaderVolume) + ")",
                           strSaid}));
        FrmVoice->HScroll_Pitch.MoveTo(Case.nPosition);
        EXPECT_EQ(Desktop.TakeEffects(), (Effects{"reader.SetPitch(" + strLevel + "&)", strSaid}));
    }
}

TEST_F(VoiceFormTest, Bars_ApplyInSilence_WhenTheyAreNotVisible) {
    ShowForm();
    for (forms::ScrollBar* pBar :
         {&FrmVoice->HScroll_Rate, &FrmVoice->HScroll_Volume, &FrmVoice->HScroll_Pitch}) {
        pBar->Visible = false;
        pBar->MoveTo(40);
    }
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"Rate = -2", "Volume = 40"}));
    EXPECT_EQ(objSetting.Pitch(), -2);
}

TEST_F(VoiceFormTest, Typing_IsNotIntercepted_FromActivationUntilTheFormGoes) {
    LoadForm();
    EXPECT_FALSE(Program.bDialogActive);
    FrmVoice->Show();
    EXPECT_TRUE(Program.bDialogActive);
    FrmVoice->cmdOK.Click();
    EXPECT_FALSE(Program.bDialogActive);
}

TEST_F(VoiceFormTest, OK_SavesAllSettingsAndReleasesEngine_WhenClicked) {
    ShowForm();
    objSetting.CellWidth(90);  // of another dialog
    FrmVoice->HScroll_Rate.MoveTo(80);
    FrmVoice->VoiceList.Select(2);
    Desktop.TakeEffects();
    FrmVoice->cmdOK.Click();
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"save " + platform::ToUtf8(DATA_PATH) + "\\setting.ini", "engine released",
                       "FrmVoice hidden"}));
    EXPECT_FALSE(FrmVoice->IsLoaded());
    const std::wstring strSaved = DataText(L"setting.ini");
    for (const wchar_t* szLine : {L"Name=Iveta\r\n", L"Rate=6\r\n", L"CellWidth=90\r\n"})
        EXPECT_NE(strSaved.find(szLine), std::wstring::npos) << platform::ToUtf8(szLine);
}

TEST_F(VoiceFormTest, OK_StoresWhatTheEngineHas_WhenItDiffersFromTheBars) {
    ShowForm();
    pEngine->nRate = -2;
    pEngine->nVolume = 33;
    FrmVoice->cmdOK.Click();
    EXPECT_EQ(objSetting.Rate(), -2);
    EXPECT_EQ(objSetting.Volume(), 33);
    for (const wchar_t* szLine : {L"Rate=-2\r\n", L"Volume=33\r\n"})
        EXPECT_NE(DataText(L"setting.ini").find(szLine), std::wstring::npos)
            << platform::ToUtf8(szLine);
}

TEST_F(VoiceFormTest, OK_ChangesNothing_WhenUserChangedNothing) {
    ShowForm();
    objSetting.SaveSetting();
    Desktop.TakeEffects();
    FrmVoice->cmdOK.Click();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"engine released", "FrmVoice hidden"}));
}

TEST_F(VoiceFormTest, Controls_AreSetAfresh_WhenFormIsLoadedAgain) {
    ShowForm();
    FrmVoice->VoiceList.Select(3);
    FrmVoice->HScroll_Pitch.MoveTo(90);
    FrmVoice->Text1.Type(L"zkouška");
    FrmVoice->cmdOK.Click();
    pEngine->Voices = {L"Iveta"};
    objSetting.VoiceName(L"Male");
    objSetting.Pitch(-10);
    FrmVoice->Load();
    EXPECT_EQ(FrmVoice->VoiceList.Items.Get(), (std::vector<std::wstring>{L"Iveta", L"Kestrel"}));
    EXPECT_EQ(FrmVoice->VoiceList.ListIndex, -1);
    EXPECT_EQ(FrmVoice->HScroll_Pitch.Value, 0);
    EXPECT_EQ(FrmVoice->Text1.Text.Get(), L"");
    EXPECT_EQ(objSetting.VoiceName(), L"Male");
}

TEST_F(VoiceFormTest, Speech_LoadsTheFormWithAllItsSteps_WhenItWasClosed) {
    ShowForm();
    FrmVoice->cmdOK.Click();
    Desktop.TakeEffects();
    SpeakIt(L"a");
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"engine created", "Voice = \"Zuzana\"", "Voice = \"Zuzana\"", "Rate = 4",
                       "Rate = 4", Uttered("70", -3), "Volume = 70", "Volume = 70",
                       Uttered("70", -3), Uttered("35", -3), Uttered("a", -3)}));
    EXPECT_FALSE(FrmVoice->Visible);
}

TEST_F(VoiceFormTest, Speech_MakesNoSecondEngine_WhenFormIsLoaded) {
    LoadForm();
    SpeakIt(L"a");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Uttered("a", -3)});
}

TEST_F(VoiceFormTest, Dialog_Works_WhenThereIsNoEngine) {
    Desktop.Classes.erase(L"SAPI.SpVoice");
    ShowForm();
    EXPECT_EQ(FrmVoice->VoiceList.Items.Get(), std::vector<std::wstring>{L"Kestrel"});
    EXPECT_EQ(FrmVoice->HScroll_Rate.Value, 70) << "the settings' values";
    EXPECT_EQ(FrmVoice->HScroll_Volume.Value, 70);
    FrmVoice->HScroll_Volume.MoveTo(60);
    FrmVoice->HScroll_Rate.MoveTo(30);
    FrmVoice->VoiceList.Select(0);
    FrmVoice->HScroll_Pitch.MoveTo(60);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"reader.SetPitch(2&)", "reader.Sayit(\"60\"&)"}));
    FrmVoice->cmdOK.Click();
    EXPECT_NE(DataText(L"setting.ini").find(L"Name=Kestrel"), std::wstring::npos);
    EXPECT_EQ(objSetting.Volume(), 60);
    EXPECT_EQ(objSetting.Rate(), -4);
    EXPECT_EQ(objSetting.Pitch(), 2);
}

TEST_F(VoiceFormTest, Dialog_Works_WhenReaderIsChosenButMissing) {
    Speech.objSpeechReader.reset();
    objSetting.VoiceName(L"Kestrel");
    ShowForm();
    FrmVoice->HScroll_Rate.MoveTo(50);
    FrmVoice->HScroll_Volume.MoveTo(50);
    FrmVoice->HScroll_Pitch.MoveTo(50);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"Rate = 0", "Volume = 50"}));
    FrmVoice->cmdOK.Click();
    EXPECT_FALSE(FrmVoice->IsLoaded());
    EXPECT_EQ(objSetting.Volume(), 50);
}

TEST_F(VoiceFormTest, Menu_ShowsTheLoadedFormModeless_WhenChosen) {
    LoadForm();
    forms::FrmMain->mnuVoice.Click();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"FrmVoice shown"}) << "nothing is spoken again";
}

}  // namespace
}  // namespace taviro
