// SPDX-License-Identifier: MIT
// A typed client of the automation object: reads commands from its standard input as the probe
// does, one call each, and answers with the call's result code and result.
#include <windows.h>

#include <cstdio>
#include <fcntl.h>
#include <gui_interface.h>
#include <io.h>
#include <string>
#include <vector>
#include <winternl.h>

#include "tests/e2e/gui_client/registry_keys.h"
#include "tests/e2e/probe/answer.h"

namespace {

using namespace taviro::probe;
using Fields = std::vector<std::wstring>;

IGUI* pGui = nullptr;

LONG ToNumber(const std::wstring& strText) {
    return static_cast<LONG>(std::wcstol(strText.c_str(), nullptr, 0));
}

/// A text as the interface takes it.
class Text {
  public:
    explicit Text(const std::wstring& strText)
        : m_strText(SysAllocStringLen(strText.data(), static_cast<UINT>(strText.size()))) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(m_strText); }
    operator BSTR() const { return m_strText; }

  private:
    BSTR m_strText;
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
    if (SUCCEEDED(nMade)) pGui = static_cast<IGUI*>(pMade);
    return nMade;
}

void GetTitle(LONG hWindow) {
    BSTR strTitle = SysAllocString(L"earlier");
    const HRESULT nResult = pGui->VBS_GetTitle(hWindow, &strTitle);
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
    {L"ShowDebugWin", [](const Fields&) { return pGui->ShowDebugWin(); }},
    {L"MinDebugWin", [](const Fields&) { return pGui->MinDebugWin(); }},
    {L"HideDebugWin", [](const Fields&) { return pGui->HideDebugWin(); }},
    {L"SetCaption", [](const Fields& Given) { return pGui->SetCaption(Text(Given[1])); }},
    {L"LogDebugWin", [](const Fields& Given) { return pGui->LogDebugWin(Text(Given[1])); }},
    {L"VBS_UpdateWindow",
     [](const Fields& Given) { return pGui->VBS_UpdateWindow(ToNumber(Given[1])); }},
    {L"VBS_UpdateFrame",
     [](const Fields& Given) {
         return pGui->VBS_UpdateFrame(ToNumber(Given[1]), ToNumber(Given[2]), ToNumber(Given[3]),
                                      ToNumber(Given[4]));
     }},
    {L"KeyPress",
     [](const Fields& Given) { return pGui->KeyPress(ToNumber(Given[1]), ToNumber(Given[2])); }},
    {L"Quit", [](const Fields&) { return pGui->Quit(); }},
};
struct NumberCall {
    const wchar_t* strName;
    HRESULT (*pMake)(const Fields& Given, LONG* pResult);
};
const NumberCall NUMBER_CALLS[] = {
    {L"ClickOnWindow",
     [](const Fields& Given, LONG* pResult) {
         return pGui->ClickOnWindow(Text(Given[1]), Text(Given[2]), pResult);
     }},
    {L"VBS_FindWindow",
     [](const Fields& Given, LONG* pResult) {
         return pGui->VBS_FindWindow(Text(Given[1]), Text(Given[2]), pResult);
     }},
    {L"VBS_GetChildNum",
     [](const Fields& Given, LONG* pResult) {
         return pGui->VBS_GetChildNum(ToNumber(Given[1]), pResult);
     }},
    {L"VBS_GetChild",
     [](const Fields& Given, LONG* pResult) {
         return pGui->VBS_GetChild(ToNumber(Given[1]), Text(Given[2]), pResult);
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
        nResult = pGui->VBS_FindWindow(strNone, strNone, &hFound);
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
    const HRESULT nFound = pGui->GetIDsOfNames(IID_NULL, &pName, 1, 0, &nMember);
    if (FAILED(nFound)) return nFound;
    VARIANT Title{};
    VARIANT Given[2]{};  // the last argument first
    Given[0].vt = VT_BYREF | VT_VARIANT;
    Given[0].pvarVal = &Title;
    Given[1].vt = VT_I4;
    Given[1].lVal = hWindow;
    DISPPARAMS Parameters{Given, nullptr, 2, 0};
    const HRESULT nCalled =
        pGui->Invoke(nMember, IID_NULL, 0, DISPATCH_METHOD, &Parameters, nullptr, nullptr, nullptr);
    VariantClear(&Title);
    return nCalled;
}

// Many calls of all kinds that harm nothing, one after the other; the first failure's code. The
// text is asked for late-bound: with typed calls Wine's carrier keeps each text, whatever the
// server does.
void AnswerStorm(LONG nRounds, LONG hWindow) {
    const Text strClass{L"Edit"};
    HRESULT nResult = S_OK;
    for (LONG i = 0; i < nRounds && SUCCEEDED(nResult); ++i) {
        LONG nNumber = 0;
        nResult = pGui->SetCaption(Text(L"volání " + std::to_wstring(i)));
        if (SUCCEEDED(nResult)) nResult = pGui->VBS_GetChild(hWindow, strClass, &nNumber);
        if (SUCCEEDED(nResult)) nResult = pGui->VBS_GetChildNum(hWindow, &nNumber);
        if (SUCCEEDED(nResult)) nResult = pGui->VBS_UpdateFrame(0, 0, 1, 1);
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
    } else if (pGui == nullptr) {
        return L"there is no object";
    } else if (Given[0] == L"release") {
        pGui->Release();
        pGui = nullptr;
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

bool ReadLine(std::string& strLine) {
    strLine.clear();
    int nByte = std::getchar();
    while (nByte != EOF && nByte != '\n') {
        strLine += static_cast<char>(nByte);
        nByte = std::getchar();
    }
    return nByte != EOF;
}

}  // namespace

int main() {
    if (FAILED(CoInitialize(nullptr))) return 1;
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    std::string strLine;
    while (ReadLine(strLine))
        EndAnswer(Run(SplitFields(strLine)));
    CoUninitialize();
    return 0;
}
