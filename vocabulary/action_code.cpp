// SPDX-License-Identifier: MIT
#include "vocabulary/action_code.h"

#include <algorithm>
#include <array>

#include "vocabulary/key_code.h"

namespace taviro {

namespace {

constexpr int32_t MODIFIER_UNIT = 10000;
constexpr int32_t KIND_UNIT = 1000;
constexpr int32_t KINDS_A_MODIFIER = MODIFIER_UNIT / KIND_UNIT;

constexpr int32_t KIND_VIRTUAL_KEY = 0;
constexpr int32_t KIND_ACUTE = 2;
constexpr int32_t KIND_CARON = 3;

constexpr bool DOWN = true;
constexpr bool UP = false;
constexpr ScanEvent ACUTE[] = {{ScanCode::DeadKey, DOWN}, {ScanCode::DeadKey, UP}};
constexpr ScanEvent CARON[] = {{ScanCode::LeftShift, DOWN},
                               {ScanCode::DeadKey, DOWN},
                               {ScanCode::DeadKey, UP},
                               {ScanCode::LeftShift, UP}};
constexpr ScanEvent ALTGR_DOWN[] = {{ScanCode::AltGrCtrl, DOWN}, {ScanCode::Alt, DOWN}};
constexpr ScanEvent ALTGR_UP[] = {{ScanCode::AltGrCtrl, UP}, {ScanCode::Alt, UP}};

// By the digit of the kind.
constexpr std::array<ActionKind, 6> KINDS{{
    {.szName = "virtual key",
     .nRoute = KeyRoute::VirtualKey,
     .Before = {},
     .After = {},
     .nEffect = WordEffect::LayoutCharacter},
    {.szName = "character",
     .nRoute = KeyRoute::Character,
     .Before = {},
     .After = {},
     .nEffect = WordEffect::TypedCharacter},
    {.szName = "acute and key",
     .nRoute = KeyRoute::ScanCode,
     .Before = ACUTE,
     .After = {},
     .nEffect = WordEffect::UnknownCharacter},
    {.szName = "caron and key",
     .nRoute = KeyRoute::ScanCode,
     .Before = CARON,
     .After = {},
     .nEffect = WordEffect::CaronLetter},
    {.szName = "scan code",
     .nRoute = KeyRoute::ScanCode,
     .Before = {},
     .After = {},
     .nEffect = WordEffect::ScannedKey},
    {.szName = "AltGr and key",
     .nRoute = KeyRoute::ScanCode,
     .Before = ALTGR_DOWN,
     .After = ALTGR_UP,
     .nEffect = WordEffect::UnknownCharacter},
}};

constexpr ActionKind WITHOUT_MEANING{.szName = "no kind",
                                     .nRoute = KeyRoute::VirtualKey,
                                     .Before = {},
                                     .After = {},
                                     .nEffect = WordEffect::SilentKey};
constexpr ActionKind MODIFIED{.szName = "virtual key with modifiers",
                              .nRoute = KeyRoute::VirtualKey,
                              .Before = {},
                              .After = {},
                              .nEffect = WordEffect::ModifiedKey};

constexpr ComposedLetter COMPOSED_LETTERS[] = {
    {.nLetter = L'ď', .Action = {.nKind = KIND_CARON, .nKey = 32}},
    {.nLetter = L'ň', .Action = {.nKind = KIND_CARON, .nKey = 49}},
    {.nLetter = L'ť', .Action = {.nKind = KIND_CARON, .nKey = 20}},
    {.nLetter = L'ó', .Action = {.nKind = KIND_ACUTE, .nKey = 24}},
};

}  // namespace

ActionCode ParseActionCode(int32_t nCode) {
    return {.nModifiers = nCode / MODIFIER_UNIT,
            .nKind = nCode % MODIFIER_UNIT / KIND_UNIT,
            .nKey = nCode % KIND_UNIT};
}

int32_t ComposeActionCode(const ActionCode& Action) {
    return Action.nModifiers * MODIFIER_UNIT + Action.nKind * KIND_UNIT + Action.nKey;
}

bool HasModifier(const ActionCode& Action, int32_t nModifier) {
    const bool bWindows = Action.nModifiers == Modifier::Windows;
    if (nModifier == Modifier::Windows || bWindows)
        return bWindows && nModifier == Modifier::Windows;
    return (Action.nModifiers & nModifier) != 0;
}

int32_t UnmodifiedCode(int32_t nCode) {
    return nCode % MODIFIER_UNIT;
}

int32_t WholeKind(const ActionCode& Action) {
    return Action.nModifiers * KINDS_A_MODIFIER + Action.nKind;
}

ActionCode FromWholeKind(int32_t nKey, int32_t nWholeKind) {
    return {.nModifiers = nWholeKind / KINDS_A_MODIFIER,
            .nKind = nWholeKind % KINDS_A_MODIFIER,
            .nKey = nKey};
}

bool IsShiftDelete(const ActionCode& Action) {
    constexpr ActionCode SHIFT_DELETE{
        .nModifiers = Modifier::Shift, .nKind = KIND_VIRTUAL_KEY, .nKey = KeyCode::Delete};
    return Action == SHIFT_DELETE;
}

const ActionKind& KindOf(const ActionCode& Action) {
    if (Action.nModifiers != 0) return MODIFIED;
    const auto nKind = static_cast<size_t>(Action.nKind);
    return Action.nKind >= 0 && nKind < KINDS.size() ? KINDS[nKind] : WITHOUT_MEANING;
}

std::span<const ComposedLetter> ComposedLetters() {
    return COMPOSED_LETTERS;
}

wchar_t ComposedLetterOf(const ActionCode& Action) {
    const auto* pFound =
        std::find_if(std::begin(COMPOSED_LETTERS), std::end(COMPOSED_LETTERS),
                     [&](const ComposedLetter& Known) { return Known.Action == Action; });
    return pFound == std::end(COMPOSED_LETTERS) ? L'\0' : pFound->nLetter;
}

}  // namespace taviro
