// SPDX-License-Identifier: MIT
#include "actions/prediction.h"

#include <algorithm>
#include <array>

#include "actions/choice_list.h"
#include "platform/keys.h"
#include "platform/text.h"
#include "state/mode_state.h"

namespace taviro {

namespace {

constexpr int32_t KIND_VIRTUAL_KEY = 0;
constexpr int32_t KIND_CARON = 3;

// Letters that a caron key types, by scan code; no other letter typed so is recognised.
struct CaronLetter {
    int32_t nScan;
    wchar_t nLetter;
};
constexpr CaronLetter CARON_LETTERS[] = {{32, L'ď'}, {49, L'ň'}, {20, L'ť'}};

// What ends a word: characters, and key numbers. The numbers stand for ! ( ) + - ? typed as
// characters and for the virtual keys of the same numbers alike.
constexpr std::array<wchar_t, 5> ENDING_CHARACTERS{L' ', L',', L'.', L';', L'\r'};
constexpr std::array<int32_t, 6> ENDING_KEYS{33, 40, 41, 43, 45, 63};

KeyAnswer AnswerOfVk(int32_t nVk) {
    static constexpr std::array<uint8_t, 256> ALL_KEYS_UP{};
    uint16_t nCharacter = 0;
    const int32_t nCount =
        platform::KeyToAnsi(static_cast<uint32_t>(nVk), 0, ALL_KEYS_UP, nCharacter);
    if (nCount < 1) return {nCount, 0};
    const std::string strByte(1, static_cast<char>(nCharacter & 0xFF));
    return {nCount, platform::FromAnsi(strByte).front()};
}

// The character that an action typed, 0 when it is not known.
KeyAnswer TypedCharacter(int32_t nKey, int32_t nKind) {
    if (nKind == KIND_VIRTUAL_KEY) return AnswerOfVk(nKey);
    if (nKind != KIND_CARON) return {};
    for (const CaronLetter& Letter : CARON_LETTERS) {
        if (Letter.nScan == nKey) return {1, Letter.nLetter};
    }
    return {};
}

bool EndsWord(wchar_t nCharacter, int32_t nKey) {
    const auto Holds = [](const auto& Values, auto nValue) {
        return std::find(Values.begin(), Values.end(), nValue) != Values.end();
    };
    return Holds(ENDING_CHARACTERS, nCharacter) || Holds(ENDING_KEYS, nKey);
}

// The dictionary's answer to the typed prefix, in the choice list's format; empty when it has none.
std::wstring Completions() {
    if (Prediction.objDictionary == nullptr) {
        // Not installed: asked again with the next key, so that it can be added in a run.
        (void)platform::CreateAutomationObject(L"Presager.Dict", Prediction.objDictionary);
    }
    if (Prediction.objDictionary == nullptr) return {};
    platform::AutomationArgument Prefix{.Value = Prediction.strPrefix, .bByReference = true};
    platform::AutomationValue Result;
    if (!platform::CallMethod(Prediction.objDictionary, L"GetPrediction", {&Prefix, 1}, Result)) {
        return {};
    }
    // Passed by reference: what the dictionary made of the prefix is the prefix.
    if (auto* pPrefix = std::get_if<std::wstring>(&Prefix.Value)) Prediction.strPrefix = *pPrefix;
    const auto* pList = std::get_if<std::wstring>(&Result);
    return pList == nullptr ? std::wstring{} : *pList;
}

}  // namespace

void UpdatePrediction(int32_t nKey, int32_t nModifiers, int32_t nKind) {
    const KeyAnswer Typed = TypedCharacter(nKey, nKind);
    if (EndsWord(Typed.nCharacter, nKey)) {
        Prediction.strPrefix.clear();
        Prediction.strSuffix.clear();
        LosePlace(Prediction.Standing);
    } else {
        Prediction.strPrefix += Typed.nCharacter;
        Prediction.strPrefix = std::wstring(platform::TrimBlanks(Prediction.strPrefix));
        NoteAction(Prediction.Standing, nKey, nModifiers, nKind, Typed);
    }
    if (Prediction.strPrefix.empty()) return;
    const std::wstring strList = Completions();
    if (strList.empty()) return;
    Prediction.nTypedCount = static_cast<int32_t>(Prediction.strPrefix.size());
    const bool bOpens = !Modes.bListMode;
    ShowList(strList);
    if (bOpens) ChoiceList.bCompletions = true;
}

}  // namespace taviro
