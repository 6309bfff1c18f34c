// SPDX-License-Identifier: MIT
// Voices that the system keeps apart from the engine's own.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "dialogs/voice_form.h"
#include "feedback/speech.h"
#include "platform/headless/desktop.h"
#include "platform/headless/voice.h"
#include "settings/setting.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

using platform::AutomationArgument;
using platform::AutomationObject;
using platform::AutomationValue;
using platform::headless::MemberUse;
using Names = std::vector<std::wstring>;

constexpr const wchar_t* CATEGORY_CLASS = L"SAPI.SpObjectTokenCategory";
const std::wstring UNREADABLE = L"(does not tell)";

class NewerVoices : public ProgramTest {
  protected:
    NewerVoices() {
        PrepareBare();
        m_pEngine->Voices = {L"Zuzana", L"David"};
        m_pEngine->OnPut = [](const std::wstring& strProperty, const AutomationValue& Value) {
            if (strProperty == L"Voice") m_Chosen.push_back(std::get<std::wstring>(Value));
        };
        Desktop.Classes[platform::headless::VOICE_CLASS] = [this] {
            return platform::headless::MakeObject(
                [this](MemberUse nUse, const std::wstring& strMember,
                       std::span<AutomationArgument> All, AutomationValue& Result) {
                    return platform::headless::UseVoice(m_pEngine, nUse, strMember, All, Result);
                });
        };
        CreateVoice();
    }

    /// The system's store of voices, found by its own name alone.
    static void Install(const Names& Voices) {
        Desktop.Classes[CATEGORY_CLASS] = [Voices] {
            auto pOpened = std::make_shared<bool>(false);
            return platform::headless::MakeObject(
                [Voices, pOpened](MemberUse, const std::wstring& strMember,
                                  std::span<AutomationArgument> All, AutomationValue& Result) {
                    if (strMember == L"SetId") {
                        *pOpened = All[0].Value == AutomationValue{std::wstring(
                                                       L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\"
                                                       L"Speech_OneCore\\Voices")};
                        return *pOpened;
                    }
                    if (strMember != L"EnumerateTokens" || !*pOpened) return false;
                    Result = ListOf(Voices);
                    return true;
                });
        };
    }
    static Names Chosen(const std::wstring& strName) {
        m_Chosen.clear();
        objSetting.VoiceName(strName);
        CheckSAPI();
        return m_Chosen;
    }

    std::shared_ptr<platform::headless::VirtualVoice> m_pEngine =
        std::make_shared<platform::headless::VirtualVoice>();
    inline static Names m_Chosen;

  private:
    static AutomationObject ListOf(const Names& Voices) {
        return platform::headless::MakeObject([Voices](MemberUse, const std::wstring& strMember,
                                                       std::span<AutomationArgument> All,
                                                       AutomationValue& Result) {
            if (strMember == L"Count") {
                Result = static_cast<int32_t>(Voices.size());
            } else {
                Result = TokenOf(Voices.at(static_cast<size_t>(std::get<int32_t>(All[0].Value))));
            }
            return true;
        });
    }
    static AutomationObject TokenOf(const std::wstring& strName) {
        return platform::headless::MakeObject([strName](MemberUse, const std::wstring&,
                                                        std::span<AutomationArgument>,
                                                        AutomationValue& Result) {
            Result = strName;
            return strName != UNREADABLE;
        });
    }
};

TEST_F(NewerVoices, Voice_IsOfferedBehindTheEnginesOwn_AndSpeaksWhenChosen) {
    Install({L"Jakub", L"David", L"Eva"});
    EXPECT_EQ(VoiceDescriptions(), (Names{L"Zuzana", L"David", L"Jakub", L"Eva"}));
    EXPECT_EQ(Chosen(L"Jakub"), Names{L"Jakub"});
    EXPECT_EQ(Chosen(L"Eva"), Names{L"Eva"});
    EXPECT_EQ(Chosen(L"Zuzana"), Names{L"Zuzana"});
    EXPECT_EQ(Chosen(L"nobody"), Names{});
}

TEST_F(NewerVoices, Voice_IsTheOneOfItsName_BehindOneThatDoesNotTell) {
    Install({UNREADABLE, L"Jakub", UNREADABLE, L"Eva"});
    EXPECT_EQ(VoiceDescriptions(), (Names{L"Zuzana", L"David", L"Jakub", L"Eva"}));
    EXPECT_EQ(Chosen(L"Jakub"), Names{L"Jakub"});
    EXPECT_EQ(Chosen(L"Eva"), Names{L"Eva"});
    m_pEngine->nBrokenToken = 0;
    EXPECT_EQ(Chosen(L"Eva"), Names{L"Eva"}) << "the engine's own are another list";
}

TEST_F(NewerVoices, OwnVoices_AreAllThereIs_WhenTheSystemHasNoStore) {
    EXPECT_EQ(VoiceDescriptions(), (Names{L"Zuzana", L"David"}));
    EXPECT_EQ(Chosen(L"Jakub"), Names{});
    Install({});
    EXPECT_EQ(VoiceDescriptions(), (Names{L"Zuzana", L"David"}));
    Desktop.Classes[CATEGORY_CLASS] = [] {
        return platform::headless::MakeObject([](MemberUse, const std::wstring&,
                                                 std::span<AutomationArgument>,
                                                 AutomationValue&) { return false; });
    };
    EXPECT_EQ(VoiceDescriptions(), (Names{L"Zuzana", L"David"}));
    EXPECT_EQ(Chosen(L"David"), Names{L"David"});
}

}  // namespace
}  // namespace taviro
