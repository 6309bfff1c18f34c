// SPDX-License-Identifier: MIT
#include "platform/headless/voice.h"

#include "platform/text.h"

namespace taviro::platform::headless {

namespace {

using Arguments = std::span<AutomationArgument>;
using SharedVoice = std::shared_ptr<VirtualVoice>;

constexpr int32_t FIRST_STREAM = 1;  // the number of an utterance, which nobody reads

bool IsEmptyText(const AutomationArgument& Argument) {
    const auto* pText = std::get_if<std::wstring>(&Argument.Value);
    return pText != nullptr && pText->empty();
}

AutomationObject MakeToken(const std::wstring& strDescription) {
    return MakeObject([strDescription](MemberUse nUse, const std::wstring& strMember, Arguments All,
                                       AutomationValue& Result) {
        if (nUse != MemberUse::Method || strMember != L"GetDescription") return false;
        if (All.size() != 1 || All[0].Value != AutomationValue{int32_t{0}}) return false;
        Result = strDescription;
        return true;
    });
}

AutomationObject MakeBrokenToken() {
    return MakeObject(
        [](MemberUse, const std::wstring&, Arguments, AutomationValue&) { return false; });
}

AutomationObject MakeVoiceList(const SharedVoice& pVoice) {
    return MakeObject([pVoice](MemberUse nUse, const std::wstring& strMember, Arguments All,
                               AutomationValue& Result) {
        if (nUse == MemberUse::Get && strMember == L"Count") {
            Result = static_cast<int32_t>(pVoice->Voices.size());
            return true;
        }
        if (nUse != MemberUse::Method || strMember != L"Item" || All.size() != 1) return false;
        const auto* pIndex = std::get_if<int32_t>(&All[0].Value);
        if (pIndex == nullptr || *pIndex < 0) return false;
        const auto nIndex = static_cast<size_t>(*pIndex);
        if (nIndex >= pVoice->Voices.size()) return false;
        Result =
            *pIndex == pVoice->nBrokenToken ? MakeBrokenToken() : MakeToken(pVoice->Voices[nIndex]);
        return true;
    });
}

bool Call(const SharedVoice& pVoice, const std::wstring& strMethod, Arguments All,
          AutomationValue& Result) {
    if (strMethod == L"Speak" && All.size() == 2) {
        if (pVoice->OnSpeak) pVoice->OnSpeak(All[0], All[1]);
        Result = FIRST_STREAM;
        return true;
    }
    if (strMethod != L"GetVoices" || All.size() != 2 || pVoice->bListFails) return false;
    if (!IsEmptyText(All[0]) || !IsEmptyText(All[1])) return false;
    ++pVoice->nVoiceLists;
    Result = MakeVoiceList(pVoice);
    return true;
}

/// The description of the voice that is put. Returns false when the value is no voice.
bool Describe(const AutomationValue& Put, AutomationValue& Description) {
    const auto* pToken = std::get_if<AutomationObject>(&Put);
    AutomationArgument Locale{.Value = int32_t{0}};
    return pToken != nullptr && CallMethod(*pToken, L"GetDescription", {&Locale, 1}, Description);
}

bool Put(VirtualVoice& Voice, const std::wstring& strProperty, const AutomationValue& Value) {
    AutomationValue Told = Value;
    const auto* pNumber = std::get_if<int32_t>(&Value);
    if (strProperty == L"Voice") {
        if (!Describe(Value, Told)) return false;
    } else if (strProperty == L"Rate" && pNumber != nullptr) {
        Voice.nRate = *pNumber;
    } else if (strProperty == L"Volume" && pNumber != nullptr) {
        Voice.nVolume = *pNumber;
    } else {
        return false;
    }
    if (Voice.OnPut) Voice.OnPut(strProperty, Told);
    return true;
}

bool Get(const VirtualVoice& Voice, const std::wstring& strProperty, AutomationValue& Result) {
    if (strProperty == L"Rate") Result = Voice.nRate;
    if (strProperty == L"Volume") Result = Voice.nVolume;
    return strProperty == L"Rate" || strProperty == L"Volume";
}

}  // namespace

bool UseVoice(const std::shared_ptr<VirtualVoice>& pVoice, MemberUse nUse,
              const std::wstring& strMember, std::span<AutomationArgument> All,
              AutomationValue& Result) {
    switch (nUse) {
        case MemberUse::Method:
            return Call(pVoice, strMember, All, Result);
        case MemberUse::Put:
            return Put(*pVoice, strMember, All[0].Value);
        case MemberUse::Get:
            return Get(*pVoice, strMember, Result);
    }
    return false;
}

AutomationObject MakePlainVoice() {
    auto pVoice = std::make_shared<VirtualVoice>();
    pVoice->OnSpeak = [](const AutomationArgument& Text, const AutomationArgument& /*Flags*/) {
        const auto* pText = std::get_if<std::wstring>(&Text.Value);
        if (pText == nullptr) return;
        const std::wstring strSaid = pText->substr(pText->find(L'>') + 1);
        Desktop.Record(strSaid.empty() ? "silence" : "say " + ToUtf8(strSaid));
    };
    return MakeObject([pVoice](MemberUse nUse, const std::wstring& strMember, Arguments All,
                               AutomationValue& Result) {
        return UseVoice(pVoice, nUse, strMember, All, Result);
    });
}

}  // namespace taviro::platform::headless
