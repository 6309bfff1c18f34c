// SPDX-License-Identifier: MIT
#include "tools/simulator/stand_ins.h"

#include <initializer_list>
#include <string_view>

#include "platform/headless/desktop.h"
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

constexpr const wchar_t* ENGINE_CLASS = L"SAPI.SpVoice";

std::wstring TextOf(Arguments Given, size_t nIndex) {
    if (nIndex >= Given.size()) return {};
    const auto* pText = std::get_if<std::wstring>(&Given[nIndex].Value);
    return pText == nullptr ? std::wstring() : *pText;
}

int32_t NumberOf(Arguments Given, size_t nIndex) {
    if (nIndex >= Given.size()) return 0;
    if (const auto* pShort = std::get_if<int16_t>(&Given[nIndex].Value)) return *pShort;
    const auto* pLong = std::get_if<int32_t>(&Given[nIndex].Value);
    return pLong == nullptr ? 0 : *pLong;
}

std::string Joined(std::initializer_list<std::string_view> Parts) {
    std::string strWhole;
    for (const std::string_view strPart : Parts)
        strWhole += strPart;
    return strWhole;
}

std::string Quoted(const std::wstring& strText) {
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

AutomationObject MakeVoiceToken(const std::wstring& strDescription) {
    return MakeObject([strDescription](MemberUse /*nUse*/, const std::wstring& strName,
                                       Arguments /*Given*/, AutomationValue& Result) {
        if (strName != L"GetDescription") return false;
        Result = strDescription;
        return true;
    });
}

AutomationObject MakeVoiceTokens(const std::shared_ptr<StandInData>& pData) {
    return MakeObject([pData](MemberUse /*nUse*/, const std::wstring& strName, Arguments Given,
                              AutomationValue& Result) {
        if (strName == L"Count") {
            Result = static_cast<int32_t>(pData->Voices.size());
            return true;
        }
        const auto nIndex = static_cast<size_t>(NumberOf(Given, 0));
        if (strName != L"Item" || nIndex >= pData->Voices.size()) return false;
        Result = MakeVoiceToken(pData->Voices[nIndex]);
        return true;
    });
}

// The description of the voice that is put, or nothing when the value is no voice.
std::wstring DescriptionOf(Arguments Given) {
    if (Given.empty()) return {};
    const auto* pToken = std::get_if<AutomationObject>(&Given.front().Value);
    AutomationValue Description;
    if (pToken == nullptr || !CallMethod(*pToken, L"GetDescription", {}, Description)) return {};
    const auto* pText = std::get_if<std::wstring>(&Description);
    return pText == nullptr ? std::wstring() : *pText;
}

// What one engine object has been told.
struct Engine {
    std::shared_ptr<StandInData> pData;
    int32_t nRate = 0;
    int32_t nVolume = 100;

    bool Use(MemberUse nUse, const std::wstring& strName, Arguments Given, AutomationValue& Result);
    static bool UseNumber(MemberUse nUse, const std::wstring& strName, int32_t& nNumber,
                          Arguments Given, AutomationValue& Result);
};

bool Engine::UseNumber(MemberUse nUse, const std::wstring& strName, int32_t& nNumber,
                       Arguments Given, AutomationValue& Result) {
    if (nUse == MemberUse::Put) {
        nNumber = NumberOf(Given, 0);
        Desktop.Record(
            Joined({"speech ", ToUtf8(platform::ToLower(strName)), " ", std::to_string(nNumber)}));
    }
    Result = nNumber;
    return true;
}

bool Engine::Use(MemberUse nUse, const std::wstring& strName, Arguments Given,
                 AutomationValue& Result) {
    if (strName == L"Rate") return UseNumber(nUse, strName, nRate, Given, Result);
    if (strName == L"Volume") return UseNumber(nUse, strName, nVolume, Given, Result);
    if (strName == L"Voice" && nUse == MemberUse::Put) {
        Desktop.Record(Joined({"speech voice ", Quoted(DescriptionOf(Given))}));
    } else if (strName == L"GetVoices") {
        Result = MakeVoiceTokens(pData);
    } else if (strName == L"Speak") {
        const std::string strFlags = FlagWords(NumberOf(Given, 1));
        Desktop.Record(Joined({"say ", Quoted(TextOf(Given, 0)), " ", strFlags}));
        Result = int32_t{1};
    } else {
        return false;
    }
    return true;
}

AutomationObject MakeEngine(const std::shared_ptr<StandInData>& pData) {
    const auto pEngine = std::make_shared<Engine>(Engine{.pData = pData});
    return MakeObject(
        [pEngine](MemberUse nUse, const std::wstring& strName, Arguments Given,
                  AutomationValue& Result) { return pEngine->Use(nUse, strName, Given, Result); });
}

bool UseReader(MemberUse /*nUse*/, const std::wstring& strName, Arguments Given,
               AutomationValue& /*Result*/) {
    if (strName == L"Sayit") {
        Desktop.Record(Joined({"reader says ", Quoted(TextOf(Given, 0))}));
    } else if (strName == L"WaitAndSayIt") {
        Desktop.Record(Joined({"reader says ", Quoted(TextOf(Given, 0)), " to its end"}));
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
    const std::string strText = bNull ? "null" : Quoted(TextOf(Given, 0));
    Desktop.Record(Joined({"relay voice (", strText, ", ", std::to_string(NumberOf(Given, 1)), ", ",
                           std::to_string(NumberOf(Given, 2)), ")"}));
    return true;
}

}  // namespace

void InstallSpeechEngine(const std::shared_ptr<StandInData>& pData) {
    Desktop.Classes[ENGINE_CLASS] = [pData] { return MakeEngine(pData); };
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
    Desktop.Classes.erase(ENGINE_CLASS);
}

}  // namespace taviro::simulator
