// SPDX-License-Identifier: MIT
#include "actions/prediction.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "actions/choice_list.h"
#include "platform/keys.h"
#include "platform/text.h"
#include "platform/unneeded.h"
#include "state/mode_state.h"
#include "vocabulary/action_code.h"

namespace taviro {

namespace {

// What ends a word: characters, and key numbers. The numbers are those of the characters, and the
// virtual keys of the same numbers end a word alike.
constexpr std::wstring_view ENDING_CHARACTERS = L" ,.;\r";
constexpr std::wstring_view ENDING_KEYS = L"!()+-?";

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
KeyAnswer TypedCharacter(const ActionCode& Action) {
    switch (KindOf(Action).nEffect) {
        case WordEffect::LayoutCharacter:
            return AnswerOfVk(Action.nKey);
        case WordEffect::CaronLetter:
            return {1, ComposedLetterOf(Action)};
        case WordEffect::TypedCharacter:
        case WordEffect::UnknownCharacter:
        case WordEffect::ScannedKey:
        case WordEffect::SilentKey:
        case WordEffect::ModifiedKey:
            break;
    }
    return {};
}

bool EndsWord(wchar_t nCharacter, int32_t nKey) {
    const auto IsKey = [&](wchar_t nEnding) { return nKey == static_cast<int32_t>(nEnding); };
    return ENDING_CHARACTERS.find(nCharacter) != std::wstring_view::npos ||
           std::any_of(ENDING_KEYS.begin(), ENDING_KEYS.end(), IsKey);
}

// The dictionary's answer to the typed prefix, in the choice list's format; empty when it has none.
std::wstring Completions() {
    if (Prediction.objDictionary == nullptr) {
        // Not installed: asked again with the next key, so that it can be added in a run.
        Unneeded(platform::CreateAutomationObject(L"Presager.Dict", Prediction.objDictionary));
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

void UpdatePrediction(int32_t nKey, int32_t /*nModifiers*/, int32_t nKind) {
    const ActionCode Action = FromWholeKind(nKey, nKind);
    const KeyAnswer Typed = TypedCharacter(Action);
    if (EndsWord(Typed.nCharacter, nKey)) {
        Prediction.strPrefix.clear();
        Prediction.strSuffix.clear();
        LosePlace(Prediction.Standing);
    } else {
        Prediction.strPrefix = platform::TrimBlanks(Prediction.strPrefix + Typed.nCharacter);
        NoteAction(Prediction.Standing, Action, Typed);
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
