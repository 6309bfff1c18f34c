// SPDX-License-Identifier: MIT
#include "actions/key_synthesis.h"

#include <algorithm>

#include "actions/key_sequence.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

using platform::InputRecord;
using platform::KeyRecord;

class KeySynthesis : public ActionTest {};

// Records as the system must get them: down 0, up 2, and 8 more by scan code.
InputRecord VkDown(uint16_t n) {
    return KeyRecord{n, 0, 0, 0, 0};
}
InputRecord VkUp(uint16_t n) {
    return KeyRecord{n, 0, 2, 0, 0};
}
InputRecord ScanDown(uint16_t n) {
    return KeyRecord{0, n, 8, 0, 0};
}
InputRecord ScanUp(uint16_t n) {
    return KeyRecord{0, n, 10, 0, 0};
}

TEST_F(KeySynthesis, Primitives_SendTheirRecordsInOneCall) {
    const struct {
        const char* szName;
        uint32_t (*pOperation)(uint16_t);
        uint16_t nCode;
        std::vector<InputRecord> Records;
        const char* szCall;
    } Rows[] = {
        {"SendVirtualKey",
         SendVirtualKey,
         65,
         {VkDown(65), VkUp(65)},
         "SendInput: vk 65 down, vk 65 up"},
        {"KeyDownVk", KeyDownVk, 18, {VkDown(18)}, "SendInput: vk 18 down"},
        {"KeyUpVk", KeyUpVk, 18, {VkUp(18)}, "SendInput: vk 18 up"},
        {"KeyTapScan",
         KeyTapScan,
         30,
         {ScanDown(30), ScanUp(30)},
         "SendInput: scan 30 down, scan 30 up"},
        {"KeyDownScan", KeyDownScan, 541, {ScanDown(541)}, "SendInput: scan 541 down"},
        {"KeyUpScan", KeyUpScan, 541, {ScanUp(541)}, "SendInput: scan 541 up"},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Desktop.Sent.clear();
        EXPECT_EQ(Row.pOperation(Row.nCode), Row.Records.size());
        EXPECT_EQ(Desktop.Sent, Row.Records);
        EXPECT_EQ(Desktop.TakeEffects(), Effects{Row.szCall});
    }
}

TEST_F(KeySynthesis, Primitives_ReturnZero_WhenInputIsBlocked) {
    Desktop.Failures.Always("SendInputRecords");
    EXPECT_EQ(SendVirtualKey(65), 0U);
    EXPECT_EQ(KeyTapScan(30), 0U);
    EXPECT_EQ(KeyDownVk(16), 0U);
}

// What each code sends, call by call, and what a text field gets of it.
struct CodeRow {
    const char* szName;
    int32_t nCode;
    Effects Calls;
    std::wstring strTyped;
};

class PressedCode : public ActionTest, public ::testing::WithParamInterface<CodeRow> {};

TEST_P(PressedCode, SendsItsEventsInOrder_LeavesNoKeyDown) {
    PressActionCode(GetParam().nCode);
    EXPECT_EQ(Desktop.TakeEffects(), GetParam().Calls);
    EXPECT_EQ(Typed(), GetParam().strTyped);
    EXPECT_TRUE(Desktop.KeysDown().empty());
}

const std::string SHIFT_UP = "SendInput: scan 54 up";
const std::string SHIFT_TAP = "SendInput: vk 161 down, vk 161 up";

INSTANTIATE_TEST_SUITE_P(
    Table, PressedCode,
    ::testing::Values(
        // no modifier: the kinds
        CodeRow{"VirtualKey", 65, {"SendInput: vk 65 down, vk 65 up"}, L"a"},
        CodeRow{"Character",
                1097,
                {"keybd_event: vk 65 scan 30 flags 0", "keybd_event: vk 65 scan 30 flags 2"},
                L"a"},
        CodeRow{"Acute",
                2030,
                {"SendInput: scan 13 down", "SendInput: scan 13 up",
                 "SendInput: scan 30 down, scan 30 up"},
                L"á"},
        CodeRow{"Caron",
                3032,
                {"SendInput: scan 42 down", "SendInput: scan 13 down", "SendInput: scan 13 up",
                 "SendInput: scan 42 up", "SendInput: scan 32 down, scan 32 up"},
                L"ď"},
        CodeRow{"ScanCode", 4030, {"SendInput: scan 30 down, scan 30 up"}, L"a"},
        CodeRow{"AltGr",
                5047,
                {"SendInput: scan 541 down", "SendInput: scan 56 down",
                 "SendInput: scan 47 down, scan 47 up", "SendInput: scan 541 up",
                 "SendInput: scan 56 up"},
                L"@"},
        CodeRow{"KindWithoutMeaningIsAVirtualKey", 6066, {"SendInput: vk 66 down, vk 66 up"}, L"b"},
        // modifiers
        CodeRow{"Shift",
                10065,
                {"SendInput: scan 54 down", "SendInput: vk 65 down, vk 65 up", SHIFT_UP, SHIFT_TAP},
                L"A"},
        CodeRow{"ShiftIgnoresTheKind",
                11065,
                {"SendInput: scan 54 down", "SendInput: vk 65 down, vk 65 up", SHIFT_UP, SHIFT_TAP},
                L"A"},
        CodeRow{
            "Ctrl",
            21065,
            {"SendInput: scan 29 down", "SendInput: vk 65 down, vk 65 up", "SendInput: scan 29 up"},
            L""},
        CodeRow{"Alt",
                41065,
                {"SendInput: vk 18 down", "SendInput: vk 65 down, vk 65 up", "SendInput: vk 18 up"},
                L""},
        CodeRow{"CtrlShift",
                30065,
                {"SendInput: scan 29 down", "SendInput: scan 54 down",
                 "SendInput: vk 65 down, vk 65 up", SHIFT_UP, SHIFT_TAP, "SendInput: scan 29 up"},
                L""},
        CodeRow{"AltShift",
                50065,
                {"SendInput: vk 18 down", "SendInput: scan 54 down",
                 "SendInput: vk 65 down, vk 65 up", SHIFT_UP, SHIFT_TAP, "SendInput: vk 18 up"},
                L""},
        CodeRow{"AltCtrlShift",
                71065,
                {"SendInput: vk 18 down", "SendInput: scan 29 down", "SendInput: scan 54 down",
                 "SendInput: vk 65 down, vk 65 up", SHIFT_UP, SHIFT_TAP, "SendInput: scan 29 up",
                 "SendInput: vk 18 up"},
                L""},
        CodeRow{"Windows",
                91082,
                {"keybd_event: vk 91 scan 0 flags 0", "SendInput: vk 82 down, vk 82 up",
                 "keybd_event: vk 91 scan 0 flags 2"},
                L""},
        CodeRow{"EightIsNoModifier", 80065, {"SendInput: vk 65 down, vk 65 up"}, L"a"},
        CodeRow{
            "TenHasTheBitOfCtrl",
            100065,
            {"SendInput: scan 29 down", "SendInput: vk 65 down, vk 65 up", "SendInput: scan 29 up"},
            L""},
        // Shift+Delete
        CodeRow{"ShiftDelete",
                10046,
                {"SendInput: vk 16 down", "SendInput: scan 54 down",
                 "SendInput: vk 46 down, vk 46 up", "SendInput: vk 16 up", SHIFT_UP},
                L""},
        CodeRow{"ShiftDeleteOfAnotherKindIsOrdinary",
                12046,
                {"SendInput: scan 54 down", "SendInput: vk 46 down, vk 46 up", SHIFT_UP, SHIFT_TAP},
                L""}),
    [](const auto& Info) { return Info.param.szName; });

TEST_F(KeySynthesis, ShiftDelete_WaitsAroundTheTap) {
    PressActionCode(10046);
    std::vector<uint32_t> Times;
    for (const auto& Done : Desktop.Transcript)
        Times.push_back(Done.nTime - Desktop.Transcript.front().nTime);
    EXPECT_EQ(Times, (std::vector<uint32_t>{0, 0, 10, 20, 20}));
    EXPECT_EQ(Desktop.Sent, (std::vector<InputRecord>{VkDown(16), ScanDown(54), VkDown(46),
                                                      VkUp(46), VkUp(16), ScanUp(54)}));
}

TEST_F(KeySynthesis, Shift_LetsMessagesRunOnceItIsDown_OthersDoNot) {
    Desktop.At(Desktop.nNow, [] { Desktop.Record("message"); });
    PressActionCode(61065);  // Alt and Ctrl
    PressActionCode(91065);
    EXPECT_EQ(Desktop.TakeEffects().size(), 5U + 3U);
    PressActionCode(70065);
    const Effects Calls = Desktop.TakeEffects();
    EXPECT_EQ(Calls[2], "SendInput: scan 54 down");
    EXPECT_EQ(Calls[3], "message");
    EXPECT_EQ(Calls[4], "SendInput: vk 65 down, vk 65 up");
}

TEST_F(KeySynthesis, Modifiers_TakeNoTime) {
    const uint32_t nStart = Desktop.nNow;
    PressActionCode(70065);
    EXPECT_EQ(Desktop.nNow, nStart);
}

TEST_F(KeySynthesis, CzechLetters_ArriveThroughTheirDeadKeys) {
    for (const int32_t nCode : {2030, 2018, 2023, 3046, 3018, 3019, 3031, 3021, 3049, 3020})
        PressActionCode(nCode);
    EXPECT_EQ(Typed(), L"áéíčěřšžňť");
    EXPECT_TRUE(Desktop.KeysDown().empty());
}

TEST_F(KeySynthesis, TypeCharacter_ReleasesShiftBeforeTheKey_WhenItIsUpperCase) {
    TypeCharacter('A');
    // The layout has no key for the character 16: its answer -1 gives the scan code 255.
    EXPECT_EQ(
        Desktop.TakeEffects(),
        (Effects{"keybd_event: vk 16 scan 255 flags 0", "keybd_event: vk 65 scan 30 flags 0",
                 "keybd_event: vk 16 scan 255 flags 2", "keybd_event: vk 65 scan 30 flags 2"}));
    EXPECT_EQ(Typed(), L"A");
    EXPECT_TRUE(Desktop.KeysDown().empty());
}

TEST_F(KeySynthesis, TypeCharacter_IgnoresCtrlAndAlt_WhenTheCharacterNeedsAltGr) {
    TypeCharacter('@');
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"keybd_event: vk 86 scan 47 flags 0",
                                              "keybd_event: vk 86 scan 47 flags 2"}));
    EXPECT_EQ(Typed(), L"v");
}

TEST_F(KeySynthesis, TypeCharacter_SendsTheLayoutsNo_WhenNoKeyTypesTheCharacter) {
    TypeCharacter(1);
    EXPECT_EQ(
        Desktop.TakeEffects(),
        (Effects{"keybd_event: vk 16 scan 255 flags 0", "keybd_event: vk 255 scan 255 flags 0",
                 "keybd_event: vk 16 scan 255 flags 2", "keybd_event: vk 255 scan 255 flags 2"}));
    EXPECT_EQ(Typed(), L"");
    EXPECT_TRUE(Desktop.KeysDown().empty());
}

TEST_F(KeySynthesis, TypeCharacter_TypesCzechLettersOfTheLayout) {
    for (const char nByte : platform::ToAnsi(L"ěščřžýáíéůú"))
        TypeCharacter(static_cast<uint8_t>(nByte));
    EXPECT_EQ(Typed(), L"ěščřžýáíéůú");
}

TEST_F(KeySynthesis, EveryCodeUpToAHundredThousand_LeavesNoKeyDown) {
    Desktop.bRecording = false;
    for (int32_t nCode = 1; nCode < 100000; nCode += 7) {
        PressActionCode(nCode);
        ASSERT_TRUE(Desktop.KeysDown().empty()) << nCode;
        Desktop.Sent.clear();
    }
}

// The keys that select, and those that work with Shift, as cells and as typed sequences.
TEST_F(KeySynthesis, ShiftedKeysOfTheNumberPad_KeepShift_WhateverNumLockSays) {
    const std::pair<int32_t, const wchar_t*> KEYS[] = {
        {37, L"+{LEFT}"}, {38, L"+{UP}"},  {39, L"+{RIGHT}"}, {40, L"+{DOWN}"},   {33, L"+{PGUP}"},
        {34, L"+{PGDN}"}, {35, L"+{END}"}, {36, L"+{HOME}"},  {45, L"+{INSERT}"}, {46, L"+{DEL}"}};
    for (const bool bNumLock : {false, true}) {
        for (const auto& [nVk, szSequence] : KEYS) {
            Desktop.Keyboard.bNumLock = bNumLock;
            const platform::headless::ReceivedKey Selecting{.nVk = static_cast<uint32_t>(nVk),
                                                            .bShift = true};
            for (const bool bCell : {true, false}) {
                Desktop.Keyboard.Received.clear();
                bCell ? PressActionCode(10000 + nVk) : vbSendKey(szSequence);
                const auto& Received = Desktop.Keyboard.Received;
                EXPECT_EQ(std::count(Received.begin(), Received.end(), Selecting), 1)
                    << nVk << (bNumLock ? " with NumLock" : "") << (bCell ? " cell" : " sequence");
                EXPECT_TRUE(Desktop.KeysDown().empty());
            }
        }
    }
}

}  // namespace
}  // namespace taviro
