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

#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace {

constexpr wchar_t NUL_SIGN = 0x2400;

struct Orders {
    std::wstring strCalls;
    std::wstring strList;
    DWORD nDelay = 0;
    long nDeath = 0;
};
Orders Given;

void Record(BSTR strPrefix) {
    std::wstring strLine(strPrefix, SysStringLen(strPrefix));
    std::replace(strLine.begin(), strLine.end(), L'\0', NUL_SIGN);
    strLine += L'\n';
    char strBytes[1024] = {};
    const int nBytes =
        WideCharToMultiByte(CP_UTF8, 0, strLine.data(), static_cast<int>(strLine.size()), strBytes,
                            sizeof(strBytes), nullptr, nullptr);
    const HANDLE hFile =
        CreateFileW(Given.strCalls.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_ALWAYS, 0, nullptr);
    DWORD nWritten = 0;
    WriteFile(hFile, strBytes, static_cast<DWORD>(nBytes), &nWritten, nullptr);
    CloseHandle(hFile);
}

class Dictionary final : public IDispatch {
  public:
    Dictionary() = default;
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Wanted, void** ppFound) override {
        const bool bKnown = IsEqualIID(Wanted, IID_IUnknown) || IsEqualIID(Wanted, IID_IDispatch);
        *ppFound = bKnown ? this : nullptr;
        if (bKnown) AddRef();
        return bKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        return static_cast<ULONG>(InterlockedIncrement(&m_nReferences));
    }
    // It ends with its last client.
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG nLeft = InterlockedDecrement(&m_nReferences);
        if (nLeft == 0) PostQuitMessage(0);
        return static_cast<ULONG>(nLeft);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pCount) override { return *pCount = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* pId) override {
        *pId = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* pParameters,
                                     VARIANT* pResult, EXCEPINFO*, UINT*) override {
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
    LONG m_nReferences = 0;
    long m_nCalls = 0;
};

Dictionary TheOne;

class Factory final : public IClassFactory {
  public:
    Factory() = default;
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Wanted, void** ppFound) override {
        const bool bKnown =
            IsEqualIID(Wanted, IID_IUnknown) || IsEqualIID(Wanted, IID_IClassFactory);
        *ppFound = bKnown ? this : nullptr;
        return bKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID Wanted, void** ppMade) override {
        return TheOne.QueryInterface(Wanted, ppMade);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
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
    Factory Maker;
    DWORD nOffer = 0;
    if (FAILED(CoRegisterClassObject(Class, &Maker, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE,
                                     &nOffer))) {
        return 1;
    }
    MSG Message{};
    while (GetMessageW(&Message, nullptr, 0, 0) > 0) {
        TranslateMessage(&Message);
        DispatchMessageW(&Message);
    }
    CoRevokeClassObject(nOffer);
    return 0;
}
