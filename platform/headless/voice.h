// SPDX-License-Identifier: MIT
// The stand-in of the speech engine: it knows its voices and refuses whatever the real one would
// refuse. What it is told is heard by whoever owns it, who writes it down in his own words.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/headless/desktop.h"

namespace taviro::platform::headless {

/// The class by which the program asks for the engine.
inline constexpr const wchar_t* VOICE_CLASS = L"SAPI.SpVoice";

struct VirtualVoice {
    std::vector<std::wstring> Voices;  ///< their descriptions, in the engine's order
    int32_t nRate = 0;
    int32_t nVolume = 100;
    int nVoiceLists = 0;  ///< how often the voices were asked for
    bool bListFails = false;
    int32_t nBrokenToken = -1;  ///< position of a voice that cannot be asked for its name

    /// Hears each utterance: the text and the flags.
    std::function<void(const AutomationArgument& Text, const AutomationArgument& Flags)> OnSpeak;
    /// Hears each property that is put: "Rate", "Volume" or "Voice", whose value is its
    /// description.
    std::function<void(const std::wstring& strProperty, const AutomationValue& Value)> OnPut;
};

/// A use of the engine's members, for the object that stands for it (see MakeObject). Returns false
/// when the engine refuses.
bool UseVoice(const std::shared_ptr<VirtualVoice>& pVoice, MemberUse nUse,
              const std::wstring& strMember, std::span<AutomationArgument> All,
              AutomationValue& Result);

/// An engine without voices that writes what it says into the transcript: "say hello", and
/// "silence" for an empty text. The mark of the pitch in front is left out.
AutomationObject MakePlainVoice();

}  // namespace taviro::platform::headless
