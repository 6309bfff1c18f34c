// SPDX-License-Identifier: MIT
#include "platform/headless/failure_orders.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "platform/text.h"

namespace taviro::platform::headless {

namespace {

constexpr auto CALLS = std::to_array<std::string_view>(
    {// Files.
     "FileExists", "FolderExists", "CreateFolder", "CopyFolderFiles", "ReadFileBytes",
     "ReplaceFileBytes", "AppendFileBytes", "MoveFileTo", "ListFiles",
     // The steps of ReplaceFileBytes.
     "CreateNewFile", "WriteToFile", "FlushFile", "RenameFile", "RemoveFile",
     // Pointer and mouse settings.
     "GetPointer", "SetPointer", "GetMouseAcceleration", "SetMouseAcceleration",
     // Keys and hook.
     "SendInputRecords", "KeybdEvent", "VkKeyScanAnsi", "OemKeyScanCode", "MapVirtualKeyCode",
     "KeyToAnsi", "InstallHook", "RemoveHook",
     // Joystick, sound, clock.
     "JoyGetDevCaps", "JoyGetPosEx", "SndPlaySound", "DateTimeText",
     // Measures.
     "CreateMeasureContext", "MeasureInContext", "SystemMetric",
     // Shell.
     "SpecialFolderLocation", "PathFromItemIdList", "ShellExecuteOnDesktop", "ProgramFolder",
     "ClaimSingleInstance",
     // Windows and processes.
     "ForegroundActiveWindow", "WindowProcess", "WindowThread", "FindTopWindow", "WindowRect",
     "WindowClassName", "SnapshotProcesses", "AttachInput", "SetForeground", "FindWindowByTitle",
     "WindowTitle", "SetWindowPosition", "ScreenToClientPoint", "CreateRectRegion",
     "RedrawWindowPart", "AccessibleChildCount", "VisitChildWindows",
     // Late-bound objects.
     "CreateAutomationObject", "CallMethod", "GetProperty", "PutProperty",
     // The program's own windows.
     "OpenMainWindow", "SetTimer", "CreateDialog"});

bool IsAbout(const FailureOrder& Order, std::string_view strCall, std::wstring_view strSubject) {
    if (!Order.strCall.empty() && Order.strCall != strCall) return false;
    return Order.strSubject.empty() || ToLower(Order.strSubject) == ToLower(strSubject);
}

}  // namespace

std::span<const std::string_view> FallibleCalls() {
    return CALLS;
}

void FailureOrders::Add(FailureOrder New) {
    const bool bKnown = std::find(CALLS.begin(), CALLS.end(), New.strCall) != CALLS.end();
    if (!bKnown && !New.strCall.empty()) throw std::invalid_argument("no call: " + New.strCall);
    m_Orders.push_back({.Order = std::move(New)});
}

void FailureOrders::Next(std::string_view strCall, size_t nCount) {
    Add({.strCall = std::string(strCall), .nCount = nCount});
}

void FailureOrders::Always(std::string_view strCall, std::wstring_view strSubject) {
    Add({.strCall = std::string(strCall),
         .strSubject = std::wstring(strSubject),
         .nCount = ALL_CALLS});
}

void FailureOrders::Clear() {
    m_Orders.clear();
}

bool FailureOrders::Fails(std::string_view strCall, std::wstring_view strSubject, size_t* pDone) {
    ++m_nAsked;
    bool bFails = false;
    for (Standing& Entry : m_Orders) {
        const FailureOrder& Order = Entry.Order;
        if (!IsAbout(Order, strCall, strSubject)) continue;
        ++Entry.nMatched;
        if (Entry.nMatched < Order.nFrom || Entry.nMatched - Order.nFrom >= Order.nCount) continue;
        if (Order.bPowerCut) throw PowerCut{};
        bFails = true;
        if (pDone != nullptr) *pDone = Order.nDone;
    }
    return bFails;
}

}  // namespace taviro::platform::headless
