// SPDX-License-Identifier: MIT
// Every call of the contracts that can fail does so when a test orders it, and no other call does.
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "forms/form.h"
#include "platform/automation.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/headless/desktop.h"
#include "platform/headless/failure_orders.h"
#include "platform/joystick.h"
#include "platform/keyboard_hook.h"
#include "platform/keys.h"
#include "platform/main_window.h"
#include "platform/metrics.h"
#include "platform/pointer.h"
#include "platform/shell.h"
#include "platform/sound.h"
#include "platform/text.h"
#include "platform/text_extent.h"
#include "platform/unneeded.h"
#include "platform/window_handling.h"
#include "platform/windows_and_processes.h"

namespace taviro::platform {
namespace {

using headless::Desktop;

constexpr WindowHandle OTHER_WINDOW = 10;
const std::wstring PROBED_FILE = L"C:\\d\\file";

intptr_t PassOn(int32_t nCode, uintptr_t wParam, const KeyHookRecord& Record) {
    return CallNextHook(1, nCode, wParam, Record);
}

// A desktop on which every call has something to do.
void SetBusyScene() {
    Desktop = headless::DesktopState{};
    Reports = {};
    Desktop.Files.Put(PROBED_FILE, "old");
    Desktop.Files.Put(L"C:\\s\\seed", "seed");
    Desktop.Files.Put(L"C:\\d\\a.wav", "sound");
    Desktop.Windows = {{OTHER_WINDOW, L"Title", L"Class", 100, 200, {}, 0, 3},
                       {11, L"Child", L"Class", 100, 200, {}, OTHER_WINDOW}};
    Desktop.hForeground = OTHER_WINDOW;
    Desktop.Processes = {{100, L"a.exe"}};
    Desktop.Classes[L"A.Class"] = [] {
        return headless::MakeObject([](auto, auto&, auto, AutomationValue&) { return true; });
    };
}

bool Reads(const std::wstring& strPath, std::string_view strExpected) {
    std::string strBytes;
    return Desktop.Files.Read(strPath, strBytes) && strBytes == strExpected;
}

// The scene has one file beside the sound.
bool NothingIsLeftBeside() {
    return Desktop.Files.List(L"C:\\d\\*").size() == 2;
}

bool CanUseObject(bool (*Use)(const AutomationObject&)) {
    return Use(Desktop.Classes[L"A.Class"]());
}

bool MeasuresText() {
    return MeasureInContext(L"abc").nWidth > 0;
}

bool Measures() {
    DeleteMeasureContext();
    return CreateMeasureContext({.strFaceName = L"Arial", .nHeight = -11}) && HasMeasureContext();
}

template <class FormType>
class TimedForm {
  public:
    TimedForm() {
        m_Clock.OnTimer = [this] { ++m_nTicks; };
    }
    FormType& Shown() { return m_Form; }
    int CountTicks() {
        m_Clock.Enabled = true;
        Desktop.RunFor(1000);
        m_Clock.Enabled = false;
        return m_nTicks;
    }

  private:
    FormType m_Form{L"frmTimed"};
    forms::Timer m_Clock{m_Form, L"Clock", 100};
    int m_nTicks = 0;
};

bool DialogTimerTicks() {
    TimedForm<forms::Form> Timed;
    AttachDialog(Timed.Shown());
    const int nTicks = Timed.CountTicks();
    DetachDialogs();
    return nTicks == 10;
}

bool DialogShows() {
    forms::Form Dialog(L"frmShown");
    AttachDialog(Dialog);
    Dialog.Show();
    const bool bShown = Dialog.Visible;
    DetachDialogs();
    return bShown;
}

bool MainWindowOpens() {
    forms::MainForm Form;
    const bool bOpened = OpenMainWindow(Form);
    CloseMainWindow();
    return bOpened;
}

bool TypesKey(bool (*Send)()) {
    const bool bSent = Send();
    return bSent && Desktop.Keyboard.strTyped == L"a";
}

bool FindsSpecialFolder(ItemIdList*& pList) {
    return SpecialFolderLocation(0, 26, pList) == 0;
}

std::string LastDebuggerLine() {
    return Desktop.DebuggerLines.empty() ? "" : ToUtf8(Desktop.DebuggerLines.back());
}

struct Probe {
    const char* szCall;
    bool (*Works)();
    std::vector<std::string> NeededToo = {};  ///< other calls without which it does not work
};

const Probe PROBES[] = {
    {"FileExists", [] { return FileExists(PROBED_FILE); }},
    {"FolderExists", [] { return FolderExists(L"C:\\d"); }},
    {"CreateFolder", [] { return CreateFolder(L"C:\\d\\new"); }},
    {"CopyFolderFiles",
     [] { return CopyFolderFiles(L"C:\\s", L"C:\\d") && Reads(L"C:\\d\\seed", "seed"); }},
    {"ReadFileBytes",
     [] {
         std::string strBytes;
         return ReadFileBytes(PROBED_FILE, strBytes) && strBytes == "old";
     }},
    {"ReplaceFileBytes",
     [] { return ReplaceFileBytes(PROBED_FILE, "new") && Reads(PROBED_FILE, "new"); },
     {"CreateNewFile", "WriteToFile", "FlushFile", "RenameFile"}},
    {"CreateNewFile",
     [] { return ReplaceFileBytes(PROBED_FILE, "new") || !Reads(PROBED_FILE, "old"); },
     {"ReplaceFileBytes", "WriteToFile", "FlushFile", "RenameFile"}},
    {"WriteToFile",
     [] { return ReplaceFileBytes(PROBED_FILE, "new") || !NothingIsLeftBeside(); },
     {"ReplaceFileBytes", "CreateNewFile", "FlushFile", "RenameFile"}},
    {"FlushFile",
     [] { return ReplaceFileBytes(PROBED_FILE, "new") || !NothingIsLeftBeside(); },
     {"ReplaceFileBytes", "CreateNewFile", "WriteToFile", "RenameFile"}},
    {"RenameFile",
     [] { return ReplaceFileBytes(PROBED_FILE, "new") || !NothingIsLeftBeside(); },
     {"ReplaceFileBytes", "CreateNewFile", "WriteToFile", "FlushFile"}},
    {"RemoveFile",
     [] {
         Desktop.Files.Lock(PROBED_FILE);
         return !ReplaceFileBytes(PROBED_FILE, "new") && NothingIsLeftBeside();
     }},
    {"AppendFileBytes",
     [] { return AppendFileBytes(PROBED_FILE, "+") && Reads(PROBED_FILE, "old+"); },
     {"WriteToFile"}},
    {"MoveFileTo",
     [] { return MoveFileTo(PROBED_FILE, L"C:\\d\\to") && Reads(L"C:\\d\\to", "old"); },
     {"RenameFile"}},
    {"ListFiles", [] { return ListFiles(L"C:\\d\\f*").size() == 1; }},
    {"GetPointer",
     [] {
         ScreenPoint Point;
         return GetPointer(Point);
     }},
    {"SetPointer", [] { return SetPointer({.nX = 3, .nY = 4}) && Desktop.Pointer.nX == 3; }},
    {"GetMouseAcceleration",
     [] {
         std::array<int32_t, 3> Triple{};
         return GetMouseAcceleration(Triple) && Triple[2] == 1;
     }},
    {"SetMouseAcceleration",
     [] {
         return SetMouseAcceleration({0, 0, 0}) && Desktop.MouseAcceleration[2] == 0;
     }},
    {"SendInputRecords",
     [] {
         return TypesKey([] {
             const InputRecord Record = KeyRecord{.wVk = 'A'};
             return SendInputRecords({&Record, 1}) == 1;
         });
     }},
    {"KeybdEvent",
     [] {
         return TypesKey([] {
             KeybdEvent('A', 30, KEY_FLAG_DOWN, 0);
             return true;
         });
     }},
    {"VkKeyScanAnsi", [] { return VkKeyScanAnsi('a') == 'A'; }},
    {"OemKeyScanCode", [] { return OemKeyScanCode('a') == 30; }},
    {"MapVirtualKeyCode", [] { return MapVirtualKeyCode('A', 0) == 30; }},
    {"KeyToAnsi",
     [] {
         uint16_t nCharacter = 0;
         return KeyToAnsi('A', 0, std::array<uint8_t, 256>{}, nCharacter) == 1;
     }},
    {"InstallHook", [] { return InstallHook(HOOK_KEYBOARD_LL, PassOn) != 0; }},
    {"RemoveHook",
     [] {
         Desktop.Keyboard.hHook = 1;
         return RemoveHook(1);
     }},
    {"JoyGetDevCaps",
     [] {
         JoyCapsRecord Caps{};
         return JoyGetDevCaps(0, Caps, sizeof Caps) == 0;
     }},
    {"JoyGetPosEx",
     [] {
         JoyInfoRecord Info{};
         return JoyGetPosEx(0, Info) == 0;
     }},
    {"SndPlaySound", [] { return SndPlaySound(L"C:\\d\\a.wav", SND_FLAG_ASYNC); }},
    {"DateTimeText", [] { return DateTimeText() != TimeOfDayText(); }},
    {"CreateMeasureContext", Measures},
    {"MeasureInContext",
     [] {
         Desktop.bMeasuring = true;
         Desktop.MeasureFont.nHeight = -11;
         return MeasuresText();
     }},
    {"SystemMetric", [] { return SystemMetric(Metric::CaptionHeight) == 19; }},
    {"SpecialFolderLocation",
     [] {
         ItemIdList* pList = nullptr;
         return FindsSpecialFolder(pList);
     }},
    {"PathFromItemIdList",
     [] {
         const ItemIdList List{L"C:\\d"};
         std::array<wchar_t, 260> Buffer{};
         return PathFromItemIdList(&List, Buffer);
     }},
    {"ShellExecuteOnDesktop", [] { return ShellExecuteOnDesktop(L"", L"a.exe", L"", 1) > 32; }},
    {"ProgramFolder", [] { return !ProgramFolder().empty(); }},
    {"ClaimSingleInstance", [] { return ClaimSingleInstance(); }},
    {"ForegroundActiveWindow", [] { return ForegroundActiveWindow() == OTHER_WINDOW; }},
    {"WindowProcess", [] { return WindowProcess(OTHER_WINDOW) == 100; }},
    {"WindowThread", [] { return WindowThread(OTHER_WINDOW) == 200; }},
    {"FindTopWindow", [] { return FindTopWindow(L"", L"Title") == OTHER_WINDOW; }},
    {"WindowRect",
     [] {
         ScreenRect Rect;
         return WindowRect(OTHER_WINDOW, Rect);
     }},
    {"WindowClassName", [] { return WindowClassName(OTHER_WINDOW) == L"Class"; }},
    {"SnapshotProcesses", [] { return SnapshotProcesses().size() == 1; }},
    {"AttachInput", [] { return AttachInput(1, 2, true); }},
    {"SetForeground", [] { return SetForeground(OTHER_WINDOW); }},
    {"FindWindowByTitle", [] { return FindWindowByTitle(L"Title") == OTHER_WINDOW; }},
    {"WindowTitle", [] { return WindowTitle(OTHER_WINDOW, 100) == L"Title"; }},
    {"SetWindowPosition", [] { return SetWindowPosition(OTHER_WINDOW, {}); }},
    {"ScreenToClientPoint",
     [] {
         ScreenPoint Point;
         return ScreenToClientPoint(OTHER_WINDOW, Point);
     },
     {"WindowRect"}},
    {"CreateRectRegion", [] { return CreateRectRegion({}) != 0; }},
    {"RedrawWindowPart", [] { return RedrawWindowPart(0, {}, 0, REDRAW_FRAME); }},
    {"AccessibleChildCount",
     [] {
         int32_t nCount = 0;
         return AccessibleChildCount(OTHER_WINDOW, nCount) && nCount == 3;
     }},
    {"VisitChildWindows",
     [] {
         bool bVisited = false;
         VisitChildWindows(OTHER_WINDOW, [&](WindowHandle) { return bVisited = true; });
         return bVisited;
     }},
    {"CreateAutomationObject",
     [] {
         AutomationObject Object;
         return CreateAutomationObject(L"A.Class", Object);
     }},
    {"CallMethod",
     [] {
         return CanUseObject([](const AutomationObject& Object) {
             AutomationValue Result;
             return CallMethod(Object, L"Member", {}, Result);
         });
     }},
    {"GetProperty",
     [] {
         return CanUseObject([](const AutomationObject& Object) {
             AutomationValue Result;
             return GetProperty(Object, L"Member", {}, Result);
         });
     }},
    {"PutProperty",
     [] {
         return CanUseObject([](const AutomationObject& Object) {
             return PutProperty(Object, L"Member", int32_t{1});
         });
     }},
    {"OpenMainWindow", MainWindowOpens},
    {"SetTimer", DialogTimerTicks},
    {"CreateDialog", DialogShows},
};

class FailureProbeTest : public ::testing::Test {
  protected:
    FailureProbeTest() { SetBusyScene(); }
    ~FailureProbeTest() override {
        DetachDialogs();
        Desktop = headless::DesktopState{};
        Reports = {};
    }
};

TEST_F(FailureProbeTest, Catalogue_HasAProbeOfEachCall_AndNoOther) {
    std::vector<std::string> Probed;
    for (const Probe& Row : PROBES)
        Probed.emplace_back(Row.szCall);
    std::vector<std::string> Known(headless::FallibleCalls().begin(),
                                   headless::FallibleCalls().end());
    std::sort(Probed.begin(), Probed.end());
    std::sort(Known.begin(), Known.end());
    EXPECT_EQ(Probed, Known);
}

TEST_F(FailureProbeTest, EachCall_Works_WhenNothingIsOrdered) {
    for (const Probe& Row : PROBES) {
        SetBusyScene();
        EXPECT_TRUE(Row.Works()) << Row.szCall;
        EXPECT_GE(Desktop.Failures.Asked(), 1U) << Row.szCall;
    }
}

TEST_F(FailureProbeTest, EachCall_FailsAlone_WhenItIsOrderedTo) {
    for (const std::string_view strOrdered : headless::FallibleCalls()) {
        for (const Probe& Row : PROBES) {
            SetBusyScene();
            Desktop.Failures.Always(strOrdered);
            const bool bNeeded = std::find(Row.NeededToo.begin(), Row.NeededToo.end(),
                                           strOrdered) != Row.NeededToo.end();
            EXPECT_EQ(Row.Works(), strOrdered != Row.szCall && !bNeeded)
                << Row.szCall << " while " << strOrdered << " fails";
        }
    }
}

TEST_F(FailureProbeTest, AFailedCall_IsReportedByItsName) {
    for (const Probe& Row : PROBES) {
        SetBusyScene();
        Desktop.Failures.Next(Row.szCall);
        Unneeded(Row.Works());
        EXPECT_EQ(LastDebuggerLine(), std::string("Failed: ") + Row.szCall + ", error 0x80004005");
    }
}

}  // namespace
}  // namespace taviro::platform
