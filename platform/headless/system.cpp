// SPDX-License-Identifier: MIT
// Shell, windows and processes, measures and late-bound objects of the virtual desktop.
#include <algorithm>
#include <cstdlib>

#include "platform/failure.h"
#include "platform/headless/desktop.h"
#include "platform/main_window.h"
#include "platform/metrics.h"
#include "platform/shell.h"
#include "platform/shell_names.h"
#include "platform/text.h"
#include "platform/text_extent.h"

namespace taviro::platform {

using headless::Desktop;

struct AutomationServer {
    headless::MemberHandler Handler;
};

namespace headless {

AutomationObject MakeObject(MemberHandler Handler) {
    return std::make_shared<AutomationServer>(AutomationServer{std::move(Handler)});
}

namespace {

const VirtualWindow* FindWindowEntry(WindowHandle hWindow) {
    const auto it = std::find_if(Desktop.Windows.begin(), Desktop.Windows.end(),
                                 [&](const auto& Window) { return Window.hWindow == hWindow; });
    return hWindow == 0 || it == Desktop.Windows.end() || it->bGone ? nullptr : &*it;
}

/// Whether a call out of the program cannot be made where it is made: another program's message, or
/// a key, waits for the end of what runs.
bool IsRefusedHere(const char* szCall) {
    if (Desktop.nNoCallsOut == 0) return false;
    constexpr uint32_t CANNOT_CALL_OUT = 0x8001010D;  // of a call for which input waits
    ReportFailure(szCall, CANNOT_CALL_OUT);
    return true;
}

bool UseMember(const AutomationObject& Object, MemberUse nUse, const std::wstring& strName,
               std::span<AutomationArgument> Arguments, AutomationValue& Result) {
    const Within Busy(Desktop.nBusy);
    return Object != nullptr && Object->Handler &&
           Object->Handler(nUse, strName, Arguments, Result);
}

}  // namespace

void DesktopState::StartProgram(const std::wstring& strFile) {
    const auto itStarted = Programs.find(strFile);
    if (itStarted == Programs.end()) return;
    Meanwhile(nNow + itStarted->second.nOpensAfterMs, [this, Started = itStarted->second] {
        Windows.push_back(Started.Window);
        if (bFrontIsOpen && !Started.bStaysBehind) hForeground = Started.Window.hWindow;
    });
}

}  // namespace headless

uint32_t SpecialFolderLocation(uintptr_t hOwner, int32_t nFolderId, ItemIdList*& pList) {
    constexpr uint32_t INVALID_ARGUMENT = 0x80070057;
    Desktop.FolderOwners.push_back(hOwner);
    if (Desktop.Refuses(__func__)) return CODE_FAILED;
    const auto it = Desktop.SpecialFolders.find(nFolderId);
    if (it == Desktop.SpecialFolders.end()) return INVALID_ARGUMENT;
    pList = &Desktop.FolderLists.emplace_back(ItemIdList{it->second});
    return 0;
}

bool PathFromItemIdList(const ItemIdList* pList, std::span<wchar_t> Buffer) {
    if (pList == nullptr || pList->strPath.empty() || Desktop.Refuses(__func__)) return false;
    if (pList->strPath.size() >= Buffer.size()) return false;
    const auto itEnd = std::copy(pList->strPath.begin(), pList->strPath.end(), Buffer.begin());
    *itEnd = L'\0';
    return true;
}

intptr_t ShellExecuteOnDesktop(const std::wstring& strVerb, const std::wstring& strFile,
                               const std::wstring& strParameters, int32_t nShowCommand) {
    Desktop.Record("launch \"" + ToUtf8(strFile) + "\"" +
                   (strParameters.empty() ? "" : " with \"" + ToUtf8(strParameters) + "\"") +
                   (strVerb.empty() ? "" : " verb " + ToUtf8(strVerb)) +
                   (nShowCommand == 1 ? "" : " show " + std::to_string(nShowCommand)));
    constexpr intptr_t NO_FILE = 2;
    if (!CanBeOpened(strFile)) return NO_FILE;
    constexpr intptr_t NO_MEMORY = 0;  // the least of the numbers that mean failure
    if (Desktop.Refuses(__func__, strFile)) return NO_MEMORY;
    Desktop.StartProgram(NativeProgram(strFile, Desktop.Folders));
    return Desktop.nShellResult;
}

std::wstring ProgramFolder() {
    return Desktop.Refuses(__func__) ? std::wstring{} : Desktop.strProgramFolder;
}

bool ClaimSingleInstance() {
    return !Desktop.bOtherInstance && !Desktop.Refuses(__func__);
}

WindowHandle ForegroundActiveWindow() {
    return Desktop.Refuses(__func__) ? 0 : Desktop.hForeground;
}

uint32_t WindowProcess(WindowHandle hWindow) {
    const auto* pWindow = headless::FindWindowEntry(hWindow);
    return pWindow == nullptr || Desktop.Refuses(__func__) ? 0 : pWindow->nProcess;
}

uint32_t WindowThread(WindowHandle hWindow) {
    const auto* pWindow = headless::FindWindowEntry(hWindow);
    return pWindow == nullptr || Desktop.Refuses(__func__) ? 0 : pWindow->nThread;
}

WindowHandle FindTopWindow(const std::wstring& strClass, const std::wstring& strTitle) {
    if (Desktop.Refuses(__func__)) return 0;
    for (const auto& Window : Desktop.Windows) {
        if (Window.hParent != 0 || Window.bGone) continue;
        const bool bTitle = strTitle.empty() || ToLower(strTitle) == ToLower(Window.strTitle);
        const bool bClass = strClass.empty() || ToLower(strClass) == ToLower(Window.strClass);
        if (bTitle && bClass) return Window.hWindow;
    }
    return 0;
}

bool WindowRect(WindowHandle hWindow, ScreenRect& Rect) {
    if (Desktop.Refuses(__func__)) return false;
    if (hWindow != 0 && hWindow == MainWindowHandle()) {
        Rect = Desktop.MainRect;
        return true;
    }
    const auto* pWindow = headless::FindWindowEntry(hWindow);
    if (pWindow == nullptr) return false;
    Rect = pWindow->Rect;
    return true;
}

bool IsWindowHandle(WindowHandle hWindow) {
    return headless::FindWindowEntry(hWindow) != nullptr;
}

bool IsOwnWindow(WindowHandle hWindow) {
    return hWindow >= headless::FIRST_OWN_WINDOW || (hWindow != 0 && hWindow == MainWindowHandle());
}

std::wstring WindowClassName(WindowHandle hWindow) {
    const auto* pWindow = headless::FindWindowEntry(hWindow);
    if (Desktop.Refuses(__func__)) return L"";
    if (pWindow == nullptr) ReportFailure(__func__, CODE_FAILED);
    return pWindow == nullptr ? L"" : pWindow->strClass;
}

std::vector<ProcessEntry> SnapshotProcesses() {
    return Desktop.Refuses(__func__) ? std::vector<ProcessEntry>{} : Desktop.Processes;
}

bool AttachInput(uint32_t nThread, uint32_t nToThread, bool bAttach) {
    if (Desktop.Refuses(__func__)) return false;
    Desktop.Record((bAttach ? "attach thread " : "detach thread ") + std::to_string(nThread) +
                   (bAttach ? " to " : " from ") + std::to_string(nToThread));
    return true;
}

bool MayDriveWindow(WindowHandle hWindow) {
    const auto* pWindow = headless::FindWindowEntry(hWindow);
    return pWindow == nullptr || !pWindow->bGreaterRights;
}

std::vector<WindowHandle> TaskWindows() {
    std::vector<WindowHandle> Found;
    for (const auto& Window : Desktop.Windows) {
        const bool bSeen = !Window.bGone && !Window.bHidden;
        if (Window.hParent == 0 && bSeen) Found.push_back(Window.hWindow);
    }
    return Found;
}

void LetOthersComeToFront() {
    Desktop.bFrontIsOpen = true;
}

uint32_t LastInputTick() {
    return Desktop.nLastInput;
}

bool SetForeground(WindowHandle hWindow) {
    const auto* pWindow = headless::FindWindowEntry(hWindow);
    if (pWindow == nullptr) ReportFailure(__func__, CODE_FAILED);
    if (pWindow == nullptr || Desktop.Refuses(__func__)) return false;
    Desktop.Record("foreground \"" + ToUtf8(pWindow->strTitle) + "\"");
    Desktop.hForeground = hWindow;
    return true;
}

int32_t SystemMetric(Metric nMetric) {
    const auto it = Desktop.Metrics.find(nMetric);
    return it == Desktop.Metrics.end() || Desktop.Refuses(__func__) ? 0 : it->second;
}

int32_t ScreenDpiX() {
    return Desktop.nDpi;
}

int32_t ScreenDpiY() {
    return Desktop.nDpi;
}

bool CreateMeasureContext(const LogicalFont& Font) {
    DeleteMeasureContext();
    if (Desktop.Refuses(__func__)) return false;
    Desktop.MeasureFont = Font;
    Desktop.bMeasuring = true;
    ++Desktop.nMeasureContexts;
    return true;
}

bool HasMeasureContext() {
    return Desktop.bMeasuring;
}

// A plain model of a proportional font: each character half as wide as the font is high.
TextSize MeasureInContext(const std::wstring& strText) {
    if (!Desktop.bMeasuring || Desktop.Refuses(__func__)) return {};
    const int32_t nHeight = std::abs(Desktop.MeasureFont.nHeight);
    const auto nCharacters = static_cast<int32_t>(strText.size());
    return {.nWidth = nCharacters * ((nHeight + 1) / 2), .nHeight = nHeight};
}

void DeleteMeasureContext() {
    Desktop.bMeasuring = false;
}

bool CreateAutomationObject(const std::wstring& strProgId, AutomationObject& Object) {
    Object.reset();
    const auto it = Desktop.Classes.find(strProgId);
    if (it == Desktop.Classes.end() || Desktop.Refuses(__func__, strProgId)) return false;
    if (headless::IsRefusedHere(__func__)) return false;
    Object = it->second();
    return Object != nullptr;
}

bool CallMethod(const AutomationObject& Object, const std::wstring& strMethod,
                std::span<AutomationArgument> Arguments, AutomationValue& Result) {
    if (headless::IsRefusedHere(__func__) || Desktop.Refuses(__func__, strMethod)) return false;
    return headless::UseMember(Object, headless::MemberUse::Method, strMethod, Arguments, Result);
}

bool GetProperty(const AutomationObject& Object, const std::wstring& strProperty,
                 std::span<AutomationArgument> Arguments, AutomationValue& Result) {
    if (headless::IsRefusedHere(__func__) || Desktop.Refuses(__func__, strProperty)) return false;
    return headless::UseMember(Object, headless::MemberUse::Get, strProperty, Arguments, Result);
}

bool PutProperty(const AutomationObject& Object, const std::wstring& strProperty,
                 const AutomationValue& Value) {
    if (headless::IsRefusedHere(__func__) || Desktop.Refuses(__func__, strProperty)) return false;
    AutomationArgument Argument{.Value = Value};
    AutomationValue Ignored;
    return headless::UseMember(Object, headless::MemberUse::Put, strProperty, {&Argument, 1},
                               Ignored);
}

}  // namespace taviro::platform
