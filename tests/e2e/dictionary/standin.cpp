// SPDX-License-Identifier: MIT
// A server in the dictionary's place, in a process of its own: standin.exe CLASS CALLS LIST DELAY
// DEATH. It offers the class, notes each prefix as a line of the file CALLS (UTF-8, a NUL as
// U+2400), waits DELAY milliseconds and answers with LIST; its call number DEATH, counted from 1,
// it does not live to answer.
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <ole2.h>
#include <shellapi.h>
#include <string>

#include "tests/e2e/probe/answer.h"
#include "tests/e2e/windows/plain_window.h"
#include "win32/com/class_factory.h"
#include "win32/com/object.h"
#include "win32/com/owners.h"

namespace {

namespace com = taviro::com;

constexpr wchar_t NUL_SIGN = 0x2400;

struct Orders {
    std::wstring strCalls;
    std::wstring strList;
    DWORD nDelay = 0;
    long nDeath = 0;
};
Orders Given;

void Record(BSTR strPrefix) {
    std::wstring strLine = com::TextOf(strPrefix);
    std::replace(strLine.begin(), strLine.end(), L'\0', NUL_SIGN);
    const std::string strBytes = taviro::probe::ToUtf8(strLine + L'\n');
    const HANDLE hFile =
        CreateFileW(Given.strCalls.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_ALWAYS, 0, nullptr);
    DWORD nWritten = 0;
    WriteFile(hFile, strBytes.data(), static_cast<DWORD>(strBytes.size()), &nWritten, nullptr);
    CloseHandle(hFile);
}

class Dictionary final : public com::LateBoundObject<> {
  public:
    Dictionary() : LateBoundObject(0) {}

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                            DISPID* pId) noexcept override {
        *pId = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* pParameters,
                                     VARIANT* pResult, EXCEPINFO*, UINT*) noexcept override {
        const VARIANT& Prefix = pParameters->rgvarg[0];
        if (Prefix.vt != (VT_BYREF | VT_BSTR)) return DISP_E_TYPEMISMATCH;  // as Taviro passes it
        Record(*Prefix.pbstrVal);
        Sleep(Given.nDelay);
        if (++m_nCalls == Given.nDeath) TerminateProcess(GetCurrentProcess(), 1);
        pResult->vt = VT_BSTR;
        pResult->bstrVal = SysAllocString(Given.strList.c_str());
        return S_OK;
    }

  private:
    // It ends with its last client.
    void OnLastRelease() noexcept override { PostQuitMessage(0); }

    long m_nCalls = 0;
};

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR pArguments, int) {
    int nArguments = 0;
    wchar_t** pWords = CommandLineToArgvW(pArguments, &nArguments);
    CLSID Class{};
    if (pWords == nullptr || nArguments < 5 || FAILED(CoInitialize(nullptr)) ||
        FAILED(CLSIDFromString(pWords[0], &Class))) {
        return 2;
    }
    Given = {.strCalls = pWords[1],
             .strList = pWords[2],
             .nDelay = std::wcstoul(pWords[3], nullptr, 10),
             .nDeath = std::wcstol(pWords[4], nullptr, 10)};
    Dictionary TheOne;
    com::ClassFactory Factory(
        [&](REFIID Wanted, void** ppMade) { return TheOne.QueryInterface(Wanted, ppMade); });
    if (FAILED(Factory.Offer(Class))) return 1;
    taviro::tests::RunMessages();
    Factory.Withdraw();
    return 0;
}
