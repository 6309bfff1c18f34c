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
#include "platform/headless/voice.h"
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

using EngineState = platform::headless::VirtualVoice;

/// Registers the speech engine. Its utterances, and the voice, rate and volume that it was given,
/// stand in the transcript.
inline std::shared_ptr<EngineState> InstallEngine() {
    using platform::headless::Desktop;
    auto pEngine = std::make_shared<EngineState>();
    pEngine->Voices = {L"Jana", L"Zuzana", L"Iveta"};
    pEngine->OnSpeak = [](const AutomationArgument& Text, const AutomationArgument& Flags) {
        Desktop.Record("Speak " + ArgumentText(Text) + " flags " + ArgumentText(Flags));
    };
    pEngine->OnPut = [](const std::wstring& strProperty, const AutomationValue& Value) {
        Desktop.Record(platform::ToUtf8(strProperty) + " = " + ArgumentText({.Value = Value}));
    };
    Desktop.Classes[platform::headless::VOICE_CLASS] = [pEngine] {
        Desktop.Record("engine created");
        auto pNote = std::make_shared<ReleaseNote>("engine");
        return platform::headless::MakeObject(
            [pEngine, pNote](MemberUse nUse, const std::wstring& strMember,
                             std::span<AutomationArgument> All, AutomationValue& Result) {
                return UseVoice(pEngine, nUse, strMember, All, Result);
            });
    };
    return pEngine;
}

/// What an utterance of the engine at pitch 0 looks like in the transcript.
inline std::string Said(const std::string& strText) {
    return "Speak \"<pitch absmiddle=\"0\">" + strText + "\" flags 11";
}

}  // namespace taviro
