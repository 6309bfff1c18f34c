// SPDX-License-Identifier: MIT
// The layout of the program in front as the system tells it, beside the keyboard of the maps.
#include "platform/front_layout.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "platform/keys.h"
#include "platform/map_keyboard.h"
#include "platform/text.h"
#include "tests/win32/test_support.h"

namespace taviro::platform {
namespace {

// What the system says of its Czech layout is what the maps are written for. Letters only: of signs
// that two keys type it may name either, and Wine's Czech layout is not in all of them Windows's.
TEST(MapKeyboard_IsTheSystemsCzechLayout, WhenThatIsInFront) {
    if (!tests::HasDrawing()) GTEST_SKIP() << "no keyboard layout either";
    const LayoutHandle hLayout = LayoutInFront();
    ASSERT_TRUE(IsLayoutOfMaps(hLayout)) << hLayout;
    for (const wchar_t nLetter : std::wstring_view(L"abcdefghijklmnopqrstuvwxyzABCXYZ,.")) {
        EXPECT_EQ(KeyOnLayout(hLayout, nLetter), MapKeyOf(nLetter))
            << ToUtf8(std::wstring(1, nLetter));
        const auto nVk = static_cast<uint32_t>(MapKeyOf(nLetter) & 0xFF);
        EXPECT_EQ(ScanOnLayout(hLayout, nVk), MapCodeOf(nVk, MAP_VK_TO_SCAN))
            << ToUtf8(std::wstring(1, nLetter));
        EXPECT_EQ(VkAtScan(hLayout, ScanOnLayout(hLayout, nVk)), nVk)
            << ToUtf8(std::wstring(1, nLetter));
    }
}

TEST(LayoutInFront_IsThatOfTheProgram, WhenNobodyElseHasTheFocus) {
    EXPECT_EQ(LayoutInFront(), reinterpret_cast<LayoutHandle>(GetKeyboardLayout(0)));
}

TEST(CharactersOfTheOemCodePage, HaveTheirKeys) {
    EXPECT_EQ(CharToOemAnsi('a'), 'a');
    for (const char cLetter : ToAnsi(L"aAz0+ěščřžýáíéúů;")) {
        const auto c = static_cast<uint8_t>(cLetter);
        const auto* pKey = KeyOfVk(MapKeys(), static_cast<uint32_t>(VkKeyScanAnsi(c) & 0xFF));
        ASSERT_NE(pKey, nullptr) << int{c};
        EXPECT_EQ(OemKeyScanCode(CharToOemAnsi(c)) & 0xFF, pKey->nScan) << int{c};
    }
    EXPECT_EQ(OemKeyScanCode(CharToOemAnsi(static_cast<uint8_t>(ToAnsi(L"Č").front()))),
              0xFFFFFFFFU);
}

TEST(ScanCodes_AreTheSystems, WhereTheMapsSayNothing) {
    EXPECT_EQ(MapVirtualKeyCode(VK_NUMPAD7, MAP_VK_TO_SCAN), MapVirtualKeyW(VK_NUMPAD7, 0));
    EXPECT_EQ(MapVirtualKeyCode('Z', MAP_VK_TO_SCAN), 0x15U);
}

}  // namespace
}  // namespace taviro::platform
