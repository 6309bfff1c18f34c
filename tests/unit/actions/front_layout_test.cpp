// SPDX-License-Identifier: MIT
// What cells and texts type while the program in front has another keyboard layout than the maps.
#include "platform/front_layout.h"

#include <algorithm>
#include <iterator>

#include "actions/key_sequence.h"
#include "actions/key_synthesis.h"
#include "platform/layout_translation.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {

namespace {

using platform::LayoutHandle;
using platform::headless::CZECH_LAYOUT;
using platform::headless::RUSSIAN_LAYOUT;
using platform::headless::US_LAYOUT;

constexpr LayoutHandle LAYOUTS[] = {CZECH_LAYOUT, US_LAYOUT, RUSSIAN_LAYOUT};
constexpr uint32_t VK_OF_CHARACTERS = 231;

class FrontLayout : public ActionTest {
  protected:
    /// A program in front, its window's thread with a layout of its own.
    static void Front(LayoutHandle hLayout) {
        Desktop.Keyboard = {};
        const auto nThread = static_cast<uint32_t>(hLayout & 0xFFFF);
        Desktop.Windows = {{.hWindow = nThread, .nProcess = nThread, .nThread = nThread}};
        Desktop.Keyboard.ThreadLayouts[nThread] = hLayout;
        Desktop.hForeground = nThread;
    }

    /// What the cells of these codes type, one after the other.
    static std::wstring Pressed(std::initializer_list<int32_t> Codes) {
        Desktop.Keyboard.strTyped.clear();
        for (const int32_t nCode : Codes)
            PressActionCode(nCode);
        return Typed();
    }
};

struct TypedRow {
    const char* szName;
    std::vector<int32_t> Codes;
    std::wstring strTyped;
};

TEST_F(FrontLayout, Cells_TypeTheirCaptions_OnEveryLayout) {
    const TypedRow ROWS[] = {
        {"letters with a key of their own", {53, 50, 186, 219}, L"řěůú"},
        {"letters at other places", {89, 90}, L"yz"},
        {"a letter by its place", {4021}, L"z"},
        {"composed letters", {3032, 3049, 3020, 2024}, L"ďňťó"},
        {"capitals and digits by character", {1065, 1090, 1048, 1053}, L"AZ05"},
        {"signs by character", {1034, 1039, 1063, 1033, 1040, 1041}, L"\"'?!()"},
        {"signs with AltGr", {5047, 5045, 5046, 5018, 5016, 5051, 5052}, L"@#&€\\<>"},
        {"signs with a key", {188, 190, 192, 222, 4055}, L",.;§*"},
        {"blank, Enter, Tab", {65, 32, 13, 9}, L"a \n\t"},
        {"the number pad", {97, 107, 110}, L"1+,"},
        {"Shift with a key", {10065, 10053}, L"A5"},
        {"a dead key and a capital", {10191, 1067, 191, 1069}, L"ČÉ"},
        {"a dead key and what it does not join", {191, 81}, L"´q"},
        {"a dead key and a letter with its own key", {191, 53}, L"´ř"},
        {"a dead key and a blank", {191, 32, 65}, L"´a"},
        {"a dead key twice", {191, 191, 65}, L"´´a"},
        {"a dead key and Backspace", {65, 191, 8}, L"a"},
        {"a dead key and an arrow", {191, 39, 79}, L"ó"},
        {"Caps Lock", {20, 53, 65, 1065, 20, 53}, L"ŘAař"},
        {"Caps Lock and composed letters", {20, 3032, 2024, 20}, L"ĎÓ"},
        {"Caps Lock and AltGr", {20, 5047, 20}, L"@"},
    };
    for (const LayoutHandle hLayout : LAYOUTS) {
        for (const TypedRow& Row : ROWS) {
            Front(hLayout);
            Desktop.Sent.clear();
            for (const int32_t nCode : Row.Codes)
                PressActionCode(nCode);
            EXPECT_EQ(Typed(), Row.strTyped) << Row.szName << ", " << hLayout;
            EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{}) << Row.szName << ", " << hLayout;
        }
    }
}

TEST_F(FrontLayout, Texts_ArriveAsTheyAre_OnEveryLayout) {
    for (const LayoutHandle hLayout : LAYOUTS) {
        Front(hLayout);
        vbSendKey(L"Žluťoučká? řeka; 5 % z 12 @ {[}x{]} Z");
        // Neither capital nor small letter of these have a key.
        EXPECT_EQ(Typed(), L"luoučká? řeka; 5 z 12 @ [x] Z") << hLayout;
    }
}

TEST_F(FrontLayout, Shortcuts_StayKeys_OnEveryLayout) {
    for (const LayoutHandle hLayout : LAYOUTS) {
        Front(hLayout);
        EXPECT_EQ(Pressed({20067, 20090, 40115, 90069, 20053, 30083}), L"") << hLayout;
        std::vector<uint32_t> Keys;
        for (const auto& Key : Desktop.Keyboard.Received) {
            EXPECT_NE(Key.nVk, VK_OF_CHARACTERS);
            if (Key.nVk < 160 && Key.nVk > 18 && Key.nVk != 91) Keys.push_back(Key.nVk);
        }
        EXPECT_EQ(Keys, (std::vector<uint32_t>{67, 90, 115, 69, 53, 83})) << hLayout;
    }
}

TEST_F(FrontLayout, RulesSendTheSame_WhateverLayoutIsInFront) {
    std::vector<std::vector<std::string>> Transcripts;
    for (const LayoutHandle hLayout : LAYOUTS) {
        Front(hLayout);
        Desktop.TakeEffects();
        (void)Pressed({53, 3032, 1034, 5047, 10191, 1067, 20067});
        vbSendKey(L"čas 5");
        Transcripts.push_back(Desktop.TakeEffects());
    }
    EXPECT_EQ(Transcripts[1], Transcripts[0]);
    EXPECT_EQ(Transcripts[2], Transcripts[0]);
}

TEST_F(FrontLayout, Layout_IsThatOfTheWindowInFront_WhenTheUserChangesToAnother) {
    Front(US_LAYOUT);
    vbSendKey(L"ř");
    EXPECT_EQ(Desktop.Keyboard.Received.back().nVk, VK_OF_CHARACTERS);
    Desktop.Windows.push_back({.hWindow = 7, .nThread = 7});  // Czech, as the rest of the system
    Desktop.hForeground = 7;
    vbSendKey(L"ř");
    EXPECT_EQ(Desktop.Keyboard.Received.back().nVk, 53U);
    Desktop.Keyboard.ThreadLayouts[7] = RUSSIAN_LAYOUT;
    vbSendKey(L"ř");
    EXPECT_EQ(Desktop.Keyboard.Received.back().nVk, VK_OF_CHARACTERS);
    EXPECT_EQ(Typed(), L"řřř");
}

TEST_F(FrontLayout, Character_ArrivesWithoutCtrlAndAlt_WhenTheMapsTypeItWithAltGr) {
    Front(US_LAYOUT);
    EXPECT_EQ(Pressed({5047}), L"@");
    const auto Key = std::ranges::find(Desktop.Keyboard.Received, VK_OF_CHARACTERS,
                                       &platform::headless::ReceivedKey::nVk);
    ASSERT_NE(Key, Desktop.Keyboard.Received.end());
    EXPECT_FALSE(Key->bCtrl);
    EXPECT_FALSE(Key->bAlt);
}

std::vector<platform::KeyHookRecord> Seen;

TEST_F(FrontLayout, Key_CarriesTheScanCodeOfTheLayoutInFront_WhenItStaysAKey) {
    Front(US_LAYOUT);
    Seen.clear();
    Desktop.Keyboard.pHook = [](int32_t, uintptr_t, const platform::KeyHookRecord& Record) {
        Seen.push_back(Record);
        return intptr_t{0};
    };
    vbSendKey(L"z");
    ASSERT_EQ(Seen.size(), 2U);
    constexpr uint32_t US_SCAN_OF_Z = 0x2C;
    for (const auto& Record : Seen) {
        EXPECT_EQ(Record.vkCode, uint32_t{'Z'});
        EXPECT_EQ(Record.scanCode, US_SCAN_OF_Z);
    }
}

// Shift does not make a shortcut of a character, and what is held with it next still needs it.
TEST_F(FrontLayout, Shift_StaysDownAroundACharacter_ForTheKeysThatFollow) {
    Front(US_LAYOUT);
    using platform::KEY_FLAG_UP, platform::KeyRecord;
    constexpr uint16_t SHIFT = 16, END = 35, LETTER_WITH_HOOK = 53;
    const platform::InputRecord Records[] = {
        KeyRecord{.wVk = SHIFT},
        KeyRecord{.wVk = LETTER_WITH_HOOK},
        KeyRecord{.wVk = LETTER_WITH_HOOK, .dwFlags = KEY_FLAG_UP},
        KeyRecord{.wVk = END},
        KeyRecord{.wVk = END, .dwFlags = KEY_FLAG_UP},
        KeyRecord{.wVk = SHIFT, .dwFlags = KEY_FLAG_UP}};
    EXPECT_EQ(platform::SendInputRecords(Records), std::size(Records));
    const platform::headless::ReceivedKey Selecting{.nVk = END, .bShift = true};
    const auto& Received = Desktop.Keyboard.Received;
    EXPECT_EQ(std::count(Received.begin(), Received.end(), Selecting), 1);
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
}

TEST(LayoutTranslation_CountsRecordsOfTheRules, WhenTheSystemTookSomeOfWhatWasSent) {
    Desktop.Keyboard = {};
    Desktop.Keyboard.hLayout = US_LAYOUT;
    const platform::KeyRecord Down{.wVk = 53};
    const platform::KeyRecord Up{.wVk = 53, .dwFlags = platform::KEY_FLAG_UP};
    const platform::InputRecord Records[] = {Down, Up, platform::MouseRecord{}};
    const auto Translated = platform::Translate(Desktop.Keyboard.Translation, Records);
    EXPECT_EQ(Translated.Ends, (std::vector<size_t>{2, 2, 3}));
    EXPECT_EQ(RecordsTaken(Translated, 1), 0U) << "half of a character";
    EXPECT_EQ(RecordsTaken(Translated, 2), 2U);
    EXPECT_EQ(RecordsTaken(Translated, 3), 3U);
    Desktop.Keyboard = {};
}

}  // namespace

}  // namespace taviro
