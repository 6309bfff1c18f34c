// SPDX-License-Identifier: MIT
#include "tools/simulator/stand_ins.h"

#include <initializer_list>
#include <string_view>

#include "platform/headless/desktop.h"
#include "platform/headless/voice.h"
#include "platform/text.h"

namespace taviro::simulator {

namespace {

using platform::AutomationArgument;
using platform::AutomationObject;
using platform::AutomationValue;
using platform::ToUtf8;
using platform::headless::Desktop;
using platform::headless::MakeObject;
using platform::headless::MemberUse;

using Arguments = std::span<AutomationArgument>;

std::wstring TextOf(const AutomationValue& Value) {
    const auto* pText = std::get_if<std::wstring>(&Value);
    return pText == nullptr ? std::wstring() : *pText;
}

std::wstring TextOf(Arguments Given, size_t nIndex) {
    return nIndex < Given.size() ? TextOf(Given[nIndex].Value) : std::wstring();
}

int32_t NumberOf(const AutomationValue& Value) {
    if (const auto* pShort = std::get_if<int16_t>(&Value)) return *pShort;
    const auto* pLong = std::get_if<int32_t>(&Value);
    return pLong == nullptr ? 0 : *pLong;
}

int32_t NumberOf(Arguments Given, size_t nIndex) {
    return nIndex < Given.size() ? NumberOf(Given[nIndex].Value) : 0;
}

std::string Joined(std::initializer_list<std::string_view> Parts) {
    std::string strWhole;
    for (const std::string_view strPart : Parts)
        strWhole += strPart;
    return strWhole;
}

std::string Spoken(const std::wstring& strText) {
    return Joined({"\"", ToUtf8(strText), "\""});
}

// Flags of the engine's Speak in words.
std::string FlagWords(int32_t nFlags) {
    struct FlagWord {
        int32_t nFlag;
        const char* szWord;
    };
    constexpr FlagWord WORDS[] = {{1, "async"}, {2, "purge"}, {8, "xml"}};
    std::string strWords;
    for (const FlagWord& Known : WORDS) {
        if ((nFlags & Known.nFlag) == 0) continue;
        if (!strWords.empty()) strWords += ' ';
        strWords += Known.szWord;
        nFlags &= ~Known.nFlag;
    }
    // A flag that is not known is shown as its number.
    if (nFlags != 0) strWords += Joined({strWords.empty() ? "" : " ", std::to_string(nFlags)});
    return Joined({"[", strWords, "]"});
}

void NotePut(const std::wstring& strProperty, const AutomationValue& Value) {
    const std::string strTold = std::holds_alternative<std::wstring>(Value)
                                    ? Spoken(TextOf(Value))
                                    : std::to_string(NumberOf(Value));
    Desktop.Record(Joined({"speech ", ToUtf8(platform::ToLower(strProperty)), " ", strTold}));
}

void NoteSpoken(const AutomationArgument& Text, const AutomationArgument& Flags) {
    Desktop.Record(
        Joined({"say ", Spoken(TextOf(Text.Value)), " ", FlagWords(NumberOf(Flags.Value))}));
}

/// A new engine with the voices that there are, and what no other was told.
AutomationObject MakeEngine(const std::shared_ptr<StandInData>& pData) {
    const auto pVoice = std::make_shared<platform::headless::VirtualVoice>();
    pVoice->OnSpeak = NoteSpoken;
    pVoice->OnPut = NotePut;
    return MakeObject([pData, pVoice](MemberUse nUse, const std::wstring& strName, Arguments Given,
                                      AutomationValue& Result) {
        pVoice->Voices = pData->Voices;
        return UseVoice(pVoice, nUse, strName, Given, Result);
    });
}

bool UseReader(MemberUse /*nUse*/, const std::wstring& strName, Arguments Given,
               AutomationValue& /*Result*/) {
    if (strName == L"Sayit") {
        Desktop.Record(Joined({"reader says ", Spoken(TextOf(Given, 0))}));
    } else if (strName == L"WaitAndSayIt") {
        Desktop.Record(Joined({"reader says ", Spoken(TextOf(Given, 0)), " to its end"}));
    } else if (strName.starts_with(L"Set")) {
        const std::string strWhat = ToUtf8(platform::ToLower(strName.substr(3)));
        Desktop.Record(Joined({"reader ", strWhat, " ", std::to_string(NumberOf(Given, 0))}));
    } else {
        return false;
    }
    return true;
}

bool UseRelay(MemberUse /*nUse*/, const std::wstring& strName, Arguments Given,
              AutomationValue& /*Result*/) {
    if (strName != L"Voice") return false;
    const bool bNull =
        !Given.empty() && std::holds_alternative<platform::NullString>(Given.front().Value);
    const std::string strText = bNull ? "null" : Spoken(TextOf(Given, 0));
    Desktop.Record(Joined({"relay voice (", strText, ", ", std::to_string(NumberOf(Given, 1)), ", ",
                           std::to_string(NumberOf(Given, 2)), ")"}));
    return true;
}

}  // namespace

void InstallSpeechEngine(const std::shared_ptr<StandInData>& pData) {
    Desktop.Classes[platform::headless::VOICE_CLASS] = [pData] { return MakeEngine(pData); };
}

void InstallReader() {
    Desktop.Classes[L"Parlex.app"] = [] { return MakeObject(UseReader); };
}

void InstallRelay() {
    Desktop.Classes[L"Relayer.Voice"] = [] { return MakeObject(UseRelay); };
}

void InstallDictionary(const std::shared_ptr<StandInData>& pData) {
    Desktop.Classes[L"Presager.Dict"] = [pData] {
        return MakeObject([pData](MemberUse /*nUse*/, const std::wstring& strName, Arguments Given,
                                  AutomationValue& Result) {
            if (strName != L"GetPrediction") return false;
            std::wstring strList;
            for (const auto& [strBeginning, strOffer] : pData->Predictions) {
                if (strBeginning == TextOf(Given, 0)) strList = strOffer;
            }
            Result = strList;
            return true;
        });
    };
}

void RemoveSpeechEngine() {
    Desktop.Classes.erase(platform::headless::VOICE_CLASS);
}

}  // namespace taviro::simulator
