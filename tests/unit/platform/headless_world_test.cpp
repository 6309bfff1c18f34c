// SPDX-License-Identifier: MIT
// What goes on around a program that is busy, on the virtual desktop: time, other people's acts,
// posted work, and the calls that Windows refuses.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/headless/desktop.h"
#include "platform/keyboard_hook.h"
#include "platform/messages.h"

namespace taviro::platform {
namespace {

using headless::Desktop;
using Events = std::vector<std::string>;

Events Happened;

void NoteEvent(const std::string& strWhat) {
    Happened.push_back(std::to_string(Desktop.nNow - 1000) + " " + strWhat);
}

class HeadlessWorldTest : public ::testing::Test {
  protected:
    HeadlessWorldTest() {
        Desktop = headless::DesktopState{};
        Happened.clear();
        Reports = {};
    }
    ~HeadlessWorldTest() override { Desktop = headless::DesktopState{}; }
};

TEST_F(HeadlessWorldTest, Others_ActAtTheirTimes_WhileTheProgramSleeps) {
    Desktop.Meanwhile(1300, [] { NoteEvent("second"); });
    Desktop.Meanwhile(1100, [] { NoteEvent("first"); });
    Desktop.Meanwhile(1900, [] { NoteEvent("later"); });
    Desktop.At(1200, [] { NoteEvent("message"); });
    SleepMs(500);
    EXPECT_EQ(Happened, (Events{"100 first", "300 second"}));
    EXPECT_EQ(Desktop.nNow, 1500U);
    Desktop.RunFor(500);
    EXPECT_EQ(Happened, (Events{"100 first", "300 second", "500 message", "900 later"}));
    EXPECT_EQ(Desktop.nNow, 2000U);
}

TEST_F(HeadlessWorldTest, Others_ActInTheOrderOfTimes_WhileTheProgramIsIdle) {
    Desktop.At(1200, [] { NoteEvent("message"); });
    Desktop.Meanwhile(1200, [] { NoteEvent("other, at the same time"); });
    Desktop.Meanwhile(1100, [] { NoteEvent("other"); });
    Desktop.RunFor(300);
    EXPECT_EQ(Happened, (Events{"100 other", "200 other, at the same time", "200 message"}));
}

TEST_F(HeadlessWorldTest, PostedWork_IsDoneInOrder_WhereMessagesRun) {
    Post([] {
        NoteEvent("first");
        SleepMs(100);
        Post([] { NoteEvent("third"); });
    });
    Post([] { NoteEvent("second"); });
    SleepMs(50);
    EXPECT_EQ(Happened, Events{}) << "a sleep lets no messages run";
    RunPendingMessages();
    EXPECT_EQ(Happened, (Events{"50 first", "150 second", "150 third"}));
}

// The hook of these tests posts that it saw a key, and tries to call another program.
AutomationObject Server;
bool bCalled = false;

intptr_t PostAndCall(int32_t nCode, uintptr_t wParam, const KeyHookRecord& Record) {
    Post([nVk = Record.vkCode] { NoteEvent("key " + std::to_string(nVk)); });
    AutomationValue Result;
    AutomationObject Made;
    bCalled = CallMethod(Server, L"Do", {}, Result) || GetProperty(Server, L"Is", {}, Result) ||
              PutProperty(Server, L"Is", int32_t{1}) || CreateAutomationObject(L"Some.Class", Made);
    return CallNextHook(0, nCode, wParam, Record);
}

TEST_F(HeadlessWorldTest, PhysicalKey_LetsPostedWorkBeDone_WhereTheProgramWaitsForMessages) {
    ASSERT_NE(InstallHook(HOOK_KEYBOARD_LL, PostAndCall), 0U);
    Desktop.PhysicalKey('A', true);
    EXPECT_EQ(Happened, (Events{"0 key 65"}));
    Desktop.Meanwhile(1200, [] {
        Desktop.PhysicalKey('B', true);
        EXPECT_EQ(Happened.size(), 1U) << "the program sleeps";
    });
    SleepMs(300);
    EXPECT_TRUE(Desktop.Keyboard.bDown['B']) << "the hook does not wait";
    EXPECT_EQ(Happened.size(), 1U);
    Desktop.RunDue();
    EXPECT_EQ(Happened.back(), "300 key 66");
}

TEST_F(HeadlessWorldTest, CallsToOtherPrograms_AreRefused_InsideTheHookAndInsideASentMessage) {
    const auto Make = [] {
        return headless::MakeObject([](headless::MemberUse, const std::wstring&,
                                       std::span<AutomationArgument>,
                                       AutomationValue&) { return true; });
    };
    Desktop.Classes[L"Some.Class"] = Make;
    Server = Make();
    ASSERT_NE(InstallHook(HOOK_KEYBOARD_LL, PostAndCall), 0U);
    bCalled = true;
    Desktop.PhysicalKey('A', true);
    EXPECT_FALSE(bCalled);
    EXPECT_EQ(Desktop.DebuggerLines.front(), L"Failed: CallMethod, error 0x8001010D");
    AutomationValue Result;
    EXPECT_TRUE(CallMethod(Server, L"Do", {}, Result)) << "the key is over";
    {
        const headless::Within Message(Desktop.nNoCallsOut);
        EXPECT_FALSE(CallMethod(Server, L"Do", {}, Result));
    }
    EXPECT_TRUE(CallMethod(Server, L"Do", {}, Result));
    Server.reset();
}

}  // namespace
}  // namespace taviro::platform
