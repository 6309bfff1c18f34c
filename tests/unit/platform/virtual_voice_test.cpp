// SPDX-License-Identifier: MIT
// The stand-in of the speech engine: what it tells, and what it refuses as the real one does.
#include <gtest/gtest.h>

#include "platform/headless/voice.h"

namespace taviro::platform::headless {
namespace {

using Arguments = std::vector<AutomationArgument>;

class VirtualVoiceTest : public ::testing::Test {
  protected:
    VirtualVoiceTest() {
        pVoice->Voices = {L"Jana", L"Iveta"};
        pVoice->OnSpeak = [this](const AutomationArgument& Text, const AutomationArgument& Flags) {
            Heard.push_back(Text.Value);
            Heard.push_back(Flags.Value);
        };
        pVoice->OnPut = [this](const std::wstring& strProperty, const AutomationValue& Value) {
            Heard.emplace_back(strProperty);
            Heard.push_back(Value);
        };
    }
    AutomationObject VoiceAt(int32_t nIndex) {
        Arguments Empty{{std::wstring()}, {std::wstring()}};
        Arguments Index{{nIndex}};
        AutomationValue List;
        AutomationValue Token;
        EXPECT_TRUE(CallMethod(Engine, L"GetVoices", Empty, List));
        EXPECT_TRUE(CallMethod(std::get<AutomationObject>(List), L"Item", Index, Token));
        return std::get<AutomationObject>(Token);
    }
    bool Call(const std::wstring& strMethod, Arguments Given) {
        return CallMethod(Engine, strMethod, Given, Result);
    }

    std::shared_ptr<VirtualVoice> pVoice = std::make_shared<VirtualVoice>();
    AutomationObject Engine = MakeObject(
        [this](MemberUse nUse, const std::wstring& strMember, std::span<AutomationArgument> All,
               AutomationValue& Found) { return UseVoice(pVoice, nUse, strMember, All, Found); });
    std::vector<AutomationValue> Heard;
    AutomationValue Result;
};

TEST_F(VirtualVoiceTest, Utterance_IsHeardWithItsFlags) {
    EXPECT_TRUE(Call(L"Speak", {{std::wstring(L"ahoj")}, {int32_t{11}}}));
    EXPECT_EQ(Heard, (std::vector<AutomationValue>{std::wstring(L"ahoj"), int32_t{11}}));
}

TEST_F(VirtualVoiceTest, RateAndVolume_AreReadAsTheyWerePut) {
    EXPECT_TRUE(PutProperty(Engine, L"Rate", int32_t{-3}));
    EXPECT_TRUE(PutProperty(Engine, L"Volume", int32_t{70}));
    EXPECT_TRUE(GetProperty(Engine, L"Rate", {}, Result));
    EXPECT_EQ(Result, AutomationValue{int32_t{-3}});
    EXPECT_TRUE(GetProperty(Engine, L"Volume", {}, Result));
    EXPECT_EQ(Result, AutomationValue{int32_t{70}});
}

TEST_F(VirtualVoiceTest, ChosenVoice_IsHeardByItsDescription) {
    EXPECT_TRUE(PutProperty(Engine, L"Voice", VoiceAt(1)));
    EXPECT_EQ(Heard,
              (std::vector<AutomationValue>{std::wstring(L"Voice"), std::wstring(L"Iveta")}));
}

TEST_F(VirtualVoiceTest, BrokenVoice_CannotBeChosen) {
    pVoice->nBrokenToken = 0;
    EXPECT_FALSE(PutProperty(Engine, L"Voice", VoiceAt(0)));
    EXPECT_TRUE(Heard.empty());
}

TEST_F(VirtualVoiceTest, WrongCalls_AreRefused) {
    EXPECT_FALSE(Call(L"Speak", {{std::wstring(L"ahoj")}}));
    EXPECT_FALSE(Call(L"GetVoices", {{std::wstring(L"Name=x")}, {std::wstring()}}));
    EXPECT_FALSE(Call(L"Sing", {{std::wstring()}, {int32_t{0}}}));
    EXPECT_FALSE(PutProperty(Engine, L"Rate", std::wstring(L"fast")));
    EXPECT_FALSE(PutProperty(Engine, L"Pitch", int32_t{1}));
    EXPECT_FALSE(GetProperty(Engine, L"Pitch", {}, Result));
    EXPECT_TRUE(Heard.empty());
}

TEST_F(VirtualVoiceTest, VoiceOutsideTheList_IsRefused) {
    Arguments Empty{{std::wstring()}, {std::wstring()}};
    AutomationValue List;
    ASSERT_TRUE(CallMethod(Engine, L"GetVoices", Empty, List));
    for (const int32_t nIndex : {-1, 2}) {
        Arguments Index{{nIndex}};
        EXPECT_FALSE(CallMethod(std::get<AutomationObject>(List), L"Item", Index, Result));
    }
}

TEST(PlainVoice, Utterance_StandsInTheTranscript_WithoutItsPitch) {
    Desktop = DesktopState{};
    const AutomationObject Voice = MakePlainVoice();
    AutomationValue Result;
    for (const wchar_t* szText : {L"<pitch absmiddle=\"0\">ahoj", L""}) {
        Arguments Given{{std::wstring(szText)}, {int32_t{11}}};
        EXPECT_TRUE(CallMethod(Voice, L"Speak", Given, Result));
    }
    EXPECT_EQ(Desktop.TakeEffects(), (std::vector<std::string>{"say ahoj", "silence"}));
}

}  // namespace
}  // namespace taviro::platform::headless
