// SPDX-License-Identifier: MIT
// The virtual desktop's smaller services: joystick, pointer, windows, processes, shell, measures,
// late-bound objects and the main window.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "platform/headless/desktop.h"
#include "platform/joystick.h"
#include "platform/main_window.h"
#include "platform/metrics.h"
#include "platform/pointer.h"
#include "platform/shell.h"
#include "platform/text_extent.h"
#include "platform/windows_and_processes.h"

namespace taviro::platform {
namespace {

using headless::Desktop;
using Effects = std::vector<std::string>;

class HeadlessServicesTest : public ::testing::Test {
  protected:
    HeadlessServicesTest() { Desktop = headless::DesktopState{}; }
    ~HeadlessServicesTest() override {
        CloseMainWindow();
        Desktop = headless::DesktopState{};
    }
};

TEST_F(HeadlessServicesTest, Joystick_KeepsRecord_WhenItIsUnpluggedOrFails) {
    JoyInfoRecord Info{};
    Desktop.Joystick.nX = 5;
    Desktop.Joystick.nButtons = 3;
    EXPECT_EQ(JoyGetPosEx(0, Info), 0U);
    EXPECT_EQ(Info.dwXpos, 5U);
    EXPECT_EQ(Info.dwYpos, 32767U);
    EXPECT_EQ(Info.dwButtons, 3U);
    Desktop.Joystick.nX = 9;
    Desktop.Failures.Next("JoyGetPosEx");
    EXPECT_NE(JoyGetPosEx(0, Info), 0U);
    Desktop.Joystick.bPresent = false;
    EXPECT_NE(JoyGetPosEx(0, Info), 0U);
    EXPECT_EQ(Info.dwXpos, 5U);
    EXPECT_EQ(Desktop.Joystick.nReads, 3U);
    JoyCapsRecord Caps{};
    EXPECT_NE(JoyGetDevCaps(0, Caps, sizeof Caps), 0U);
    Desktop.Joystick.bPresent = true;
    Desktop.RunFor(JOY_PAUSE_MS);
    EXPECT_EQ(JoyGetDevCaps(0, Caps, sizeof Caps), 0U);
    EXPECT_EQ(Caps.wXmax, 65535U);
}

TEST_F(HeadlessServicesTest, Pointer_GoesWhereItIsSent_WhenMoved) {
    ScreenPoint Point;
    EXPECT_TRUE(SetPointer({30, 40}));
    EXPECT_TRUE(GetPointer(Point));
    EXPECT_EQ(Point, (ScreenPoint{30, 40}));
    std::array<int32_t, 3> Triple{};
    EXPECT_TRUE(GetMouseAcceleration(Triple));
    EXPECT_TRUE(SetMouseAcceleration({0, 0, 0}));
    EXPECT_EQ(Triple, (std::array<int32_t, 3>{6, 10, 1}));
    EXPECT_EQ(Desktop.MouseAcceleration, (std::array<int32_t, 3>{0, 0, 0}));
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"pointer (30, 40)", "mouse acceleration 0 0 0"}));
}

TEST_F(HeadlessServicesTest, Windows_AreFound_ByTitleAndClass) {
    Desktop.Windows = {{10, L"Poznámky", L"Notepad", 100, 200}, {11, L"Jiné", L"Notepad", 0, 0}};
    EXPECT_EQ(FindTopWindow(L"", L"Jiné"), 11U);
    EXPECT_EQ(FindTopWindow(L"Notepad", L""), 10U);
    EXPECT_EQ(FindTopWindow(L"notepad", L"JINÉ"), 11U);
    EXPECT_EQ(FindTopWindow(L"", L"Jin"), 0U) << "the whole title or nothing";
    EXPECT_EQ(FindTopWindow(L"Other", L"Jiné"), 0U);
    EXPECT_TRUE(IsWindowHandle(10));
    EXPECT_FALSE(IsWindowHandle(12));
    EXPECT_FALSE(IsWindowHandle(0));
    EXPECT_EQ(WindowClassName(10), L"Notepad");
    EXPECT_EQ(WindowClassName(12), L"");
    EXPECT_EQ(WindowProcess(10), 100U);
    EXPECT_EQ(WindowThread(10), 200U);
    EXPECT_EQ(WindowProcess(12), 0U);
    EXPECT_EQ(WindowThread(12), 0U);
}

TEST_F(HeadlessServicesTest, Foreground_ChangesAndIsNoted_WhenTheWindowExists) {
    Desktop.Windows = {{10, L"A", L"Class", 100, 200}};
    EXPECT_FALSE(SetForeground(99));
    EXPECT_EQ(ForegroundActiveWindow(), 0U);
    EXPECT_TRUE(AttachInput(1, 2, true));
    EXPECT_TRUE(SetForeground(10));
    EXPECT_TRUE(AttachInput(1, 2, false));
    EXPECT_EQ(ForegroundActiveWindow(), 10U);
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"attach thread 1 to 2", "foreground \"A\"", "detach thread 1 from 2"}));
    Desktop.Failures.Next("AttachInput");
    EXPECT_FALSE(AttachInput(1, 2, true));
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(HeadlessServicesTest, Shell_NotesLaunchAndReturnsSetResult_WhenCalled) {
    Desktop.nShellResult = 2;
    EXPECT_EQ(ShellExecuteOnDesktop(L"", L"notepad", L"", 1), 2);
    EXPECT_EQ(ShellExecuteOnDesktop(L"Open", L"C:\\a.htm", L"-x", 3), 2);
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"launch \"notepad\"", "launch \"C:\\a.htm\" with \"-x\" verb Open show 3"}));
    EXPECT_TRUE(ClaimSingleInstance());
    Desktop.bOtherInstance = true;
    EXPECT_FALSE(ClaimSingleInstance());
}

TEST_F(HeadlessServicesTest, SpecialFolder_AnswersKnownNumbersOnly_WhenAsked) {
    ItemIdList* pList = nullptr;
    EXPECT_NE(SpecialFolderLocation(100, 5, pList), 0U);
    EXPECT_EQ(pList, nullptr);
    EXPECT_EQ(SpecialFolderLocation(100, 26, pList), 0U);
    std::vector<wchar_t> Buffer(260, L'x');
    EXPECT_TRUE(PathFromItemIdList(pList, Buffer));
    EXPECT_STREQ(Buffer.data(), L"C:\\Users\\Jana\\AppData\\Roaming");
    EXPECT_FALSE(PathFromItemIdList(nullptr, Buffer));
    Buffer.resize(5);
    EXPECT_FALSE(PathFromItemIdList(pList, Buffer)) << "no room for the path";
}

TEST_F(HeadlessServicesTest, Measures_FollowTheirSettings_WhenChanged) {
    EXPECT_EQ(SystemMetric(Metric::FrameWidth), 4);
    Desktop.Metrics.erase(Metric::FrameWidth);
    EXPECT_EQ(SystemMetric(Metric::FrameWidth), 0);
    EXPECT_EQ(ScreenDpiX(), 96);
    EXPECT_EQ(TwipsPerPixelX(), 15);
    Desktop.nDpi = 144;
    EXPECT_EQ(TwipsPerPixelY(), 10);
    EXPECT_EQ(MeasureInContext(L"abc"), (TextSize{0, 0})) << "no context";
    LogicalFont Font;
    Font.nHeight = -11;
    EXPECT_TRUE(CreateMeasureContext(Font));
    EXPECT_TRUE(HasMeasureContext());
    EXPECT_EQ(MeasureInContext(L"abc"), (TextSize{18, 11}));
    DeleteMeasureContext();
    EXPECT_FALSE(HasMeasureContext());
    EXPECT_EQ(MeasureInContext(L"abc"), (TextSize{0, 0}));
}

TEST_F(HeadlessServicesTest, Object_IsEmpty_WhenItsClassIsUnknownOrDoesNotStart) {
    AutomationObject Object = headless::MakeObject(nullptr);
    EXPECT_FALSE(CreateAutomationObject(L"No.Class", Object));
    EXPECT_EQ(Object, nullptr);
    Desktop.Classes[L"Sick.Server"] = [] { return AutomationObject{}; };
    EXPECT_FALSE(CreateAutomationObject(L"Sick.Server", Object));
    AutomationValue Result = int32_t{7};
    EXPECT_FALSE(CallMethod(Object, L"Any", {}, Result));
    EXPECT_FALSE(GetProperty(Object, L"Any", {}, Result));
    EXPECT_FALSE(PutProperty(Object, L"Any", int32_t{1}));
    EXPECT_EQ(Result, AutomationValue{int32_t{7}}) << "left alone";
}

TEST_F(HeadlessServicesTest, Object_IsTalkedToByName_WhenItsClassIsRegistered) {
    Effects Calls;
    Desktop.Classes[L"A.Class"] = [&] {
        return headless::MakeObject([&](headless::MemberUse nUse, const std::wstring& strName,
                                        std::span<AutomationArgument> Arguments,
                                        AutomationValue& Result) {
            if (strName != L"Add") return false;
            Calls.push_back(std::to_string(static_cast<int>(nUse)) + ":" +
                            std::to_string(Arguments.size()));
            if (!Arguments.empty()) Arguments[0].Value = int32_t{99};
            Result = std::wstring(L"done");
            return true;
        });
    };
    AutomationObject Object;
    ASSERT_TRUE(CreateAutomationObject(L"A.Class", Object));
    AutomationArgument Argument{.Value = int32_t{1}, .bByReference = true};
    AutomationValue Result;
    EXPECT_TRUE(CallMethod(Object, L"Add", {&Argument, 1}, Result));
    EXPECT_EQ(Result, AutomationValue{std::wstring(L"done")});
    EXPECT_EQ(Argument.Value, AutomationValue{int32_t{99}}) << "the callee may change it";
    EXPECT_TRUE(GetProperty(Object, L"Add", {}, Result));
    EXPECT_TRUE(PutProperty(Object, L"Add", int32_t{1}));
    EXPECT_FALSE(CallMethod(Object, L"Other", {}, Result));
    EXPECT_EQ(Calls, (Effects{"0:1", "1:0", "2:1"}));
}

TEST_F(HeadlessServicesTest, MainWindow_NotesCaptionAndShowing_AndKeepsInnerSizeInStep) {
    forms::MainForm Form;
    EXPECT_EQ(MainWindowHandle(), 0U);
    EXPECT_TRUE(OpenMainWindow(Form));
    EXPECT_NE(MainWindowHandle(), 0U);
    int nResizes = 0;
    Form.OnResize = [&] { ++nResizes; };
    Form.Caption = L"Taviro - č";
    Form.Show();
    Form.Width = 3000;
    Form.Height = 1500;
    // 96 dots an inch: 15 twips a pixel; caption 19, menu 20, two frames of 4 pixels.
    EXPECT_EQ(Form.nScaleWidth, 200);
    EXPECT_EQ(Form.nScaleHeight, 100 - 47);
    EXPECT_EQ(nResizes, 2);
    Form.Unload();
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"caption Taviro - č", "main window shown", "main window hidden"}));
}

}  // namespace
}  // namespace taviro::platform
