// SPDX-License-Identifier: MIT
// A late-bound client of the dictionary: reads commands from its standard input as the probe does,
// one call each, and answers with the call's result code and what came back. A NUL in a text is
// written as the sign for it, U+2400, in both directions.
#include <windows.h>

#include <algorithm>
#include <ole2.h>
#include <string>
#include <vector>

#include "tests/e2e/probe/answer.h"
#include "win32/com/owners.h"

namespace {

using namespace taviro::probe;
namespace com = taviro::com;

constexpr wchar_t NUL_SIGN = 0x2400;

com::UniqueObject<IDispatch> Dictionary;

std::wstring CodeText(HRESULT nResult) {
    wchar_t strCode[16] = {};
    wsprintfW(strCode, L"%08lx", static_cast<ULONG>(nResult));
    return strCode;
}

std::wstring ShownText(BSTR strText) {
    std::wstring strResult = com::TextOf(strText);
    std::replace(strResult.begin(), strResult.end(), L'\0', NUL_SIGN);
    return strResult;
}

BSTR MeantText(std::wstring strText) {
    std::replace(strText.begin(), strText.end(), NUL_SIGN, L'\0');
    return com::NewText(strText).release();
}

HRESULT Create(const std::wstring& strName) {
    CLSID Class{};
    const HRESULT nFound = CLSIDFromString(strName.c_str(), &Class);  // a ProgID too
    if (FAILED(nFound)) return nFound;
    void* pMade = nullptr;
    const HRESULT nMade =
        CoCreateInstance(Class, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch, &pMade);
    if (SUCCEEDED(nMade)) Dictionary.reset(static_cast<IDispatch*>(pMade));
    return nMade;
}

/// The ways in which a text can be passed.
struct Passed {
    VARIANT Given{};  ///< the argument
    VARIANT Inner{};  ///< what a variant by reference leads to
    BSTR strText;     ///< what a text by reference leads to

    Passed(const std::wstring& strForm, const std::wstring& strWanted)
        : strText(MeantText(strWanted)) {
        VARIANT& Last = strForm.starts_with(L"&variant") ? Inner : Given;
        const bool bReference = strForm == L"&bstr" || strForm == L"&variant &bstr";
        Last.vt = bReference ? VT_BYREF | VT_BSTR : VT_BSTR;
        if (bReference) {
            Last.pbstrVal = &strText;
        } else {
            Last.bstrVal = strText;
        }
        if (&Last == &Inner) {
            Given.vt = VT_BYREF | VT_VARIANT;
            Given.pvarVal = &Inner;
        }
    }
    Passed(const Passed&) = delete;
    Passed& operator=(const Passed&) = delete;
    ~Passed() { SysFreeString(Now()); }

    /// The text that stands there now.
    BSTR Now() const {
        if (Inner.vt == VT_BSTR) return Inner.bstrVal;
        return Given.vt == VT_BSTR ? Given.bstrVal : strText;
    }
};

HRESULT Ask(Passed& Prefix, WORD nKind, com::Variant& List) {
    wchar_t strName[] = L"getprediction";  // names have no case
    wchar_t* pName = strName;
    DISPID nMember = 0;
    const HRESULT nFound = Dictionary->GetIDsOfNames(IID_NULL, &pName, 1, 0, &nMember);
    if (FAILED(nFound)) return nFound;
    DISPPARAMS Parameters{&Prefix.Given, nullptr, 1, 0};
    return Dictionary->Invoke(nMember, IID_NULL, 0, nKind, &Parameters, List.Get(), nullptr,
                              nullptr);
}

// Code, list and the prefix afterwards.
void AnswerPrediction(const std::wstring& strForm, const std::wstring& strText) {
    Passed Prefix(strForm, strText);
    com::Variant List;
    const HRESULT nResult = Ask(Prefix, DISPATCH_METHOD | DISPATCH_PROPERTYGET, List);
    Answer({CodeText(nResult), List->vt == VT_BSTR ? ShownText(List->bstrVal) : L"(no text)",
            ShownText(Prefix.Now())});
}

double Seconds() {
    LARGE_INTEGER nNow{};
    LARGE_INTEGER nFrequency{};
    QueryPerformanceCounter(&nNow);
    QueryPerformanceFrequency(&nFrequency);
    return static_cast<double>(nNow.QuadPart) / static_cast<double>(nFrequency.QuadPart);
}

// Asks again and again as words are typed, until the time is over; the first failure's code and how
// many calls went well.
void AnswerStorm(const Fields& Given) {
    const double dEnd = Seconds() + std::wcstod(Given[2].c_str(), nullptr) / 1000;
    HRESULT nResult = S_OK;
    long nCalls = 0;
    while (SUCCEEDED(nResult) && Seconds() < dEnd) {
        const std::wstring& strWord = Given[1];
        for (size_t n = 1; n <= strWord.size() && SUCCEEDED(nResult); ++n) {
            Passed Prefix(L"&bstr", strWord.substr(0, n));
            com::Variant List;
            nResult = Ask(Prefix, DISPATCH_METHOD, List);
            nCalls += SUCCEEDED(nResult) ? 1 : 0;
        }
    }
    Answer({CodeText(nResult), std::to_wstring(nCalls)});
}

HRESULT StartProgram(const std::wstring& strProgram) {
    std::wstring strLine = L"\"" + strProgram + L"\" -Embedding";
    STARTUPINFOW Start{};
    Start.cb = sizeof(Start);
    PROCESS_INFORMATION Started{};
    if (CreateProcessW(nullptr, strLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &Start, &Started) == FALSE) {
        return HRESULT_FROM_WIN32(GetLastError());
    }
    CloseHandle(Started.hThread);
    CloseHandle(Started.hProcess);
    return S_OK;
}

// Milliseconds from the start of a server that is not registered to its object, and from there to
// the first list, where a prefix is given. The system does not tell when a server is ready.
void AnswerStart(const Fields& Given) {
    constexpr DWORD LOOK_AGAIN_MS = 1;
    constexpr double MOST_SECONDS = 20;
    const double dStart = Seconds();
    HRESULT nResult = StartProgram(Given[1]);
    if (SUCCEEDED(nResult)) nResult = Create(Given[2]);
    while (FAILED(nResult) && Seconds() < dStart + MOST_SECONDS) {
        Sleep(LOOK_AGAIN_MS);
        nResult = Create(Given[2]);
    }
    const double dCreated = Seconds();
    com::Variant List;
    if (SUCCEEDED(nResult) && !Given[3].empty()) {
        Passed Prefix(L"&bstr", Given[3]);
        nResult = Ask(Prefix, DISPATCH_METHOD, List);
    }
    Answer({CodeText(nResult), std::to_wstring((dCreated - dStart) * 1000),
            std::to_wstring((Seconds() - dCreated) * 1000)});
}

std::wstring Run(const Fields& Given) {
    if (Given[0] == L"create") {
        Answer({CodeText(Create(Given[1]))});
    } else if (Given[0] == L"start") {
        AnswerStart(Given);
    } else if (Dictionary == nullptr) {
        return L"there is no object";
    } else if (Given[0] == L"release") {
        Dictionary.reset();
    } else if (Given[0] == L"ask") {
        AnswerPrediction(Given[1], Given[2]);
    } else if (Given[0] == L"storm") {
        AnswerStorm(Given);
    } else {
        return L"unknown command";
    }
    return {};
}

}  // namespace

int main() {
    if (FAILED(CoInitialize(nullptr))) return 1;
    AnswerCommands(Run);
    Dictionary.reset();
    CoUninitialize();
    return 0;
}
