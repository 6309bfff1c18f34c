// SPDX-License-Identifier: MIT
// A typed client of the automation object: reads commands from its standard input as the probe
// does, one call each, and answers with the call's result code and result.
#include <windows.h>

#include <gui_interface.h>
#include <string>
#include <vector>
#include <winternl.h>

#include "tests/e2e/gui_client/registry_keys.h"
#include "tests/e2e/probe/answer.h"
#include "win32/com/owners.h"

namespace {

using namespace taviro::probe;
namespace com = taviro::com;

com::UniqueObject<IGUI> Gui;

LONG ToNumber(const std::wstring& strText) {
    return static_cast<LONG>(std::wcstol(strText.c_str(), nullptr, 0));
}

/// A text as the interface takes it.
class Text {
  public:
    explicit Text(const std::wstring& strText) : m_Text(com::NewText(strText)) {}
    operator BSTR() const { return m_Text.get(); }

  private:
    com::UniqueText m_Text;
};

void AnswerResult(HRESULT nResult, const std::wstring& strResult = {}) {
    wchar_t strCode[16] = {};
    wsprintfW(strCode, L"%08lx", static_cast<ULONG>(nResult));
    Answer({strCode, strResult});
}

void AnswerNumber(HRESULT nResult, LONG nNumber) {
    AnswerResult(nResult, std::to_wstring(nNumber));
}

HRESULT Create(const std::wstring& strName) {
    CLSID Class{};
    const HRESULT nFound = CLSIDFromString(strName.c_str(), &Class);  // a ProgID too
    if (FAILED(nFound)) return nFound;
    void* pMade = nullptr;
    const HRESULT nMade =
        CoCreateInstance(Class, nullptr, CLSCTX_LOCAL_SERVER, __uuidof(IGUI), &pMade);
    if (SUCCEEDED(nMade)) Gui.reset(static_cast<IGUI*>(pMade));
    return nMade;
}

void GetTitle(LONG hWindow) {
    BSTR strTitle = SysAllocString(L"earlier");
    const HRESULT nResult = Gui->VBS_GetTitle(hWindow, &strTitle);
    AnswerResult(nResult, strTitle == nullptr ? L"(null)" : strTitle);
    SysFreeString(strTitle);
}

// Calls that answer with a code alone, and those with a number as their result. The fields' first
// is the method's name.
struct PlainCall {
    const wchar_t* strName;
    HRESULT (*pMake)(const Fields& Given);
};
const PlainCall PLAIN_CALLS[] = {
    {L"ShowDebugWin", [](const Fields&) { return Gui->ShowDebugWin(); }},
    {L"MinDebugWin", [](const Fields&) { return Gui->MinDebugWin(); }},
    {L"HideDebugWin", [](const Fields&) { return Gui->HideDebugWin(); }},
    {L"SetCaption", [](const Fields& Given) { return Gui->SetCaption(Text(Given[1])); }},
    {L"LogDebugWin", [](const Fields& Given) { return Gui->LogDebugWin(Text(Given[1])); }},
    {L"VBS_UpdateWindow",
     [](const Fields& Given) { return Gui->VBS_UpdateWindow(ToNumber(Given[1])); }},
    {L"VBS_UpdateFrame",
     [](const Fields& Given) {
         return Gui->VBS_UpdateFrame(ToNumber(Given[1]), ToNumber(Given[2]), ToNumber(Given[3]),
                                     ToNumber(Given[4]));
     }},
    {L"KeyPress",
     [](const Fields& Given) { return Gui->KeyPress(ToNumber(Given[1]), ToNumber(Given[2])); }},
    {L"Quit", [](const Fields&) { return Gui->Quit(); }},
};
struct NumberCall {
    const wchar_t* strName;
    HRESULT (*pMake)(const Fields& Given, LONG* pResult);
};
const NumberCall NUMBER_CALLS[] = {
    {L"ClickOnWindow",
     [](const Fields& Given, LONG* pResult) {
         return Gui->ClickOnWindow(Text(Given[1]), Text(Given[2]), pResult);
     }},
    {L"VBS_FindWindow",
     [](const Fields& Given, LONG* pResult) {
         return Gui->VBS_FindWindow(Text(Given[1]), Text(Given[2]), pResult);
     }},
    {L"VBS_GetChildNum",
     [](const Fields& Given, LONG* pResult) {
         return Gui->VBS_GetChildNum(ToNumber(Given[1]), pResult);
     }},
    {L"VBS_GetChild",
     [](const Fields& Given, LONG* pResult) {
         return Gui->VBS_GetChild(ToNumber(Given[1]), Text(Given[2]), pResult);
     }},
};

// Returns false when there is no such method.
bool CallMethod(const Fields& Given) {
    for (const PlainCall& Call : PLAIN_CALLS) {
        if (Given[0] != Call.strName) continue;
        AnswerResult(Call.pMake(Given));
        return true;
    }
    for (const NumberCall& Call : NUMBER_CALLS) {
        if (Given[0] != Call.strName) continue;
        LONG nNumber = -1;  // only the call can change it
        const HRESULT nResult = Call.pMake(Given, &nNumber);
        AnswerNumber(nResult, nNumber);
        return true;
    }
    return false;
}

// How many calls a second of a call that needs nothing of the system; the first failure's code.
void AnswerSpeed(LONG nCalls) {
    const Text strNone{L""};
    LARGE_INTEGER nFrequency{};
    LARGE_INTEGER nStart{};
    LARGE_INTEGER nEnd{};
    QueryPerformanceFrequency(&nFrequency);
    QueryPerformanceCounter(&nStart);
    HRESULT nResult = S_OK;
    for (LONG i = 0; i < nCalls && SUCCEEDED(nResult); ++i) {
        LONG hFound = 0;
        nResult = Gui->VBS_FindWindow(strNone, strNone, &hFound);
    }
    QueryPerformanceCounter(&nEnd);
    AnswerNumber(nResult, static_cast<LONG>(nCalls * nFrequency.QuadPart /
                                            (nEnd.QuadPart - nStart.QuadPart)));
}

// Asks for a window's title the way scripts do.
HRESULT CallLate(LONG hWindow) {
    wchar_t strName[] = L"VBS_GetTitle";
    wchar_t* pName = strName;
    DISPID nMember = 0;
    const HRESULT nFound = Gui->GetIDsOfNames(IID_NULL, &pName, 1, 0, &nMember);
    if (FAILED(nFound)) return nFound;
    com::Variant Title;
    VARIANT Given[2]{};  // the last argument first
    Given[0].vt = VT_BYREF | VT_VARIANT;
    Given[0].pvarVal = Title.Get();
    Given[1].vt = VT_I4;
    Given[1].lVal = hWindow;
    DISPPARAMS Parameters{Given, nullptr, 2, 0};
    return Gui->Invoke(nMember, IID_NULL, 0, DISPATCH_METHOD, &Parameters, nullptr, nullptr,
                       nullptr);
}

// Many calls of all kinds that harm nothing, one after the other; the first failure's code. The
// text is asked for late-bound: with typed calls Wine's carrier keeps each text, whatever the
// server does.
void AnswerStorm(LONG nRounds, LONG hWindow) {
    const Text strClass{L"Edit"};
    HRESULT nResult = S_OK;
    for (LONG i = 0; i < nRounds && SUCCEEDED(nResult); ++i) {
        LONG nNumber = 0;
        nResult = Gui->SetCaption(Text(L"volání " + std::to_wstring(i)));
        if (SUCCEEDED(nResult)) nResult = Gui->VBS_GetChild(hWindow, strClass, &nNumber);
        if (SUCCEEDED(nResult)) nResult = Gui->VBS_GetChildNum(hWindow, &nNumber);
        if (SUCCEEDED(nResult)) nResult = Gui->VBS_UpdateFrame(0, 0, 1, 1);
        if (SUCCEEDED(nResult)) nResult = CallLate(hWindow);
    }
    AnswerResult(nResult);
}

// How many handles a process has open, from the system's list of processes.
void AnswerHandles(LONG nProcess) {
    std::vector<BYTE> List(1 << 20);
    ULONG nLength = 0;
    NTSTATUS nResult = NtQuerySystemInformation(SystemProcessInformation, List.data(),
                                                static_cast<ULONG>(List.size()), &nLength);
    const auto* pEntry = reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(List.data());
    while (nResult == 0 && HandleToLong(pEntry->UniqueProcessId) != nProcess) {
        if (pEntry->NextEntryOffset == 0) nResult = E_FAIL;
        pEntry = reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(
            reinterpret_cast<const BYTE*>(pEntry) + pEntry->NextEntryOffset);
    }
    AnswerNumber(nResult, nResult == 0 ? static_cast<LONG>(pEntry->HandleCount) : 0);
}

std::wstring Run(const Fields& Given) {
    if (Given[0] == L"create") {
        AnswerResult(Create(Given[1]));
    } else if (Given[0] == L"changes") {
        AnswerChanges(Given[1], Given[2]);
    } else if (Given[0] == L"volatile") {
        AnswerResult(HRESULT_FROM_WIN32(static_cast<DWORD>(MakeVolatileKey(Given[1]))));
    } else if (Given[0] == L"handles") {
        AnswerHandles(ToNumber(Given[1]));
    } else if (Gui == nullptr) {
        return L"there is no object";
    } else if (Given[0] == L"release") {
        Gui.reset();
    } else if (Given[0] == L"speed") {
        AnswerSpeed(ToNumber(Given[1]));
    } else if (Given[0] == L"storm") {
        AnswerStorm(ToNumber(Given[1]), ToNumber(Given[2]));
    } else if (Given[0] == L"VBS_GetTitle") {
        GetTitle(ToNumber(Given[1]));
    } else if (!CallMethod(Given)) {
        return L"unknown command";
    }
    return {};
}

}  // namespace

int main() {
    if (FAILED(CoInitialize(nullptr))) return 1;
    AnswerCommands(Run);
    CoUninitialize();
    return 0;
}
