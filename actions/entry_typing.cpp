// SPDX-License-Identifier: MIT
#include "actions/entry_typing.h"

#include <algorithm>
#include <string_view>

#include "actions/key_sequence.h"
#include "actions/key_synthesis.h"
#include "actions/prediction.h"
#include "platform/keys.h"
#include "platform/text.h"
#include "vocabulary/action_code.h"
#include "vocabulary/key_code.h"
#include "vocabulary/key_sequence_text.h"
#include "vocabulary/list_text.h"

namespace taviro {

namespace {

bool HasKey(wchar_t nLetter) {
    const std::string strByte = platform::ToAnsi(std::wstring(1, nLetter));
    const bool bSame = platform::FromAnsi(strByte) == std::wstring(1, nLetter);
    return bSame && platform::VkKeyScanAnsi(static_cast<uint8_t>(strByte.front())) !=
                        platform::LAYOUT_NO_KEY;
}

// The action code that types a letter for which the layout has no key, 0 when there is none.
int32_t DeadKeyCode(wchar_t nLetter) {
    const auto Letters = ComposedLetters();
    const auto Found =
        std::find_if(Letters.begin(), Letters.end(),
                     [&](const ComposedLetter& Known) { return Known.nLetter == nLetter; });
    return Found == Letters.end() || HasKey(nLetter) ? 0 : ComposeActionCode(Found->Action);
}

// A chosen text has its own case, so Caps Lock that a cell turned on is turned off before it.
void ReleaseCapsLock() {
    if (!Prediction.Standing.bCapsLock) return;
    SendVirtualKey(KeyCode::CapsLock);
    Prediction.Standing.bCapsLock = false;
}

void SendText(const std::wstring& strText) {
    if (!IsPlainText(strText)) return vbSendKey(strText);
    std::wstring strKeys;
    for (const wchar_t nCharacter : strText) {
        const int32_t nCode = DeadKeyCode(nCharacter);
        if (nCode == 0) {
            strKeys += nCharacter;
            continue;
        }
        vbSendKey(strKeys);
        strKeys.clear();
        PressActionCode(nCode);
    }
    vbSendKey(strKeys);
}

// The word that a label stands for; what is held follows.
std::wstring TakeWord(std::wstring strLabel) {
    std::wstring& strHeld = Prediction.strSuffix;
    if (!TakeHeldMark(strLabel)) {
        strHeld.clear();
        return strLabel;
    }
    if (!strLabel.starts_with(strHeld)) strLabel += strHeld;
    strHeld = strLabel;
    return strLabel;
}

// Erases what was typed of the word and returns what remains to be typed.
std::wstring MakeRoom(const std::wstring& strWord) {
    const std::wstring strStanding = StandingText(Prediction.Standing);
    if (strStanding == strWord) return {};
    const auto nCounted = static_cast<size_t>(Prediction.nTypedCount);
    size_t nLeft = strStanding.size() - std::min(nCounted, strStanding.size());
    if (!strWord.starts_with(strStanding.substr(0, nLeft))) nLeft = 0;
    for (size_t n = nLeft; n < strStanding.size(); ++n)
        SendVirtualKey(KeyCode::Backspace);
    return strWord.substr(nLeft);
}

}  // namespace

void TypeChosenText(const std::wstring& strLabel, bool bWithBlank, bool bCompletion) {
    if (!bCompletion) Prediction.strSuffix.clear();
    const std::wstring strWord = TakeWord(strLabel);
    if (strWord.empty()) return;
    ReleaseCapsLock();
    std::wstring strRest = bCompletion ? MakeRoom(strWord) : strWord;
    if (bWithBlank) {
        strRest += L' ';
        Prediction.strPrefix.clear();
        Prediction.strSuffix.clear();
        LosePlace(Prediction.Standing);
    } else {
        Prediction.strPrefix = strWord;
        const bool bStands =
            IsPlainText(strWord) && std::all_of(strWord.begin(), strWord.end(), IsTypedFromList);
        SetStanding(Prediction.Standing, bStands ? strWord : std::wstring{});
    }
    SendText(strRest);
}

bool IsTypedFromList(wchar_t nLetter) {
    return HasKey(nLetter) || DeadKeyCode(nLetter) != 0;
}

}  // namespace taviro
