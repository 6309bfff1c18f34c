// SPDX-License-Identifier: MIT
// Speech while the engine answers late, otherwise than it is asked, or not at all: what it does not
// tell is as if it were not there, and its current voice stays.
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "feedback/speech.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

using Answers = std::map<std::wstring, AutomationValue>;

// An object that answers each member as told and refuses the others. What is put is noted.
AutomationObject MakeAnswering(const Answers& Told) {
    return platform::headless::MakeObject([Told](MemberUse nUse, const std::wstring& strMember,
                                                 std::span<AutomationArgument>,
                                                 AutomationValue& Result) {
        if (nUse == MemberUse::Put) Desktop.Record("put " + platform::ToUtf8(strMember));
        const auto Found = Told.find(strMember);
        if (Found == Told.end()) return false;
        Result = Found->second;
        return true;
    });
}

const AutomationValue TEXT = std::wstring(L"one");
const AutomationValue NUMBER = int32_t{1};

// A list of one voice, "Jana"; a row leaves out or changes one of its answers.
AutomationObject ListOf(const Answers& OfList, const Answers& OfVoice) {
    Answers Told = OfList;
    if (!Told.contains(L"Item")) Told[L"Item"] = MakeAnswering(OfVoice);
    return MakeAnswering(Told);
}

const Answers TELLS_COUNT{{L"Count", NUMBER}};
const Answers TELLS_NAME{{L"GetDescription", std::wstring(L"Jana")}};

class SpeechAnswers : public ProgramTest {
  protected:
    SpeechAnswers() {
        PrepareBare();
        objSetting.VoiceName(L"Jana");
    }
    ~SpeechAnswers() override { Speech = {}; }

    static void AnswerVoicesWith(const AutomationValue& List) {
        Speech.objVoice = MakeAnswering({{L"GetVoices", List}});
    }
};

TEST_F(SpeechAnswers, Voice_IsListedAndChosen_OnlyWhenEveryAnswerIsOfItsKind) {
    const struct {
        const char* szName;
        AutomationValue List;
        bool bKnown;
    } Rows[] = {
        {"all answers", ListOf(TELLS_COUNT, TELLS_NAME), true},
        {"the list is a text", TEXT, false},
        {"the list is empty", AutomationObject{}, false},
        {"the count is refused", ListOf({}, TELLS_NAME), false},
        {"the count is a text", ListOf({{L"Count", TEXT}}, TELLS_NAME), false},
        {"the voice is a text", ListOf({{L"Count", NUMBER}, {L"Item", TEXT}}, {}), false},
        {"the voice is empty", ListOf({{L"Count", NUMBER}, {L"Item", AutomationObject{}}}, {}),
         false},
        {"the name is refused", ListOf(TELLS_COUNT, {}), false},
        {"the name is a number", ListOf(TELLS_COUNT, {{L"GetDescription", NUMBER}}), false},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        AnswerVoicesWith(Row.List);
        EXPECT_EQ(VoiceDescriptions().size(), Row.bKnown ? 1U : 0U);
        CheckSAPI();
        EXPECT_EQ(Desktop.TakeEffects(), Row.bKnown ? Effects{"put Voice"} : Effects{});
    }
}

// The search for a name ends at such a voice too: those behind it could be offered, never chosen.
TEST_F(SpeechAnswers, VoicesBehindOneThatIsNotGiven_AreNotListed) {
    const auto GiveAllButTheSecond = [](MemberUse nUse, const std::wstring&,
                                        std::span<AutomationArgument> All,
                                        AutomationValue& Result) {
        if (nUse == MemberUse::Get) {
            Result = int32_t{3};
            return true;
        }
        if (All[0].Value == AutomationValue{int32_t{1}}) return false;
        Result = MakeAnswering(TELLS_NAME);
        return true;
    };
    AnswerVoicesWith(platform::headless::MakeObject(GiveAllButTheSecond));
    EXPECT_EQ(VoiceDescriptions(), std::vector<std::wstring>{L"Jana"});
}

// The engine's list is asked for once more before the voice is taken from it.
TEST_F(SpeechAnswers, CurrentVoiceStays_WhenTheFoundOneHasGoneMeanwhile) {
    const struct {
        const char* szName;
        AutomationValue Second;
    } Rows[] = {
        {"no list any more", std::monostate{}},
        {"a list without the voice", MakeAnswering(TELLS_COUNT)},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        int nAsked = 0;
        Speech.objVoice = platform::headless::MakeObject([&](MemberUse nUse, const std::wstring&,
                                                             std::span<AutomationArgument>,
                                                             AutomationValue& Result) {
            if (nUse == MemberUse::Put) Desktop.Record("put");
            Result = ++nAsked == 1 ? AutomationValue{ListOf(TELLS_COUNT, TELLS_NAME)} : Row.Second;
            return true;
        });
        CheckSAPI();
        EXPECT_EQ(nAsked, 2);
        EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    }
}

TEST_F(SpeechAnswers, RateAndVolume_AreReadAndSet) {
    Speech.objVoice = MakeAnswering({{L"Rate", int32_t{-4}}, {L"Volume", int32_t{70}}});
    int32_t nRate = 0, nVolume = 0;
    EXPECT_TRUE(GetVoiceRate(nRate));
    EXPECT_TRUE(GetVoiceVolume(nVolume));
    EXPECT_EQ(nRate, -4);
    EXPECT_EQ(nVolume, 70);
    SetVoiceRate(3);
    SetVoiceVolume(50);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"put Rate", "put Volume"}));
}

TEST_F(SpeechAnswers, RateAndVolume_LeaveTheNumberAlone_WhenTheEngineDoesNotTell) {
    const AutomationObject Engines[] = {nullptr, MakeAnswering({}),
                                        MakeAnswering({{L"Rate", TEXT}, {L"Volume", TEXT}})};
    for (const AutomationObject& Engine : Engines) {
        Speech.objVoice = Engine;
        int32_t nNumber = 42;
        EXPECT_FALSE(GetVoiceRate(nNumber));
        EXPECT_FALSE(GetVoiceVolume(nNumber));
        EXPECT_EQ(nNumber, 42);
    }
}

TEST_F(SpeechAnswers, Reader_IsToldItsLevels_OnlyWhileItSpeaks) {
    InstallRecorder(L"Parlex.app", "reader");
    CreateSpeechReader();
    Desktop.TakeEffects();
    for (const bool bSpeaks : {false, true}) {
        Speech.bUseReader = bSpeaks;
        SetReaderTempo(-3);
        SetReaderPitch(5);
        SetReaderVolume(20);
        EXPECT_EQ(Desktop.TakeEffects(),
                  bSpeaks ? (Effects{"reader.SetTempo(-3&)", "reader.SetPitch(5&)",
                                     "reader.SetVolume(int16 20)"})
                          : Effects{});
    }
}

TEST_F(SpeechAnswers, VoiceForm_IsLoadedBeforeAnythingIsSaid) {
    InstallEngine();
    Speech.LoadVoiceForm = [] {
        if (Speech.objVoice == nullptr) CreateVoice();
    };
    SpeakIt(L"a");
    SpeakIt(L"b");
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"engine created", Said("a"), Said("b")}));
}

}  // namespace
}  // namespace taviro
