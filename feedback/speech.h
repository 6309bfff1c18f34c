// SPDX-License-Identifier: MIT
// Speech: one entry for everything that the program says, through the system's speech engine or
// through an external reader. A missing or failing engine means silence, never an error.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/automation.h"

namespace taviro {

/// The voice name that stands for the reader.
inline constexpr const wchar_t* READER_VOICE = L"Kestrel";

struct SpeechState {
    platform::AutomationObject objSpeechReader;  ///< external reader; empty when not installed
    platform::AutomationObject objVoice;         ///< speech engine; lives while the voice form does
    bool bUseReader = false;
    int32_t nSpeakFlags{};    ///< flags of asynchronous speech
    int32_t nPrefixLength{};  ///< length of the last utterance's pitch markup
    /// Loads the voice form, which prepares the engine; registered by the floor that owns the form.
    std::function<void()> LoadVoiceForm;
};
inline SpeechState Speech;

/// Creates the reader object, if its program is installed.
void CreateSpeechReader();

/// Speaks. Without bWait returns at once and interrupts what was being said (an empty text only
/// silences); with bWait returns when the text has been spoken. Loads the voice form if needed.
void SpeakIt(const std::wstring& strMessage, bool bWait = false);

/// Descriptions of the engine's voices in its order, then of the system's newer ones that it can
/// speak with, without those that do not tell.
std::vector<std::wstring> VoiceDescriptions();

/// Chooses reader or engine, and the engine's voice, by the setting VoiceName: one of its own, else
/// one of the system's newer ones.
void CheckSAPI();

/// Creates the engine, without which every other call here fails quietly; part of loading the voice
/// form.
void CreateVoice();

/// The engine's rate, -10 to 10, and volume, 0 to 100. The getters return false, and leave the
/// number alone, without an engine or when it does not tell.
[[nodiscard]] bool GetVoiceRate(int32_t& nRate);
void SetVoiceRate(int32_t nRate);
[[nodiscard]] bool GetVoiceVolume(int32_t& nVolume);
void SetVoiceVolume(int32_t nVolume);

/// Tell the reader, while it is the one that speaks: tempo and pitch -10 to 10, volume 0 to 20.
void SetReaderTempo(int32_t nTempo);
void SetReaderPitch(int32_t nPitch);
void SetReaderVolume(int16_t nVolume);

/// Silences a host program's speech relay, if that host runs, so that two voices do not talk at
/// once.
void QuietHostVoice();

}  // namespace taviro
