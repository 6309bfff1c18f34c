// SPDX-License-Identifier: MIT
// Stand-ins for the late-bound objects that the program uses: speech engine, reader, relay and
// dictionary. Each writes into the desktop's transcript what it was asked to do and when it was
// released, and refuses whatever the real one would refuse.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/headless/desktop.h"
#include "platform/text.h"

namespace taviro {

using platform::AutomationArgument;
using platform::AutomationObject;
using platform::AutomationValue;
using platform::headless::MemberUse;

/// An argument as a person would write the call: type for 16 bits, "&" when by reference.
inline std::string ArgumentText(const AutomationArgument& Argument) {
    std::string strText = "empty";
    if (std::holds_alternative<platform::NullString>(Argument.Value)) strText = "null";
    if (const auto* pShort = std::get_if<int16_t>(&Argument.Value)) {
        strText = "int16 " + std::to_string(*pShort);
    }
    if (const auto* pLong = std::get_if<int32_t>(&Argument.Value)) strText = std::to_string(*pLong);
    if (const auto* pText = std::get_if<std::wstring>(&Argument.Value)) {
        strText = '"' + platform::ToUtf8(*pText) + '"';
    }
    if (std::holds_alternative<AutomationObject>(Argument.Value)) strText = "object";
    return Argument.bByReference ? strText + "&" : strText;
}

/// Writes "<name> released" when the object that holds it goes.
class ReleaseNote {
  public:
    explicit ReleaseNote(std::string strName) : m_strName(std::move(strName)) {}
    ReleaseNote(const ReleaseNote&) = delete;
    ReleaseNote& operator=(const ReleaseNote&) = delete;
    ~ReleaseNote() { platform::headless::Desktop.Record(m_strName + " released"); }

  private:
    std::string m_strName;
};

/// Registers a class whose objects accept every method and note creation, calls and release.
inline void InstallRecorder(const std::wstring& strProgId, const std::string& strName) {
    using platform::headless::Desktop;
    Desktop.Classes[strProgId] = [strName] {
        Desktop.Record(strName + " created");
        auto pNote = std::make_shared<ReleaseNote>(strName);
        return platform::headless::MakeObject(
            [strName, pNote](MemberUse nUse, const std::wstring& strMember,
                             std::span<AutomationArgument> All, AutomationValue&) {
                if (nUse != MemberUse::Method) return false;
                std::string strCall = strName + "." + platform::ToUtf8(strMember) + "(";
                for (const AutomationArgument& Argument : All) {
                    strCall += (strCall.back() == '(' ? "" : ", ") + ArgumentText(Argument);
                }
                Desktop.Record(strCall + ")");
                return true;
            });
    };
}

/// What the stand-in of the speech engine knows and was told.
struct EngineState {
    std::vector<std::wstring> Voices{L"Jana", L"Zuzana", L"Iveta"};
    int32_t nRate = 0;
    int32_t nVolume = 100;
    int nVoiceLists = 0;  ///< how often the voices were asked for
    bool bListFails = false;
    int32_t nBrokenToken = -1;  ///< position of a voice that cannot be asked for its name
};

namespace stand_ins {

inline bool IsText(const AutomationArgument& Argument, const std::wstring& strWanted) {
    const auto* pText = std::get_if<std::wstring>(&Argument.Value);
    return pText != nullptr && *pText == strWanted;
}

inline AutomationObject MakeToken(const std::wstring& strDescription) {
    return platform::headless::MakeObject(
        [strDescription](MemberUse nUse, const std::wstring& strMember,
                         std::span<AutomationArgument> All, AutomationValue& Result) {
            if (nUse != MemberUse::Method || strMember != L"GetDescription") return false;
            if (All.size() != 1 || All[0].Value != AutomationValue{int32_t{0}}) return false;
            Result = strDescription;
            return true;
        });
}

inline AutomationObject MakeVoices(const std::shared_ptr<EngineState>& pEngine) {
    return platform::headless::MakeObject([pEngine](MemberUse nUse, const std::wstring& strMember,
                                                    std::span<AutomationArgument> All,
                                                    AutomationValue& Result) {
        if (nUse == MemberUse::Get && strMember == L"Count") {
            Result = static_cast<int32_t>(pEngine->Voices.size());
            return true;
        }
        if (nUse != MemberUse::Method || strMember != L"Item" || All.size() != 1) return false;
        const auto* pIndex = std::get_if<int32_t>(&All[0].Value);
        if (pIndex == nullptr || *pIndex < 0) return false;
        const auto nIndex = static_cast<size_t>(*pIndex);
        if (nIndex >= pEngine->Voices.size()) return false;
        Result =
            *pIndex == pEngine->nBrokenToken
                ? platform::headless::MakeObject([](auto, auto&, auto, auto&) { return false; })
                : MakeToken(pEngine->Voices[nIndex]);
        return true;
    });
}

inline bool CallEngine(const std::shared_ptr<EngineState>& pEngine, const std::wstring& strMember,
                       std::span<AutomationArgument> All, AutomationValue& Result) {
    if (strMember == L"Speak" && All.size() == 2) {
        platform::headless::Desktop.Record("Speak " + ArgumentText(All[0]) + " flags " +
                                           ArgumentText(All[1]));
        return true;
    }
    if (strMember != L"GetVoices" || All.size() != 2 || pEngine->bListFails) return false;
    if (!IsText(All[0], L"") || !IsText(All[1], L"")) return false;
    ++pEngine->nVoiceLists;
    Result = MakeVoices(pEngine);
    return true;
}

inline bool PutEngine(EngineState& Engine, const std::wstring& strProperty,
                      const AutomationArgument& Value) {
    using platform::headless::Desktop;
    if (strProperty == L"Voice") {
        const auto* pToken = std::get_if<AutomationObject>(&Value.Value);
        AutomationArgument Locale{.Value = int32_t{0}};
        AutomationValue Description;
        if (pToken == nullptr) return false;
        if (!platform::CallMethod(*pToken, L"GetDescription", {&Locale, 1}, Description)) {
            return false;
        }
        Desktop.Record("Voice = " + ArgumentText({.Value = Description}));
        return true;
    }
    const auto* pNumber = std::get_if<int32_t>(&Value.Value);
    if (pNumber == nullptr) return false;
    if (strProperty == L"Rate") Engine.nRate = *pNumber;
    if (strProperty == L"Volume") Engine.nVolume = *pNumber;
    Desktop.Record(platform::ToUtf8(strProperty) + " = " + std::to_string(*pNumber));
    return true;
}

}  // namespace stand_ins

/// Registers the speech engine. Its utterances, and the voice, rate and volume that it was given,
/// stand in the transcript.
inline std::shared_ptr<EngineState> InstallEngine() {
    using platform::headless::Desktop;
    auto pEngine = std::make_shared<EngineState>();
    Desktop.Classes[L"SAPI.SpVoice"] = [pEngine] {
        Desktop.Record("engine created");
        auto pNote = std::make_shared<ReleaseNote>("engine");
        return platform::headless::MakeObject(
            [pEngine, pNote](MemberUse nUse, const std::wstring& strMember,
                             std::span<AutomationArgument> All, AutomationValue& Result) {
                if (nUse == MemberUse::Method) {
                    return stand_ins::CallEngine(pEngine, strMember, All, Result);
                }
                if (nUse == MemberUse::Put) {
                    return stand_ins::PutEngine(*pEngine, strMember, All[0]);
                }
                if (strMember == L"Rate") Result = pEngine->nRate;
                if (strMember == L"Volume") Result = pEngine->nVolume;
                return strMember == L"Rate" || strMember == L"Volume";
            });
    };
    return pEngine;
}

/// What an utterance of the engine at pitch 0 looks like in the transcript.
inline std::string Said(const std::string& strText) {
    return "Speak \"<pitch absmiddle=\"0\">" + strText + "\" flags 11";
}

}  // namespace taviro
