// SPDX-License-Identifier: MIT
#include "feedback/speech.h"

#include <algorithm>
#include <array>

#include "feedback/event_log.h"
#include "platform/unneeded.h"
#include "platform/windows_and_processes.h"
#include "settings/setting.h"

namespace taviro {

namespace {

using platform::AutomationArgument;
using platform::AutomationObject;
using platform::AutomationValue;

constexpr size_t LONGEST_UTTERANCE = 70000;  // characters; the engine's own limit is near

constexpr const wchar_t* NEWER_VOICES =
    L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Speech_OneCore\\Voices";

// Flags of the engine's Speak.
constexpr int32_t SPEAK_ASYNC = 1;
constexpr int32_t SPEAK_PURGE = 2;
constexpr int32_t SPEAK_XML = 8;

// Calls a method whose result nobody needs; a failure means silence.
void Call(const AutomationObject& Object, const std::wstring& strMethod,
          std::span<AutomationArgument> Arguments) {
    AutomationValue Ignored;
    Unneeded(platform::CallMethod(Object, strMethod, Arguments, Ignored));
}

void SpeakThroughEngine(const std::wstring& strMessage, bool bWait) {
    const std::wstring strPrefix =
        L"<pitch absmiddle=\"" + std::to_wstring(objSetting.Pitch()) + L"\">";
    Speech.nPrefixLength = static_cast<int32_t>(strPrefix.size());
    const std::wstring strText = strPrefix + strMessage.substr(0, LONGEST_UTTERANCE);
    if (!bWait) QuietHostVoice();
    const int32_t nFlags = bWait ? SPEAK_XML : Speech.nSpeakFlags | SPEAK_XML;
    std::array<AutomationArgument, 2> Arguments{{{.Value = strText}, {.Value = nFlags}}};
    Call(Speech.objVoice, L"Speak", Arguments);
}

// The object that a method gives, empty on failure. An empty object refuses every call in turn.
AutomationObject ObjectFrom(const AutomationObject& Giver, const std::wstring& strMethod,
                            std::span<AutomationArgument> Arguments) {
    AutomationValue Result;
    Unneeded(platform::CallMethod(Giver, strMethod, Arguments, Result));  // refused, it stays empty
    const auto* pObject = std::get_if<AutomationObject>(&Result);
    return pObject == nullptr ? AutomationObject{} : *pObject;
}

AutomationObject VoiceList() {
    std::array<AutomationArgument, 2> Filters{
        {{.Value = std::wstring{}}, {.Value = std::wstring{}}}};
    return ObjectFrom(Speech.objVoice, L"GetVoices", Filters);
}

// Since Windows 10 the system installs voices into a store of its own, which the engine does not
// list but can speak with. A system without it, or one that refuses, has no such voices.
AutomationObject NewerVoiceList() {
    AutomationObject Category;
    Unneeded(platform::CreateAutomationObject(L"SAPI.SpObjectTokenCategory", Category));
    AutomationArgument Store{.Value = std::wstring(NEWER_VOICES)};
    AutomationValue Ignored;
    if (!platform::CallMethod(Category, L"SetId", {&Store, 1}, Ignored)) return {};
    std::array<AutomationArgument, 2> Filters{
        {{.Value = std::wstring{}}, {.Value = std::wstring{}}}};
    return ObjectFrom(Category, L"EnumerateTokens", Filters);
}

AutomationObject VoiceAt(const AutomationObject& Voices, int32_t nIndex) {
    AutomationArgument Index{.Value = nIndex};
    return ObjectFrom(Voices, L"Item", {&Index, 1});
}

// The text that names a voice. Returns false, and leaves the text alone, on failure.
bool GetDescription(const AutomationObject& Token, std::wstring& strText) {
    AutomationArgument Locale{.Value = int32_t{0}};
    AutomationValue Result;
    if (!platform::CallMethod(Token, L"GetDescription", {&Locale, 1}, Result)) return false;
    const auto* pText = std::get_if<std::wstring>(&Result);
    if (pText == nullptr) return false;
    strText = *pText;
    return true;
}

// Returns false, and leaves the number alone, on failure.
bool GetNumber(const AutomationObject& Object, const std::wstring& strProperty, int32_t& nNumber) {
    AutomationValue Result;
    if (!platform::GetProperty(Object, strProperty, {}, Result)) return false;
    const auto* pNumber = std::get_if<int32_t>(&Result);
    if (pNumber == nullptr) return false;
    nNumber = *pNumber;
    return true;
}

int32_t CountOf(const AutomationObject& Voices) {
    int32_t nCount = 0;
    Unneeded(GetNumber(Voices, L"Count", nCount));  // untold, there are none
    return nCount;
}

void TellReader(const std::wstring& strMethod, AutomationArgument Argument) {
    if (Speech.bUseReader) Call(Speech.objSpeechReader, strMethod, {&Argument, 1});
}

void UseVoice(const AutomationObject& Token) {
    if (Token == nullptr) return;
    // Refused: the engine's current voice stays.
    Unneeded(platform::PutProperty(Speech.objVoice, L"Voice", Token));
}

enum class Search { Found, NotThere };

// A voice that cannot be asked ends the search; the engine's current one stays. Takes the voice
// from a fresh list, as the one that was searched may have changed meanwhile.
Search UseOwnVoice(const std::wstring& strName) {
    const AutomationObject Voices = VoiceList();
    const int32_t nCount = CountOf(Voices);
    for (int32_t n = 0; n < nCount; ++n) {
        std::wstring strText;
        if (!GetDescription(VoiceAt(Voices, n), strText)) break;
        if (strText != strName) continue;
        UseVoice(VoiceAt(VoiceList(), n));
        return Search::Found;
    }
    return Search::NotThere;
}

// A voice that cannot be asked is passed over.
void UseNewerVoice(const std::wstring& strName) {
    const AutomationObject Voices = NewerVoiceList();
    const int32_t nCount = CountOf(Voices);
    for (int32_t n = 0; n < nCount; ++n) {
        const AutomationObject Token = VoiceAt(Voices, n);
        std::wstring strText;
        if (GetDescription(Token, strText) && strText == strName) return UseVoice(Token);
    }
}

void AddNewerVoices(std::vector<std::wstring>& Descriptions) {
    const AutomationObject Voices = NewerVoiceList();
    const int32_t nCount = CountOf(Voices);
    for (int32_t n = 0; n < nCount; ++n) {
        std::wstring strText;
        if (!GetDescription(VoiceAt(Voices, n), strText)) continue;
        // Of two voices with one name only the engine's own could be chosen.
        const bool bKnown =
            std::find(Descriptions.begin(), Descriptions.end(), strText) != Descriptions.end();
        if (!bKnown) Descriptions.push_back(strText);
    }
}

}  // namespace

void CreateSpeechReader() {
    // Not installed: the object stays empty and speech goes through the engine alone.
    Unneeded(platform::CreateAutomationObject(L"Parlex.app", Speech.objSpeechReader));
}

std::vector<std::wstring> VoiceDescriptions() {
    std::vector<std::wstring> Descriptions;
    const AutomationObject Voices = VoiceList();
    const int32_t nCount = CountOf(Voices);
    for (int32_t n = 0; n < nCount; ++n) {
        const AutomationObject Token = VoiceAt(Voices, n);
        if (Token == nullptr) break;
        std::wstring strText;
        // A voice without a name could not be chosen by it.
        if (GetDescription(Token, strText)) Descriptions.push_back(strText);
    }
    AddNewerVoices(Descriptions);
    return Descriptions;
}

void SpeakIt(const std::wstring& strMessage, bool bWait) {
    if (Speech.LoadVoiceForm) Speech.LoadVoiceForm();
    LogEvent(L"Say: " + strMessage);
    if (!Speech.bUseReader) return SpeakThroughEngine(strMessage, bWait);
    AutomationArgument Text{.Value = strMessage, .bByReference = true};
    Call(Speech.objSpeechReader, bWait ? L"WaitAndSayIt" : L"Sayit", {&Text, 1});
}

void CheckSAPI() {
    Speech.bUseReader = objSetting.VoiceName() == READER_VOICE;
    if (Speech.bUseReader) return;
    const std::wstring& strName = objSetting.VoiceName();
    if (UseOwnVoice(strName) == Search::NotThere) UseNewerVoice(strName);
}

void CreateVoice() {
    Unneeded(platform::CreateAutomationObject(L"SAPI.SpVoice", Speech.objVoice));
    Speech.nSpeakFlags = SPEAK_ASYNC | SPEAK_PURGE;
}

bool GetVoiceRate(int32_t& nRate) {
    return GetNumber(Speech.objVoice, L"Rate", nRate);
}

void SetVoiceRate(int32_t nRate) {
    // Refused: the engine keeps its own.
    Unneeded(platform::PutProperty(Speech.objVoice, L"Rate", nRate));
}

bool GetVoiceVolume(int32_t& nVolume) {
    return GetNumber(Speech.objVoice, L"Volume", nVolume);
}

void SetVoiceVolume(int32_t nVolume) {
    Unneeded(platform::PutProperty(Speech.objVoice, L"Volume", nVolume));
}

void SetReaderTempo(int32_t nTempo) {
    TellReader(L"SetTempo", {.Value = nTempo, .bByReference = true});
}

void SetReaderPitch(int32_t nPitch) {
    TellReader(L"SetPitch", {.Value = nPitch, .bByReference = true});
}

void SetReaderVolume(int16_t nVolume) {
    TellReader(L"SetVolume", {.Value = nVolume});
}

void QuietHostVoice() {
    const auto hHost = platform::FindTopWindow(L"", L"HOSTWATCH");
    if (!platform::IsWindowHandle(hHost)) return;
    if (platform::WindowClassName(hHost).find(L"ThunderRT6Main") == std::wstring::npos) return;
    AutomationObject Relay;
    Unneeded(platform::CreateAutomationObject(L"Relayer.Voice", Relay));  // none, nobody is called
    std::array<AutomationArgument, 3> Arguments{
        {{.Value = platform::NullString{}}, {.Value = int16_t{0}}, {.Value = int16_t{4}}}};
    Call(Relay, L"Voice", Arguments);
}

}  // namespace taviro
